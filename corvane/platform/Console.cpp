#include "corvane/platform/Console.h"

#include "corvane/platform/Terminal.h"

#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

#include <atomic>

namespace corvane::platform {

namespace {

class StandardError final : public Console {
  public:
    // One write call a line keeps lines of several threads and processes whole.
    void writeLine(std::string_view line) override {
        writeToStandardError(std::string(line) += '\n');
    }

    // Unless it is closed or thrown away.
    bool showsTraces() const override {
        const auto kNull = makedev(1, 3);
        struct stat status {};
        return ::fstat(STDERR_FILENO, &status) == 0 &&
               !(S_ISCHR(status.st_mode) && status.st_rdev == kNull);
    }
};

/// Atomic, because threads of the log report while a test puts another one in force.
}  // namespace

std::atomic<Console*>& consoleInForce() {
    // Never destroyed: objects that end after everything else may still have something to say.
    static std::atomic<Console*> console = new StandardError;
    return console;
}

Console& currentConsole() {
    return *consoleInForce().load();
}

}  // namespace corvane::platform
