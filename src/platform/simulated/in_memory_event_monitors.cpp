#include "platform/simulated/in_memory_event_monitors.h"

#include <algorithm>
#include <utility>

namespace mirvane::simulated {
namespace {

bool watches(EventMask mask, EventMask kind) {
  return (static_cast<std::uint64_t>(mask) & static_cast<std::uint64_t>(kind)) != 0;
}

}  // namespace

std::optional<MonitorHandle> InMemoryEventMonitors::addGlobalMonitor(EventMask kind,
                                                                     Handler handler) {
  return add({MonitorScope::global, kind}, std::move(handler));
}

std::optional<MonitorHandle> InMemoryEventMonitors::addLocalMonitor(EventMask kind,
                                                                    Handler handler) {
  return add({MonitorScope::local, kind}, std::move(handler));
}

void InMemoryEventMonitors::removeMonitor(MonitorHandle handle) {
  monitors_.remove(handle);
}

void InMemoryEventMonitors::deliver(MonitorScope scope, const InputEvent& event) {
  monitors_.forEach([&](const Monitor& monitor) {
    const auto& [watchedScope, mask] = monitor.registration;
    if (watchedScope == scope && watches(mask, event.kind)) monitor.handler(event);
  });
}

void InMemoryEventMonitors::refuse(MonitorScope scope, EventMask kind) {
  refused_.push_back({scope, kind});
}

std::optional<MonitorHandle> InMemoryEventMonitors::add(Registration registration,
                                                        Handler handler) {
  if (std::find(refused_.begin(), refused_.end(), registration) != refused_.end()) {
    return std::nullopt;
  }
  return monitors_.add({registration, std::move(handler)});
}

}  // namespace mirvane::simulated
