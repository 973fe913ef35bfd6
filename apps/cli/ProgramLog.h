// The log of one run of the program, and what of it people see on standard error.
#pragma once

#include "corvane/logging/ForwardingConsole.h"
#include "corvane/platform/Console.h"
#include "corvane/platform/Instant.h"

#include <string>

namespace corvane::cli {

/// For as long as it lives, the library's diagnostics go into the log. Without an option there is
/// no log, and only errors and warnings are shown, as plain lines.
class ProgramLog {
  public:
    struct Options {
        bool file = false;     ///< Log files in the log directory.
        bool verbose = false;  ///< All of the log on standard error, in place of plain lines.
    };

    ProgramLog(const Options& options, std::string command);

    /// Everything is written when it returns.
    ~ProgramLog();
    ProgramLog(const ProgramLog&) = delete;
    ProgramLog& operator=(const ProgramLog&) = delete;

    void succeeded() const;

    /// Shows the reason in any case.
    void failed(const std::string& reason) const;

  private:
    std::string command_;
    platform::Instant start_;
    Options options_;
    logging::ForwardingConsole console_;
    platform::ScopedConsole inForce_{console_};
};

}  // namespace corvane::cli
