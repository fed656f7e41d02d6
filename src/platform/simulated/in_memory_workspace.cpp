#include "platform/simulated/in_memory_workspace.h"

#include <utility>

namespace mirvane::simulated {

Application& InMemoryWorkspace::addApplication(Application::Description description) {
  return *applications_.emplace_back(std::make_unique<Application>(std::move(description)));
}

void InMemoryWorkspace::activate(Application& application) {
  frontmost_ = &application;
  observers_.forEach([](const auto& onActivated) { onActivated(); });
}

void InMemoryWorkspace::quit(Application& application) {
  if (frontmost_ == &application) frontmost_ = nullptr;
  std::erase_if(applications_, [&](const auto& other) { return other.get() == &application; });
}

std::shared_ptr<TextElement> InMemoryWorkspace::focusedElement() const {
  return frontmost_ == nullptr ? nullptr : frontmost_->focusedElement();
}

std::optional<RunningApplication> InMemoryWorkspace::frontmostApplication() const {
  if (frontmost_ == nullptr || isFrontmostHidden_) return std::nullopt;
  return RunningApplication{frontmost_->bundleIdentifier()};
}

std::optional<MonitorHandle> InMemoryWorkspace::addActivationObserver(
    std::function<void()> onActivated) {
  if (refusesObservers_) return std::nullopt;
  return observers_.add(std::move(onActivated));
}

void InMemoryWorkspace::removeActivationObserver(MonitorHandle handle) {
  observers_.remove(handle);
}

bool InMemoryWorkspace::openUrl(const std::string& url) {
  openedUrls_.push_back(url);
  return !cannotOpenUrls_;
}

}  // namespace mirvane::simulated
