#pragma once

#include <chrono>
#include <memory>
#include <optional>
#include <unordered_map>
#include <utility>

#include "platform/linux/atspi/accessibility_thread.h"
#include "platform/linux/atspi/password_fields.h"
#include "platform/linux/atspi/text_field.h"

namespace mirvane {

/// The element whose own text has the caret, and what stands in it; absent when it cannot be read.
struct TextAtCaret {
  std::shared_ptr<TextField> field;
  std::optional<FieldContent> content;
};

/// Finds the element of another application that has the keyboard focus. Used on the accessibility
/// thread alone.
class FocusFinder {
 public:
  /// Fields that others still hold are let go of on the thread.
  explicit FocusFinder(AccessibilityThread& thread) : thread_(thread) {}

  /// The focused element of the process; null when it has none, none can be reached, or it does
  /// not answer. What was found is asked first the next time.
  [[nodiscard]] std::shared_ptr<TextField> find(int processId);

  /// Reads what has the caret: the focused `field`, or where that holds its paragraphs as embedded
  /// elements, the one of them at the caret. Nothing of elements within a line, such as links:
  /// words may go on around them.
  [[nodiscard]] TextAtCaret readAtCaret(std::shared_ptr<TextField> field) {
    return readAtCaret(std::move(field), mostLevels);
  }

  /// Whether the process has just let a question go unanswered, or it could not be found out
  /// whether it takes part in accessibility.
  [[nodiscard]] bool isUnanswered(int processId) const;

  /// Remembers that an element takes a password.
  void notePassword(AtspiAccessible* accessible);
  /// Whether it is one of those, or may have come in the place of one.
  [[nodiscard]] bool isKnownPassword(AtspiAccessible* accessible) const;

  /// Forgets everything.
  void clear();

  /// The process's `applicationName`, responsive or not; null when it takes no part in
  /// accessibility.
  [[nodiscard]] const char* nameOf(int processId);

  /// An element has announced that it has the focus now: the next search begins there.
  void noteFocused(AtspiAccessible* accessible);
  /// The same for one in front whose text has changed. Its application does answer.
  void noteChanged(AtspiAccessible* accessible);

 private:
  /// Lists in quotations in tables: more than anybody writes.
  static constexpr int mostLevels = 50;

  /// An application that has just let a question go unanswered is not asked for a moment.
  struct Pause {
    int processId = 0;
    std::chrono::steady_clock::time_point until{};
  };

  [[nodiscard]] std::shared_ptr<TextField> findAnew(int processId);
  [[nodiscard]] bool mayTrustLast() const;
  [[nodiscard]] AtspiAccessible* applicationOf(int processId);
  [[nodiscard]] std::shared_ptr<TextField> search(AtspiAccessible* application);

  [[nodiscard]] std::shared_ptr<TextField> makeField(GObjectPointer<AtspiAccessible> accessible);
  [[nodiscard]] TextAtCaret readAtCaret(std::shared_ptr<TextField> field, int levelsBelow);
  [[nodiscard]] std::shared_ptr<TextField> share(std::unique_ptr<TextField> field);

  AccessibilityThread& thread_;
  std::unordered_map<int, GObjectPointer<AtspiAccessible>> applications_;
  std::shared_ptr<TextField> last_;
  PasswordFields passwords_;
  int lastProcessId_ = 0;
  std::chrono::steady_clock::time_point searchedAt_{};
  Pause pause_;
  GObjectPointer<AtspiAccessible> focused_;
  GObjectPointer<AtspiAccessible> changed_;
};

}  // namespace mirvane
