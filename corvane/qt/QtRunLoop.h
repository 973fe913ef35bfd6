// The main run loop of a program that Qt runs.
#pragma once

#include "corvane/platform/StandardRunLoop.h"

#include <QObject>
#include <QTimer>
#include <atomic>

namespace corvane::qt {

/// Turns run on the thread that made it, from its event loop and those nested in it (of menus, of
/// drags). What is due at once comes before the windows are painted again. Calls come from any
/// thread. Calls that are left when it is destroyed do not run.
class QtRunLoop final : public platform::RunLoop {
  public:
    /// The clock must outlive the loop.
    explicit QtRunLoop(const platform::SteadyClock& clock = platform::systemSteadyClock());
    ~QtRunLoop() override;

    void callAfterDelay(double seconds, Owner owner, Call call) override;
    void cancelCalls(Owner owner) override { loop_.cancelCalls(owner); }
    bool isInTurn() const override { return loop_.isInTurn(); }
    void callAtEndOfTurn(Call call) override;

  private:
    class Receiver final : public QObject {
      public:
        explicit Receiver(QtRunLoop& loop) : loop_(loop) {}
        bool event(QEvent* event) override;

      private:
        QtRunLoop& loop_;
    };

    void wake();
    void turn();
    void setTimer();

    const platform::SteadyClock& clock_;
    platform::StandardRunLoop loop_;
    Receiver receiver_{*this};
    QTimer timer_;
    std::atomic<bool> awake_ = false;  ///< a turn is on its way
};

}  // namespace corvane::qt
