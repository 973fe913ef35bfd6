#include "corvane/qt/QtRunLoop.h"

#include <QCoreApplication>
#include <QEvent>
#include <algorithm>
#include <chrono>
#include <limits>

namespace corvane::qt {

using std::chrono::milliseconds;

bool QtRunLoop::Receiver::event(QEvent* event) {
    if (event->type() != QEvent::User) return QObject::event(event);
    loop_.turn();
    return true;
}

QtRunLoop::QtRunLoop(const platform::SteadyClock& clock) : clock_(clock), loop_(clock) {
    timer_.setSingleShot(true);
    timer_.setTimerType(Qt::PreciseTimer);
    timer_.callOnTimeout([this] { turn(); });
}

QtRunLoop::~QtRunLoop() {
    // What the calls hold may post others as it goes: nobody is to be woken by them.
    awake_ = true;
}

void QtRunLoop::callAfterDelay(double seconds, Owner owner, Call call) {
    loop_.callAfterDelay(seconds, owner, std::move(call));
    wake();
}

void QtRunLoop::callAtEndOfTurn(Call call) {
    loop_.callAtEndOfTurn(std::move(call));
    // In a turn, too: a call may run an event loop of its own, where the turn's end is far away.
    wake();
}

void QtRunLoop::wake() {
    if (!awake_.exchange(true))
        QCoreApplication::postEvent(&receiver_, new QEvent(QEvent::User), Qt::NormalEventPriority);
}

void QtRunLoop::turn() {
    awake_ = false;
    const auto due = loop_.nextDue();
    const bool isDue = due && *due <= clock_.now();
    // A call may run an event loop of its own, in which the others must go on.
    if (isDue) wake();
    // Within such a loop turns end, too.
    if (isDue || isInTurn()) loop_.runTurn();
    setTimer();
}

void QtRunLoop::setTimer() {
    const auto due = loop_.nextDue();
    if (!due) return timer_.stop();
    const auto wait = std::chrono::ceil<milliseconds>(*due - clock_.now());
    if (wait <= milliseconds(0)) return wake();
    constexpr milliseconds longest(std::numeric_limits<int>::max());
    timer_.start(std::min(wait, longest));
}

}  // namespace corvane::qt
