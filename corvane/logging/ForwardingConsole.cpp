#include "corvane/logging/ForwardingConsole.h"

#include "corvane/logging/Log.h"
#include "corvane/logging/Output.h"

#include <utility>

namespace corvane::logging {

namespace {

constexpr std::pair<std::string_view, Level> kFirstWords[] = {
    {"ERROR: ", Level::Error}, {"WARNING: ", Level::Warning}, {"==> INFO: ", Level::Information},
    {"DEBUG: ", Level::Debug}, {"### ", Level::Debug},
};

}  // namespace

LineKind lineKind(std::string_view line, Level other) {
    for (const auto& [word, level] : kFirstWords)
        if (line.starts_with(word)) return {level, line.substr(word.size())};
    const bool namesAnOperation = line.starts_with('[') && line.find(']') != line.npos;
    return {namesAnOperation ? Level::Verbose : other, line};
}

void ForwardingConsole::writeLine(std::string_view line) {
    const LineKind kind = lineKind(line, other_);
    const bool isOfTheLog = Output::isThreadOfOne();
    if (!isOfTheLog) logText(kind.level, kind.text);
    if (isOfTheLog || contains(shown_, kind.level)) beyond_.writeLine(line);
}

bool ForwardingConsole::showsTraces() const {
    return isLogged(Level::Debug) || (contains(shown_, Level::Debug) && beyond_.showsTraces());
}

}  // namespace corvane::logging
