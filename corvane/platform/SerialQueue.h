// Calls that run one after the other on a thread of their own.
#pragma once

#include <functional>
#include <memory>
#include <string>

namespace corvane::platform {

/// The thread starts with the first call; until then a queue costs nothing. Calls may come from any
/// thread, those of the queue itself included. A call that throws is reported on the console
/// ("ERROR: …"), and the others run.
class SerialQueue {
  public:
    /// The system shows the thread under the first 15 bytes of the label.
    explicit SerialQueue(std::string label);

    /// Runs what is left and waits for it. A queue that one of its own calls destroys runs what is
    /// left too, and nobody waits.
    ~SerialQueue();
    SerialQueue(const SerialQueue&) = delete;
    SerialQueue& operator=(const SerialQueue&) = delete;

    const std::string& label() const;

    /// Throws std::invalid_argument for an empty call. Where the system has no thread to give, the
    /// call runs before this returns.
    void async(std::function<void()> call);

  private:
    struct State;
    std::shared_ptr<State> state_;  ///< the thread's too
};

}  // namespace corvane::platform
