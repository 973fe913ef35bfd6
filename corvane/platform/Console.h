// The process's console: where diagnostics that are not log messages appear as plain lines.
#pragma once

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

/// Puts a console in force for as long as it lives; for tests, and for a program's whole run. On
/// one thread; what other threads may write to it must end first.
class ScopedConsole {
  public:
    explicit ScopedConsole(Console& console);
    ~ScopedConsole();
    ScopedConsole(const ScopedConsole&) = delete;
    ScopedConsole& operator=(const ScopedConsole&) = delete;

  private:
    Console* previous_;
};

}  // namespace corvane::platform
