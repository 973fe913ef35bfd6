// Uniform random numbers for play and spread, not for secrets. One thread at a time for all
// generators together.
#pragma once

#include <cstdint>

namespace corvane {

/// The minimal standard generator of Park and Miller, shuffled by the method of Bays and Durham.
/// The shuffle table and the last drawn value belong to all generators of the process, so that two
/// of them with one seed do not give the same numbers in turn.
class EXRandomGenerator {
  public:
    EXRandomGenerator() { reset(); }

    /// Seeds with the clock: the state becomes minus the whole seconds since 1970.
    void reset();

    /// In the open interval (0, 1). A state of 0 or less fills the table anew; a positive one goes
    /// on with the table, or, where nobody has filled it yet, starts as from the seed 1.
    double randomValue();

    std::int64_t idum() const { return idum_; }
    void setIdum(std::int64_t idum) { idum_ = idum; }

  private:
    void fillTable();
    void step();

    std::int64_t idum_ = 0;
};

}  // namespace corvane
