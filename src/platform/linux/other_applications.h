#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string_view>

#include "platform/accessibility.h"
#include "platform/event_monitors.h"
#include "platform/key_event_poster.h"
#include "platform/linux/qt_task_queue.h"
#include "platform/linux/x11/desktop_window.h"

namespace mirvane {

/// What is typed in other applications, what stands in them, and typing into them: the part of the
/// desktop's ports that lies outside of the own windows. To be used from the main thread.
///
/// A key goes a long way before it is reported: the X server tells a thread that watches the
/// keyboard; the accessibility thread waits until the application has dealt with the key, drops
/// keys of passwords, and looks at the text; then the main thread hears of the key. What the main
/// thread asks meanwhile is answered from that look; later questions wait for the application, but
/// never longer than a tenth of a second.
class OtherApplications {
 public:
  /// Null where other applications are out of reach: without an X server, or under Wayland.
  [[nodiscard]] static std::unique_ptr<OtherApplications> connect(QtTaskQueue& tasks);
  ~OtherApplications();
  OtherApplications(const OtherApplications&) = delete;
  OtherApplications& operator=(const OtherApplications&) = delete;

  /// Key and pointer presses in other applications go to `handler` until it is replaced; keys come
  /// with their text, held ones repeated. Nothing is watched while there is none.
  void setInputHandler(std::function<void(const InputEvent&)> handler);

  /// Called whenever another application becomes active.
  void setActivationHandler(std::function<void()> handler);

  /// Whether handlers are at work on a key of another application: what they ask is about that
  /// application, even if an own window has become active since.
  [[nodiscard]] bool isDelivering() const;

  /// The application whose window became active last; absent before the first. May be this one.
  [[nodiscard]] const std::optional<DesktopWindow>& frontmostWindow() const;

  /// The focused element of the application in front; null when there is none to be reached.
  [[nodiscard]] std::shared_ptr<AccessibilityElement> focusedElement();

  /// True while a password field or a terminal is in front.
  [[nodiscard]] bool isSecureInputEnabled() const;

  /// A source of keys for the window in front; null when the field there is known to hold something
  /// else than `textBeforeCaret` before its caret, or no keys can be posted. The keys posted are
  /// typed together when the source is let go of.
  [[nodiscard]] std::unique_ptr<KeyEventSource> createSource(std::string_view textBeforeCaret);

 private:
  class Implementation;
  explicit OtherApplications(std::unique_ptr<Implementation> implementation);

  std::unique_ptr<Implementation> implementation_;
};

}  // namespace mirvane
