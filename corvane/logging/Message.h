// What an output's thread is given to write. A value that owns nothing.
#pragma once

#include "corvane/logging/Level.h"
#include "corvane/platform/Instant.h"

#include <cstddef>
#include <string_view>

namespace corvane::logging {

struct Message {
    platform::Instant instant;     ///< When it was logged, between the years 1678 and 2262.
    std::size_t threadNumber = 0;  ///< The system's number of the thread that logged it.
    Level level = Level::Error;
    std::string_view text;  ///< One line, without its break.
};

}  // namespace corvane::logging
