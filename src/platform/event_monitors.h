#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace mirvane {

/// Kinds of input events, as bits so that a monitor can ask for several.
enum class EventMask : std::uint64_t {
  keyDown = 1U << 10,
  keyUp = 1U << 11,
  flagsChanged = 1U << 12,
  pointerDown = (1U << 1) | (1U << 3) | (1U << 25),
};

/// One key, modifier or pointer event, copied from the platform.
struct InputEvent {
  EventMask kind = EventMask::keyDown;
  std::uint16_t keyCode = 0;
  /// What the key typed with its modifiers applied; absent when the platform reports nothing.
  std::optional<std::string> characters;
  std::uint64_t modifierFlags = 0;
  double timestamp = 0;  ///< seconds since the system started
  /// Who sent a synthesized event; absent when there is no low-level event behind this one.
  std::optional<std::int64_t> sourceUserData;
};

/// Names an installed monitor or observer.
enum class MonitorHandle : std::uint64_t {};

/// Watching input without swallowing any of it.
///
/// Handlers run while the platform delivers the event, in the order of the events. They must not
/// work in place: they copy what they need and queue a task.
class EventMonitors {
 public:
  using Handler = std::function<void(const InputEvent&)>;

  EventMonitors() = default;
  EventMonitors(const EventMonitors&) = delete;
  EventMonitors& operator=(const EventMonitors&) = delete;
  virtual ~EventMonitors() = default;

  /// Copies of the events aimed at other applications. A held key comes as repeated presses and
  /// one release; while secure input is on, keys do not come at all. Absent when the platform
  /// refuses.
  [[nodiscard]] virtual std::optional<MonitorHandle> addGlobalMonitor(EventMask kind,
                                                                      Handler handler) = 0;

  /// Events aimed at this application's own windows, seen just before they are delivered.
  [[nodiscard]] virtual std::optional<MonitorHandle> addLocalMonitor(EventMask kind,
                                                                     Handler handler) = 0;

  /// Removes a monitor of either sort; an unknown handle changes nothing.
  virtual void removeMonitor(MonitorHandle handle) = 0;
};

}  // namespace mirvane
