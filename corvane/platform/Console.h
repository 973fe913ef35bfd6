// The process's console: where diagnostics that are not log messages appear as plain lines.
#pragma once

#include "corvane/platform/ScopedOverride.h"

#include <atomic>
#include <string>
#include <string_view>
#include <vector>

namespace corvane::platform {

/// Takes whole lines, without their line break. Implementations must allow calls from any thread.
class Console {
  public:
    virtual ~Console() = default;
    virtual void writeLine(std::string_view line) = 0;

    /// Whether anybody may read lines that only developers want ("### …"). Where not, whoever would
    /// make large ones need not.
    virtual bool showsTraces() const { return true; }
};

/// The console in force: standard error, unless a ScopedConsole stands in for it.
Console& currentConsole();

/// Keeps the lines instead of showing them; for tests.
class RecordingConsole final : public Console {
  public:
    void writeLine(std::string_view line) override { lines_.emplace_back(line); }
    const std::vector<std::string>& lines() const { return lines_; }

  private:
    std::vector<std::string> lines_;
};

std::atomic<Console*>& consoleInForce();

/// For tests, and for a program's whole run. What other threads may write to the console must end
/// first.
using ScopedConsole = ScopedOverride<Console, consoleInForce>;

}  // namespace corvane::platform
