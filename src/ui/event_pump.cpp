#include "ui/event_pump.h"

#include <QCoreApplication>
#include <QScopedValueRollback>
#include <QTimer>

#include <algorithm>
#include <cmath>

namespace tavlon12 {

namespace {

constexpr std::chrono::milliseconds kBetweenEvents{5};
// Where nodes are quick, not each of them looks at the clock; where they are slow, each does.
constexpr int kMostCallsPerLook = 16;
constexpr std::chrono::microseconds kBetweenLooks{20};

} // namespace

bool EventPump::IsTime() {
    const auto now = std::chrono::steady_clock::now();
    CallsPerLook = now - LastLook < kBetweenLooks ? std::min(2 * CallsPerLook, kMostCallsPerLook) : 1;
    CallsUntilLook = CallsPerLook;
    LastLook = now;
    return now - LastEvents >= kBetweenEvents;
}

void EventPump::Yield() {
    if (Inside || --CallsUntilLook > 0 || !IsTime()) return;
    const QScopedValueRollback inside(Inside, true);
    QCoreApplication::processEvents();
    LastEvents = std::chrono::steady_clock::now();
}

void EventPump::Wait(double seconds, const std::function<bool()>& goesOn) {
    QTimer timer;
    timer.setTimerType(Qt::PreciseTimer);
    timer.setSingleShot(true);
    timer.start(static_cast<int>(std::lround(seconds * 1000)));
    while (timer.isActive() && goesOn()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

} // namespace tavlon12
