// Shows messages on standard error, with colours where these are wanted.
#pragma once

#include "corvane/logging/LineFormat.h"
#include "corvane/logging/Writer.h"
#include "corvane/platform/Terminal.h"

#include <string>

namespace corvane::logging {

class TerminalWriter final : public Writer {
  public:
    TerminalWriter()
        : format_(platform::standardErrorTakesColors() ? LineFormat::Style::ColorTerminal
                                                       : LineFormat::Style::Terminal) {}

    void write(const Message& message) override {
        format_.append(message, pending_);
        if (pending_.size() >= kBlock) flush();
    }

    /// Where nobody reads any more there is nobody to tell of it either.
    void flush() override {
        platform::writeToStandardError(pending_);
        pending_.clear();
    }

  private:
    static constexpr std::size_t kBlock = 4096;

    LineFormat format_;
    std::string pending_;
};

}  // namespace corvane::logging
