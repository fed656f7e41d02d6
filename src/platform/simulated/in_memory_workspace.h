#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/simulated/application.h"
#include "platform/simulated/monitor_list.h"
#include "platform/workspace.h"

namespace mirvane::simulated {

/// The applications of the simulated desktop and which of them is in front.
class InMemoryWorkspace : public Workspace {
 public:
  /// The new application stays in the background. It lives until it quits.
  Application& addApplication(Application::Description description);
  /// Brings an application to the front and tells the observers, also when it was there already.
  void activate(Application& application);
  /// Ends an application; when it was in front nothing is afterwards.
  void quit(Application& application);

  /// Null when no application is in front.
  [[nodiscard]] Application* frontmost() const { return frontmost_; }
  /// The element that keys go to; null when there is none.
  [[nodiscard]] std::shared_ptr<TextElement> focusedElement() const;

  /// Makes the platform unable to tell which application is in front; keys still reach it.
  void setFrontmostHidden(bool hidden) { isFrontmostHidden_ = hidden; }
  void setRefusesObservers(bool refuses) { refusesObservers_ = refuses; }
  [[nodiscard]] std::size_t observerCount() const { return observers_.size(); }
  /// Makes `openUrl` fail; it records the address all the same.
  void setCannotOpenUrls(bool cannotOpen) { cannotOpenUrls_ = cannotOpen; }
  [[nodiscard]] const std::vector<std::string>& openedUrls() const { return openedUrls_; }

  [[nodiscard]] std::optional<RunningApplication> frontmostApplication() const override;
  [[nodiscard]] std::optional<MonitorHandle> addActivationObserver(
      std::function<void()> onActivated) override;
  void removeActivationObserver(MonitorHandle handle) override;
  bool openUrl(const std::string& url) override;

 private:
  std::vector<std::unique_ptr<Application>> applications_;
  Application* frontmost_ = nullptr;
  MonitorList<std::function<void()>> observers_;
  std::vector<std::string> openedUrls_;
  bool isFrontmostHidden_ = false;
  bool refusesObservers_ = false;
  bool cannotOpenUrls_ = false;
};

}  // namespace mirvane::simulated
