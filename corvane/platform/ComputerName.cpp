#include "corvane/platform/ComputerName.h"

#include "corvane/platform/Files.h"
#include "corvane/platform/TextEncoding.h"

#include <unistd.h>

#include <algorithm>
#include <array>

namespace corvane::platform {

namespace {

constexpr std::string_view kBlanks = " \t\r";

std::string_view trimmed(std::string_view text) {
    const auto first = text.find_first_not_of(kBlanks);
    if (first == text.npos) return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

/// The value of an assignment as a shell reads it, without its expansions; none where a quote or an
/// escape does not end.
std::optional<std::string> unquoted(std::string_view text) {
    std::string value;
    char quote = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (c == '\\' && quote != '\'') {
            if (++i == text.size()) return std::nullopt;
            value += text[i];
        } else if (c == quote) {
            quote = 0;
        } else if (quote == 0 && (c == '"' || c == '\'')) {
            quote = c;
        } else {
            value += c;
        }
    }
    return quote == 0 ? std::optional(value) : std::nullopt;
}

std::string hostName() {
    std::array<char, 256> name{};
    if (::gethostname(name.data(), name.size() - 1) != 0) return "localhost";
    return name.data();
}

}  // namespace

std::optional<std::string> prettyHostName(std::string_view machineInfo) {
    constexpr std::string_view kKey = "PRETTY_HOSTNAME=";
    std::optional<std::string> name;
    while (!machineInfo.empty()) {
        const auto end = std::min(machineInfo.find('\n'), machineInfo.size());
        const auto line = trimmed(machineInfo.substr(0, end));
        if (line.starts_with(kKey)) name = unquoted(line.substr(kKey.size()));
        machineInfo.remove_prefix(std::min(end + 1, machineInfo.size()));
    }
    return name && !name->empty() && isUTF8(*name) ? name : std::nullopt;
}

std::string computerName() {
    auto name = prettyHostName(readTextFile("/etc/machine-info").value_or(""));
    return name ? *std::move(name) : hostName();
}

}  // namespace corvane::platform
