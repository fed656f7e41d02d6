#pragma once

#include <QObject>
#include <utility>
#include <vector>

#include "platform/linux/other_applications.h"
#include "platform/workspace.h"

namespace mirvane {

/// The applications of the desktop; only this one where the others are out of reach.
class QtWorkspace : public QObject, public Workspace {
  Q_OBJECT

 public:
  /// `others` is null where other applications are out of reach.
  explicit QtWorkspace(OtherApplications* others = nullptr);

  /// This application's identifier is the name of its desktop entry.
  [[nodiscard]] std::optional<RunningApplication> frontmostApplication() const override;
  [[nodiscard]] std::optional<MonitorHandle> addActivationObserver(
      std::function<void()> onActivated) override;
  void removeActivationObserver(MonitorHandle handle) override;
  bool openUrl(const std::string& url) override;

 private:
  void announceActivation() const;

  OtherApplications* others_;
  std::vector<std::pair<MonitorHandle, std::function<void()>>> observers_;
  std::uint64_t lastHandle_ = 0;
};

}  // namespace mirvane
