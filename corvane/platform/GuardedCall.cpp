#include "corvane/platform/GuardedCall.h"

#include "corvane/platform/Console.h"

#include <exception>
#include <string>

namespace corvane::platform {

namespace {

void report(std::string_view whose, std::string_view what) {
    currentConsole().writeLine(
        std::string("ERROR: a call of '").append(whose).append("' threw: ").append(what));
}

}  // namespace

void runGuarded(std::string_view whose, const std::function<void()>& call) {
    try {
        call();
    } catch (const std::exception& error) {
        report(whose, error.what());
    } catch (...) {
        report(whose, "something that is no std::exception");
    }
}

}  // namespace corvane::platform
