#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/trust_prompt.h"

namespace mirvane {

/// A range of a text in UTF-16 code units.
struct Utf16Range {
  std::int64_t location = 0;
  std::int64_t length = 0;

  bool operator==(const Utf16Range&) const = default;
};

/// One text element of some application, reached through the accessibility interface. Calls block
/// until the application answers or the adapter gives up. The element may be gone by the time it
/// is used: then reads answer nothing and writes do nothing.
class AccessibilityElement {
 public:
  AccessibilityElement() = default;
  AccessibilityElement(const AccessibilityElement&) = delete;
  AccessibilityElement& operator=(const AccessibilityElement&) = delete;
  virtual ~AccessibilityElement() = default;

  /// Length of the element's text in UTF-16 units; absent when its value is not a text that may
  /// be read (a password, a picture).
  [[nodiscard]] virtual std::optional<std::int64_t> textLength() const = 0;

  /// The text of `range`, which the caller keeps within the text. Elements can be long, so callers
  /// ask for what they need.
  [[nodiscard]] virtual std::optional<std::u16string> text(Utf16Range range) const = 0;

  /// The selection; an empty one is the caret.
  [[nodiscard]] virtual std::optional<Utf16Range> selectedTextRange() const = 0;

  /// Whether a write had an effect is not reported: applications answer this unreliably.
  virtual void setSelectedTextRange(Utf16Range range) = 0;

  /// Replaces the selected text, as one step of the application's undo where that is possible.
  virtual void setSelectedText(std::string_view text) = 0;
};

/// The desktop's accessibility interface.
class Accessibility {
 public:
  Accessibility() = default;
  Accessibility(const Accessibility&) = delete;
  Accessibility& operator=(const Accessibility&) = delete;
  virtual ~Accessibility() = default;

  /// Whether this process may use accessibility. Cheap enough to ask every second.
  [[nodiscard]] virtual bool isProcessTrusted() const = 0;

  /// Asks the user for that permission, through `prompt` where the desktop has no question of its
  /// own; the answer shows in `isProcessTrusted` later.
  virtual void promptForTrust(TrustPrompt& prompt) = 0;

  /// The focused element of the focused application; null when there is none or it has no
  /// accessibility.
  [[nodiscard]] virtual std::shared_ptr<AccessibilityElement> focusedElement() const = 0;
};

}  // namespace mirvane
