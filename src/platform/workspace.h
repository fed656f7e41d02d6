#pragma once

#include <functional>
#include <optional>
#include <string>

#include "platform/event_monitors.h"

namespace mirvane {

struct RunningApplication {
  std::optional<std::string> bundleIdentifier;
};

/// The address of the desktop's accessibility settings, for `Workspace::openUrl`.
inline constexpr const char* accessibilitySettingsUrl = "settings:accessibility";

/// The applications of the desktop.
class Workspace {
 public:
  Workspace() = default;
  Workspace(const Workspace&) = delete;
  Workspace& operator=(const Workspace&) = delete;
  virtual ~Workspace() = default;

  /// Absent when no application is in front or the platform cannot tell.
  [[nodiscard]] virtual std::optional<RunningApplication> frontmostApplication() const = 0;

  /// Calls `onActivated` whenever an application, this one included, becomes active. The callback
  /// only queues a task. Absent when the platform refuses.
  [[nodiscard]] virtual std::optional<MonitorHandle> addActivationObserver(
      std::function<void()> onActivated) = 0;
  virtual void removeActivationObserver(MonitorHandle handle) = 0;

  /// Opens a web address or a page of the desktop's settings with whatever handles it.
  /// False when nothing could be started.
  virtual bool openUrl(const std::string& url) = 0;
};

}  // namespace mirvane
