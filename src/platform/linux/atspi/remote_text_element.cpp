#include "platform/linux/atspi/remote_text_element.h"

#include <utility>

#include "text/utf16.h"

namespace mirvane {

RemoteTextElement::RemoteTextElement(const Services& services, std::shared_ptr<TextField> field,
                                     FieldWriter::Place place, FieldContent content)
    : services_(services), field_(std::move(field)), place_(place), content_(std::move(content)) {}

bool RemoteTextElement::refresh() const {
  if (!isStale_) return true;
  auto content = services_.link.ask<std::optional<FieldContent>>(
      [field = field_, start = content_.text.start()] { return field->read(start); });
  if (!content || !*content) return false;
  content_ = std::move(**content);
  isStale_ = false;
  return true;
}

TextField::Range RemoteTextElement::inField(Utf16Range range) const {
  return {content_.text.toApplication(range.location),
          content_.text.toApplication(range.location + range.length)};
}

std::optional<std::int64_t> RemoteTextElement::textLength() const {
  if (!refresh()) return std::nullopt;
  return content_.text.utf16Length();
}

std::optional<std::u16string> RemoteTextElement::text(Utf16Range range) const {
  if (!refresh()) return std::nullopt;
  if (auto text = content_.text.text(range)) return text;
  auto answer = services_.link.ask<std::optional<std::u16string>>(
      [field = field_, inside = inField(range)] { return field->text(inside); });
  // Text far from the caret may count differently: it must still have the length asked for.
  if (!answer || !*answer) return std::nullopt;
  (*answer)->resize(static_cast<std::size_t>(range.length), u'\uFFFC');
  return *answer;
}

std::optional<Utf16Range> RemoteTextElement::selectedTextRange() const {
  if (!refresh()) return std::nullopt;
  return content_.selection;
}

void RemoteTextElement::setSelectedTextRange(Utf16Range range) {
  selection_ = range;
  if (range.length > 0 || wasRefused_ || !refresh()) return;
  const auto caret = inField(range).start;
  isStale_ = true;
  (void)services_.link.ask<bool>([field = field_, caret] {
    // Never back over what has been typed since.
    if (field->caret().value_or(caret) < caret) field->setCaret(caret);
    return true;
  });
}

std::optional<std::u16string> RemoteTextElement::expectedText(Utf16Range range) const {
  if (held_ && held_->location == range.location) return held_->text;
  return content_.text.text(range);
}

void RemoteTextElement::setSelectedText(std::string_view text) {
  wasRefused_ = true;
  if (!selection_) return;
  const auto replaced = expectedText(*selection_);
  if (!replaced) return;
  held_ = Held{selection_->location, *replaced};
  if (!services_.link.isOpen()) return;
  const auto length = static_cast<std::int64_t>(replaced->size());
  const FieldWriter::Replacement replacement{inField({selection_->location, length}), *replaced,
                                             std::string(text)};
  isStale_ = true;
  const auto isDone = services_.link.ask<bool>(
      [field = field_, place = place_, replacement, &writer = services_.writer] {
        return writer.replace(field, place, replacement);
      });
  wasRefused_ = !isDone.value_or(false);
  // What takes longer to answer is mostly done: the field is compared before it is written again.
  if (isDone.value_or(true)) held_->text = text::toUtf16(text);
}

}  // namespace mirvane
