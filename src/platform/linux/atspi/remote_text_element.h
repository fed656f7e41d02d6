#pragma once

#include <memory>
#include <optional>

#include "platform/accessibility.h"
#include "platform/linux/atspi/accessibility_link.h"
#include "platform/linux/atspi/field_writer.h"

namespace mirvane {

/// A text field of another application, for the main thread. Reading is answered from what was last
/// seen, until something is written; a range keeps its meaning for the life of the element.
///
/// A selection that is not empty is only remembered, and made when the text for it comes: not every
/// application can select. Where that text was refused, or is still being typed, the caret stays.
class RemoteTextElement : public AccessibilityElement {
 public:
  struct Services {
    AccessibilityLink& link;
    FieldWriter& writer;
  };

  /// The field stands in the place's window.
  RemoteTextElement(const Services& services, std::shared_ptr<TextField> field,
                    FieldWriter::Place place, FieldContent content);

  /// Whether `textLength` and the selection are as they were when the element was made.
  [[nodiscard]] bool isFresh() const { return !isStale_; }

  [[nodiscard]] std::optional<std::int64_t> textLength() const override;
  [[nodiscard]] std::optional<std::u16string> text(Utf16Range range) const override;
  [[nodiscard]] std::optional<Utf16Range> selectedTextRange() const override;
  void setSelectedTextRange(Utf16Range range) override;
  void setSelectedText(std::string_view text) override;

 private:
  struct Held {
    std::int64_t location = 0;
    std::u16string text;
  };

  /// False when the application does not answer.
  bool refresh() const;
  [[nodiscard]] std::optional<std::u16string> expectedText(Utf16Range range) const;
  [[nodiscard]] TextField::Range inField(Utf16Range range) const;

  Services services_;
  std::shared_ptr<TextField> field_;
  FieldWriter::Place place_;
  mutable FieldContent content_;
  mutable bool isStale_ = false;
  std::optional<Utf16Range> selection_;
  /// What the field held where it was to be written last, or has held since. What it is seen to
  /// hold there later may be somebody else's.
  std::optional<Held> held_;
  bool wasRefused_ = false;
};

}  // namespace mirvane
