#include "corvane/platform/SerialQueue.h"

#include "corvane/platform/GuardedCall.h"

#include <condition_variable>
#include <deque>
#include <mutex>
#include <pthread.h>
#include <stdexcept>
#include <system_error>
#include <thread>
#include <utility>

namespace corvane::platform {

namespace {

constexpr std::size_t kLongestThreadName = 15;

}  // namespace

struct SerialQueue::State {
    std::string label;
    std::mutex mutex;
    std::condition_variable changed;
    std::deque<std::function<void()>> calls;
    bool started = false;
    bool ending = false;
    std::thread thread;

    /// Whether there is a thread to run the calls.
    static bool start(const std::shared_ptr<State>& state) {
        if (state->started) return true;
        try {
            state->thread = std::thread([state] { state->run(); });
            state->started = true;
        } catch (const std::system_error&) {
        }
        return state->started;
    }

    void run() {
        ::pthread_setname_np(::pthread_self(), label.substr(0, kLongestThreadName).c_str());
        std::unique_lock lock(mutex);
        while (true) {
            changed.wait(lock, [&] { return ending || !calls.empty(); });
            if (calls.empty()) return;
            auto call = std::move(calls.front());
            calls.pop_front();
            lock.unlock();
            runGuarded(label, call);
            call = nullptr;
            lock.lock();
        }
    }
};

SerialQueue::SerialQueue(std::string label) : state_(std::make_shared<State>()) {
    state_->label = std::move(label);
}

SerialQueue::~SerialQueue() {
    std::unique_lock lock(state_->mutex);
    state_->ending = true;
    state_->changed.notify_all();
    std::thread thread = std::move(state_->thread);
    lock.unlock();
    if (!thread.joinable()) return;
    if (thread.get_id() == std::this_thread::get_id())
        thread.detach();
    else
        thread.join();
}

const std::string& SerialQueue::label() const {
    return state_->label;
}

void SerialQueue::async(std::function<void()> call) {
    if (!call) throw std::invalid_argument("an empty call for a queue");
    std::unique_lock lock(state_->mutex);
    if (!State::start(state_)) {
        lock.unlock();
        runGuarded(state_->label, call);
        return;
    }
    state_->calls.push_back(std::move(call));
    state_->changed.notify_all();
}

}  // namespace corvane::platform
