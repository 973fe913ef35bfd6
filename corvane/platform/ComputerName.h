// What the user calls this computer.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace corvane::platform {

/// The pretty host name of /etc/machine-info ("Ann's laptop"), else the host name. Looked for anew
/// on every call, from any thread.
std::string computerName();

/// The PRETTY_HOSTNAME of a file like that one, as machine-info(5) describes it; none where it has
/// none, or an empty or unreadable one.
std::optional<std::string> prettyHostName(std::string_view machineInfo);

}  // namespace corvane::platform
