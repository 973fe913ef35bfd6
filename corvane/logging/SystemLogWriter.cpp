#include "corvane/logging/SystemLogWriter.h"

#include <syslog.h>

namespace corvane::logging {

namespace {

int priorityOf(Level level) {
    switch (level) {
        case Level::Error:
            return LOG_ERR;
        case Level::Warning:
            return LOG_WARNING;
        case Level::Information:
            return LOG_INFO;
        default:
            return LOG_DEBUG;
    }
}

}  // namespace

SystemLogWriter::SystemLogWriter() {
    ::openlog(nullptr, LOG_PID, LOG_USER);
}

SystemLogWriter::~SystemLogWriter() {
    ::closelog();
}

void SystemLogWriter::write(const Message& message) {
    ::syslog(priorityOf(message.level), "%.*s", static_cast<int>(message.text.size()),
             message.text.data());
}

}  // namespace corvane::logging
