#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/accessibility.h"
#include "platform/simulated/editable_text.h"

namespace mirvane::simulated {

enum class ElementKind {
  multiLine,
  singleLine,
  password,  ///< one line; secure input is on while it has the focus; its text cannot be read from
             ///< outside
  readOnly,  ///< keys only move the caret; accessibility writes have no effect
  ignoresAccessibilityWrites,  ///< readable; writes of selection and text have no effect
  withoutAccessibility,        ///< keys work, accessibility does not know it
};

/// A text field of some application. The operations here are what its user does in it, so they
/// follow the kind: a read-only element is not edited. Positions are UTF-16 units.
class TextElement {
 public:
  /// Starts with the caret at the end of `text`.
  explicit TextElement(ElementKind kind, std::string_view text = {});

  [[nodiscard]] ElementKind kind() const { return kind_; }
  /// False for elements of one line, which drop line breaks.
  [[nodiscard]] bool hasLines() const;

  [[nodiscard]] std::string text() const;
  [[nodiscard]] std::int64_t length() const { return text_.size(); }
  /// The part of `range` that lies within the text.
  [[nodiscard]] std::u16string slice(Utf16Range range) const;

  [[nodiscard]] Utf16Range selection() const;
  /// The end of the selection that moves.
  [[nodiscard]] std::int64_t caret() const { return caret_; }

  /// Puts another text in, whatever the kind, as the application itself would; the caret goes to
  /// its end.
  void setText(std::string_view text);
  /// Clamped to the text; the caret is the end of the range.
  void select(Utf16Range range);
  void placeCaret(std::int64_t position) { select({position, 0}); }

  /// Replaces the selection and leaves the caret behind. "\r\n" and "\r" come in as "\n"; a text
  /// of nothing but line breaks has no effect in an element of one line.
  void insert(std::string_view text);
  /// Deletes the selection, or the character (grapheme cluster) before the caret.
  void deleteBackward();
  /// Deletes the selection, or the character behind the caret.
  void deleteForward();

  enum class Motion { character, line, page, lineBoundary };
  enum class Direction { backward, forward };
  /// Moves the caret; the selection follows when `extending`, else it ends. A selection collapses
  /// to its edge when the motion is by one character. By lines the column is kept.
  void move(Motion motion, Direction direction, bool extending);

 private:
  static constexpr int linesPerPage = 20;

  [[nodiscard]] bool acceptsEdits() const { return kind_ != ElementKind::readOnly; }
  [[nodiscard]] bool hasSelection() const { return anchor_ != caret_; }
  [[nodiscard]] std::u16string incoming(std::string_view text) const;
  [[nodiscard]] std::int64_t destination(Motion motion, Direction direction) const;
  [[nodiscard]] std::int64_t selectionEdge(Direction direction) const;
  void erase(std::int64_t from, std::int64_t to);
  void replaceRange(Utf16Range range, std::u16string_view replacement);

  ElementKind kind_;
  EditableText text_;
  std::int64_t anchor_ = 0;
  std::int64_t caret_ = 0;
  /// The column that vertical motion aims at, while nothing else has moved the caret.
  std::optional<std::int64_t> wantedColumn_;
};

}  // namespace mirvane::simulated
