// Where the messages of one output end up. Owned by the output, whose thread alone calls it.
#pragma once

#include "corvane/logging/Message.h"

namespace corvane::logging {

class Writer {
  public:
    virtual ~Writer() = default;

    /// May keep the message back until flush(), which follows as soon as no other message waits.
    virtual void write(const Message& message) = 0;

    /// Hands all that was kept back to the system, as far as it takes it.
    virtual void flush() = 0;
};

}  // namespace corvane::logging
