#pragma once

#include <chrono>
#include <functional>

namespace tavlon12 {

/// Lets events of the window run while a procedure of the session does: the one place that decides when.
class EventPump {
public:
    /// Processes the events when the last time is a few milliseconds ago. Cheap enough for each node of a search.
    void Yield();

    /// Processes events for that time, as long as `goesOn` says so.
    void Wait(double seconds, const std::function<bool()>& goesOn);

private:
    bool IsTime();

    int CallsUntilLook = 1;
    int CallsPerLook = 1;
    std::chrono::steady_clock::time_point LastLook{};
    std::chrono::steady_clock::time_point LastEvents{};
    bool Inside = false;
};

} // namespace tavlon12
