#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/simulated/text_element.h"

namespace mirvane::simulated {

/// A running application with its text elements, one of which may have the focus.
class Application {
 public:
  struct Description {
    std::optional<std::string> bundleIdentifier = {};
    /// The application that the event monitors belong to: local monitors see its windows, global
    /// ones those of all others.
    bool isOwn = false;
  };

  explicit Application(Description description) : description_(std::move(description)) {}

  [[nodiscard]] const std::optional<std::string>& bundleIdentifier() const {
    return description_.bundleIdentifier;
  }
  /// Renames the application in place: no switch, no notice.
  void setBundleIdentifier(std::optional<std::string> identifier);
  [[nodiscard]] bool isOwn() const { return description_.isOwn; }

  /// Opens a window with one more element, which gets the application's focus.
  TextElement& addElement(ElementKind kind, std::string_view text = {});
  /// Closes the element; accessibility handles to it are dead from now on. Nothing has the focus
  /// afterwards if it had it.
  void closeElement(TextElement& element);

  /// An element of another application changes nothing.
  void focus(TextElement& element);
  void dropFocus() { focused_.reset(); }

  /// Null when nothing has the focus.
  [[nodiscard]] std::shared_ptr<TextElement> focusedElement() const { return focused_.lock(); }

 private:
  Description description_;
  std::vector<std::shared_ptr<TextElement>> elements_;
  std::weak_ptr<TextElement> focused_;
};

}  // namespace mirvane::simulated
