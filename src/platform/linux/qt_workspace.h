#pragma once

#include <QObject>
#include <utility>
#include <vector>

#include "platform/workspace.h"

namespace mirvane {

/// The desktop as far as this application sees it: itself while one of its windows is active.
class QtWorkspace : public QObject, public Workspace {
  Q_OBJECT

 public:
  QtWorkspace();

  /// The identifier is the name of the application's desktop entry.
  [[nodiscard]] std::optional<RunningApplication> frontmostApplication() const override;
  [[nodiscard]] std::optional<MonitorHandle> addActivationObserver(
      std::function<void()> onActivated) override;
  void removeActivationObserver(MonitorHandle handle) override;
  bool openUrl(const std::string& url) override;

 private:
  void announceActivation() const;

  std::vector<std::pair<MonitorHandle, std::function<void()>>> observers_;
  std::uint64_t lastHandle_ = 0;
};

}  // namespace mirvane
