#include "corvane/platform/Console.h"

#include <unistd.h>

#include <utility>

namespace corvane::platform {

namespace {

class StandardError final : public Console {
  public:
    // One write call a line keeps lines of several threads and processes whole.
    void writeLine(std::string_view line) override {
        std::string text(line);
        text += '\n';
        [[maybe_unused]] auto written = ::write(STDERR_FILENO, text.data(), text.size());
    }
};

Console*& consoleInForce() {
    static StandardError standardError;
    static Console* console = &standardError;
    return console;
}

}  // namespace

Console& currentConsole() {
    return *consoleInForce();
}

ScopedConsole::ScopedConsole(Console& console)
    : previous_(std::exchange(consoleInForce(), &console)) {}

ScopedConsole::~ScopedConsole() {
    consoleInForce() = previous_;
}

}  // namespace corvane::platform
