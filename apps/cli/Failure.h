// Why a command could not do what it was asked for.
#pragma once

#include "corvane/platform/Error.h"

#include <optional>
#include <stdexcept>
#include <string>

namespace corvane::cli {

/// Ends a command. The program shows the text as one line and exits with 1.
class Failure : public std::runtime_error {
  public:
    explicit Failure(const std::string& message) : std::runtime_error(message) {}
    explicit Failure(const platform::Error& error) : std::runtime_error(error.message) {}
};

/// The same for a command line that turns out to be wrong only when the command is at work. The
/// program exits with 2.
class WrongUsage : public Failure {
  public:
    using Failure::Failure;
};

inline void failOn(const std::optional<platform::Error>& error) {
    if (error) throw Failure(*error);
}

}  // namespace corvane::cli
