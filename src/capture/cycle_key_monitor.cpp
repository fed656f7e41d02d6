#include "capture/cycle_key_monitor.h"

#include <utility>

#include "platform/key_codes.h"

namespace mirvane {
namespace {

/// With the other Option key held, the release of Right Option passes too: the flag is still set.
bool isCycleKeyPress(const InputEvent& event) {
  return event.keyCode == keycode::rightOption && (event.modifierFlags & modifier::option) != 0;
}

}  // namespace

void installCycleKeyMonitor(EventMonitors& monitors, TaskQueue& tasks,
                            std::optional<MonitorHandle>& monitorSlot,
                            std::function<void()> onCycle) {
  if (monitorSlot) return;
  monitorSlot = monitors.addLocalMonitor(
      EventMask::flagsChanged, [&tasks, onCycle = std::move(onCycle)](const InputEvent& event) {
        if (isCycleKeyPress(event)) tasks.post(onCycle);
      });
}

void removeCycleKeyMonitor(EventMonitors& monitors, std::optional<MonitorHandle>& monitorSlot) {
  if (!monitorSlot) return;
  monitors.removeMonitor(*monitorSlot);
  monitorSlot.reset();
}

}  // namespace mirvane
