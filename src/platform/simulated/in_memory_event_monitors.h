#pragma once

#include <cstddef>
#include <vector>

#include "platform/event_monitors.h"
#include "platform/simulated/monitor_list.h"

namespace mirvane::simulated {

/// Which events a monitor sees: those of the own windows or those of other applications.
enum class MonitorScope { local, global };

class InMemoryEventMonitors : public EventMonitors {
 public:
  [[nodiscard]] std::optional<MonitorHandle> addGlobalMonitor(EventMask kind,
                                                              Handler handler) override;
  [[nodiscard]] std::optional<MonitorHandle> addLocalMonitor(EventMask kind,
                                                             Handler handler) override;
  /// Also while handlers are being called; a removed monitor is not called any more.
  void removeMonitor(MonitorHandle handle) override;

  /// Calls the monitors of a scope that watch the event's kind, in the order they were added.
  /// A monitor added meanwhile does not see this event.
  void deliver(MonitorScope scope, const InputEvent& event);

  /// From now on no handle is given for monitors of this scope that ask for exactly `kind`.
  void refuse(MonitorScope scope, EventMask kind);

  [[nodiscard]] std::size_t count() const { return monitors_.size(); }

 private:
  struct Registration {
    MonitorScope scope;
    EventMask kind;

    bool operator==(const Registration&) const = default;
  };
  struct Monitor {
    Registration registration;
    Handler handler;
  };

  std::optional<MonitorHandle> add(Registration registration, Handler handler);

  MonitorList<Monitor> monitors_;
  std::vector<Registration> refused_;
};

}  // namespace mirvane::simulated
