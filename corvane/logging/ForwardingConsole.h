// Brings the library's diagnostic lines into the log, so that an application sees both in one
// place.
#pragma once

#include "corvane/logging/Level.h"
#include "corvane/platform/Console.h"

#include <string_view>

namespace corvane::logging {

/// What a line says of itself by its first word.
///
///     lineKind("WARNING: no such file")      // Warning, "no such file"
///     lineKind("==> INFO: restored")         // Information, "restored"
///     lineKind("### 3 rows")                 // Debug, "3 rows"
///     lineKind("DEBUG: 3 rows")              // the same
///     lineKind("[EXTable reload] for 'x'")   // Verbose, the whole line
struct LineKind {
    Level level;
    std::string_view text;
};

/// `ERROR: ` is an error; a line that begins with none of these words is of the level `other`.
LineKind lineKind(std::string_view line, Level other);

/// Logs each line and shows some of them on another console, as they are. To be put in force with a
/// ScopedConsole. Lines from the outputs' own threads, such as that the disk is full, are only
/// shown.
///
///     // no traces: errors and warnings alone
///     logging::ForwardingConsole console(platform::currentConsole(), logging::kUpToWarning);
///     const platform::ScopedConsole scope(console);
class ForwardingConsole final : public platform::Console {
  public:
    /// `beyond` must outlive this. `shown` are the levels whose lines it gets.
    ForwardingConsole(platform::Console& beyond, LevelMask shown, Level other = Level::Information)
        : beyond_(beyond), shown_(shown), other_(other) {}

    void writeLine(std::string_view line) override;
    bool showsTraces() const override;

  private:
    platform::Console& beyond_;
    const LevelMask shown_;
    const Level other_;
};

}  // namespace corvane::logging
