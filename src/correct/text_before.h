#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/accessibility.h"

namespace mirvane {

/// The text of an element before a position, read backwards in growing pieces: whoever looks for
/// something close to the position reads no more than that.
class TextBefore {
 public:
  /// `end` lies within the element's text. The element must outlive this object.
  TextBefore(const AccessibilityElement& element, std::int64_t end);

  /// What has been read so far: the text from `start()` to the end.
  [[nodiscard]] std::u16string_view text() const { return text_; }
  [[nodiscard]] std::int64_t start() const { return start_; }

  /// The element stopped answering: what was read is not to be trusted.
  [[nodiscard]] bool hasFailed() const { return hasFailed_; }

  /// Reads at least as much again. False when there is no more or the element does not answer.
  bool readMore();

 private:
  const AccessibilityElement& element_;
  std::int64_t start_;
  std::u16string text_;
  bool hasFailed_ = false;
};

}  // namespace mirvane
