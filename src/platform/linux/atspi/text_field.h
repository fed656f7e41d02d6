#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/linux/atspi/gobject_pointer.h"
#include "platform/linux/atspi/text_window.h"

namespace mirvane {

/// A text and what is selected in it.
struct FieldContent {
  TextWindow text;
  Utf16Range selection;

  /// Of spaces each kind stands for the other.
  [[nodiscard]] bool hasBeforeCaret(std::u16string_view expected) const;

  /// As much as was read of it; absent when that does not reach the caret.
  [[nodiscard]] std::optional<std::u16string> beforeCaret() const;

  /// Whether something embedded in the text, which U+FFFC stands for, follows the caret.
  [[nodiscard]] bool hasEmbeddedAtCaret() const;
};

/// An element of another application that may have the keyboard focus, or is embedded in one that
/// may. Used on the accessibility thread alone; every operation asks the application. Offsets are
/// the application's; text comes with plain spaces for no-break ones.
class TextField {
 public:
  struct Range {
    std::int64_t start = 0;
    std::int64_t end = 0;
  };

  explicit TextField(GObjectPointer<AtspiAccessible> accessible);

  /// The element embedded in the text at `offset`: it has the focus while this one has it. Null
  /// when there is none.
  [[nodiscard]] std::unique_ptr<TextField> embeddedAt(std::int64_t offset) const;

  /// Whether it is embedded within a line, where a word may go on before or behind it.
  [[nodiscard]] bool isInline() const;

  [[nodiscard]] bool isFocused() const;
  /// As of the last look; true as well when the application did not say. A field may become one
  /// for a password while it has the focus, and remains one when it shows the password.
  [[nodiscard]] bool isPassword() const { return isKnownPassword() || role_ == ATSPI_ROLE_INVALID; }
  void lookAtRole();
  /// It may have been one before it was looked at.
  void treatAsPassword() { wasPassword_ = true; }
  /// Whether it has been one, not only left that open.
  [[nodiscard]] bool isKnownPassword() const {
    return wasPassword_ || role_ == ATSPI_ROLE_PASSWORD_TEXT;
  }
  [[nodiscard]] AtspiAccessible* accessible() const { return accessible_.get(); }
  [[nodiscard]] bool isTerminal() const { return role_ == ATSPI_ROLE_TERMINAL; }

  /// Whether its text may be read, should the application answer.
  [[nodiscard]] bool hasText() const { return text_ != nullptr && !isPassword(); }

  /// Whether it claims to take editable text, and does so without harm: a line of Qt is set anew
  /// as a whole then, with the caret at its end.
  [[nodiscard]] bool isEditable() const { return editableText_ != nullptr && hasText(); }

  /// Whether its text is a single line, which may have a greatest length.
  [[nodiscard]] bool isLine() const { return isLine_; }
  [[nodiscard]] bool isLineOfQt() const { return isLine_ && unit_ == TextUnit::utf16; }

  /// In the application's unit; absent when it does not answer.
  [[nodiscard]] std::optional<std::int64_t> length() const;

  /// The text around the caret, however long the whole is, or around where it was when that began
  /// at `start`. Absent when the element has no text, hides it, or does not answer.
  [[nodiscard]] std::optional<FieldContent> read(std::optional<std::int64_t> start = {}) const;

  [[nodiscard]] std::optional<std::u16string> text(Range range) const;

  /// Whether characters stand before `end` that the application may count differently in different
  /// questions: those that take two UTF-16 units, in an application that counts code points. True
  /// as well when there are too many to look at.
  [[nodiscard]] bool hasPairsBefore(std::int64_t end) const;

  /// Whether the application holds this text there; absent when it does not answer.
  [[nodiscard]] std::optional<bool> holds(Range range, std::string_view text) const;

  /// Writes as editable text. Applications may ignore this, or do it late.
  void insert(std::int64_t offset, std::string_view text) const;
  void remove(Range range) const;

  /// Whether the application says that it does; absent when it does not answer: it may select
  /// later, then.
  [[nodiscard]] std::optional<bool> select(Range range) const;
  [[nodiscard]] bool isSelected(Range range) const;
  [[nodiscard]] bool hasSelection() const;
  [[nodiscard]] std::optional<std::int64_t> caret() const;
  void setCaret(std::int64_t offset) const;

  /// The length of `text` in the application's unit.
  [[nodiscard]] std::int64_t lengthOf(std::string_view text) const;

 private:
  TextField(AtspiAccessible* accessible, AtspiAccessible* focused, TextUnit unit);
  [[nodiscard]] std::optional<Range> selection() const;

  GObjectPointer<AtspiAccessible> accessible_;
  GObjectPointer<AtspiAccessible> focused_;  ///< the one that has the focus when this has it
  GObjectPointer<AtspiText> text_;
  GObjectPointer<AtspiEditableText> editableText_;
  AtspiRole role_;
  bool wasPassword_ = false;
  bool isLine_ = false;
  TextUnit unit_;
};

}  // namespace mirvane
