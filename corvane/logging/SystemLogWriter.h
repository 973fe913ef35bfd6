// Hands messages to the system's log daemon, which adds the time and decides where they are kept.
#pragma once

#include "corvane/logging/Writer.h"

namespace corvane::logging {

/// Under the name of the program and with the number of the process. Errors have the priority
/// "err", warnings "warning", information "info", everything else "debug". Where no daemon runs,
/// nothing happens. The process has one connection, so there should be one of these.
class SystemLogWriter final : public Writer {
  public:
    SystemLogWriter();
    ~SystemLogWriter() override;
    SystemLogWriter(const SystemLogWriter&) = delete;
    SystemLogWriter& operator=(const SystemLogWriter&) = delete;

    void write(const Message& message) override;
    void flush() override {}
};

}  // namespace corvane::logging
