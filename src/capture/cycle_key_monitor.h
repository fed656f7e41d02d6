#pragma once

#include <functional>
#include <optional>

#include "platform/event_monitors.h"
#include "platform/task_queue.h"

namespace mirvane {

/// Installs the monitor of the cycle key (Right Option, fixed) into the slot that the screens
/// share; a filled slot is left as it is. Every press, in this application's own windows, runs
/// `onCycle` once as a task of its own. The slot stays empty when the platform refuses.
void installCycleKeyMonitor(EventMonitors& monitors, TaskQueue& tasks,
                            std::optional<MonitorHandle>& monitorSlot,
                            std::function<void()> onCycle);

/// Removes the monitor in the slot, if there is one, and empties the slot.
void removeCycleKeyMonitor(EventMonitors& monitors, std::optional<MonitorHandle>& monitorSlot);

}  // namespace mirvane
