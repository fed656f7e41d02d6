#include "platform/linux/atspi/text_field.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

#include "platform/linux/atspi/accessible_state.h"
#include "platform/linux/atspi/application_name.h"
#include "platform/linux/atspi/toolkit_name.h"
#include "platform/linux/field_text.h"
#include "text/utf16.h"

namespace mirvane {
namespace {

/// How much is read on both sides of the caret, the application's units: far more than a word and
/// the words around it.
constexpr std::int64_t reachBefore = 2048;
constexpr std::int64_t reachAfter = 1024;

/// Qt counts as it stores its text; the others count code points, as the interface asks.
TextUnit unitOf(AtspiAccessible* accessible) {
  const auto isQt = toolkitName(applicationName(accessible)) == "Qt";
  return isQt ? TextUnit::utf16 : TextUnit::codePoint;
}

}  // namespace

bool FieldContent::hasBeforeCaret(std::u16string_view expected) const {
  const auto length = static_cast<std::int64_t>(expected.size());
  return text.text({selection.location - length, length}) ==
         withPlainSpaces(std::u16string(expected));
}

std::optional<std::u16string> FieldContent::beforeCaret() const {
  return text.text({text.start(), selection.location - text.start()});
}

bool FieldContent::hasEmbeddedAtCaret() const {
  return text.text({selection.location, 1}) == u"\uFFFC";
}

TextField::TextField(GObjectPointer<AtspiAccessible> accessible)
    : TextField(accessible.get(), accessible.get(), unitOf(accessible.get())) {}

TextField::TextField(AtspiAccessible* accessible, AtspiAccessible* focused, TextUnit unit)
    : accessible_(newReference(accessible)),
      focused_(newReference(focused)),
      text_(atspi_accessible_get_text_iface(accessible)),
      role_(atspi_accessible_get_role(accessible, nullptr)),
      unit_(unit) {
  const auto states = statesOf(accessible);
  // Qt says of several lines alone how many they are.
  isLine_ = hasState(states, ATSPI_STATE_SINGLE_LINE) ||
            (unit_ == TextUnit::utf16 && !hasState(states, ATSPI_STATE_MULTI_LINE));
  if (hasState(states, ATSPI_STATE_EDITABLE) && !isLineOfQt()) {
    editableText_.reset(atspi_accessible_get_editable_text_iface(accessible_.get()));
  }
}

void TextField::lookAtRole() {
  wasPassword_ = isKnownPassword();
  role_ = atspi_accessible_get_role(accessible_.get(), nullptr);
}

std::unique_ptr<TextField> TextField::embeddedAt(std::int64_t offset) const {
  const GObjectPointer<AtspiHypertext> links(
      atspi_accessible_get_hypertext_iface(accessible_.get()));
  if (links == nullptr) return nullptr;
  const int index = atspi_hypertext_get_link_index(links.get(), static_cast<gint>(offset), nullptr);
  const GObjectPointer<AtspiHyperlink> link(
      index >= 0 ? atspi_hypertext_get_link(links.get(), index, nullptr) : nullptr);
  if (link == nullptr) return nullptr;
  const GObjectPointer<AtspiAccessible> element(atspi_hyperlink_get_object(link.get(), 0, nullptr));
  if (element == nullptr) return nullptr;
  return std::unique_ptr<TextField>(new TextField(element.get(), focused_.get(), unit_));
}

bool TextField::isInline() const {
  const std::unique_ptr<GHashTable, GHashTableUnref> attributes(
      atspi_accessible_get_attributes(accessible_.get(), nullptr));
  if (attributes == nullptr) return false;
  const auto* const display =
      static_cast<const gchar*>(g_hash_table_lookup(attributes.get(), "display"));
  return display != nullptr && std::string_view(display).starts_with("inline");
}

bool TextField::isFocused() const {
  return hasState(focused_.get(), ATSPI_STATE_FOCUSED);
}

std::optional<std::int64_t> TextField::caret() const {
  const int offset = hasText() ? atspi_text_get_caret_offset(text_.get(), nullptr) : -1;
  if (offset < 0) return std::nullopt;
  return offset;
}

std::optional<std::int64_t> TextField::length() const {
  if (!hasText()) return std::nullopt;
  GError* error = nullptr;
  const int length = atspi_text_get_character_count(text_.get(), &error);
  if (error == nullptr) return length;
  g_error_free(error);
  return std::nullopt;
}

std::optional<TextField::Range> TextField::selection() const {
  if (atspi_text_get_n_selections(text_.get(), nullptr) < 1) return std::nullopt;
  const GPointer<AtspiRange> range(atspi_text_get_selection(text_.get(), 0, nullptr));
  if (range == nullptr || range->start_offset < 0) return std::nullopt;
  return Range{std::min(range->start_offset, range->end_offset),
               std::max(range->start_offset, range->end_offset)};
}

std::optional<std::u16string> TextField::text(Range range) const {
  if (!hasText()) return std::nullopt;
  const GPointer<gchar> text(atspi_text_get_text(text_.get(), static_cast<gint>(range.start),
                                                 static_cast<gint>(range.end), nullptr));
  // libatspi gives an empty text for no answer.
  if (text == nullptr || (*text == '\0' && range.end > range.start)) return std::nullopt;
  return withPlainSpaces(text::toUtf16(text.get()));
}

bool TextField::hasPairsBefore(std::int64_t end) const {
  if (unit_ == TextUnit::utf16) return false;
  if (end > reachBefore) return true;
  const auto before = text({0, end});
  return !before || static_cast<std::int64_t>(before->size()) != end;
}

std::optional<FieldContent> TextField::read(std::optional<std::int64_t> wantedStart) const {
  const auto caretOffset = caret();
  if (!caretOffset) return std::nullopt;
  const auto length = this->length();
  if (!length) return std::nullopt;
  const auto selected = selection().value_or(Range{*caretOffset, *caretOffset});
  auto start = std::max<std::int64_t>(0, selected.start - reachBefore);
  auto end = selected.end + reachAfter;
  if (wantedStart) {
    start = std::min(*wantedStart, *length);
    end = std::clamp(selected.end, start, start + 2 * reachBefore) + reachAfter;
  }
  auto around = text({start, std::min(*length, end)});
  if (!around) return std::nullopt;
  TextWindow window(unit_, *length, start, std::move(*around));
  const auto first = window.toUtf16(selected.start), last = window.toUtf16(selected.end);
  return FieldContent{std::move(window), {first, last - first}};
}

std::int64_t TextField::lengthOf(std::string_view text) const {
  return unit_ == TextUnit::utf16 ? text::utf16Length(text)
                                  : text::scalarCount(text::toUtf16(text));
}

std::optional<bool> TextField::holds(Range range, std::string_view expected) const {
  if (const auto found = text(range)) return text::toUtf8(*found) == expected;
  // Some give nothing at all of a range that is partly there.
  const auto length = this->length();
  // It was not empty before: libatspi gives that for no answer too.
  if (!length || *length == 0 || *length >= range.end) return std::nullopt;
  return false;
}

void TextField::insert(std::int64_t offset, std::string_view text) const {
  if (editableText_ == nullptr || text.empty()) return;
  // The interface asks for the length of the text to insert; toolkits read it in units of their
  // own: bytes in GTK, their characters in Qt.
  const auto length =
      unit_ == TextUnit::utf16 ? text::utf16Length(text) : static_cast<std::int64_t>(text.size());
  atspi_editable_text_insert_text(editableText_.get(), static_cast<gint>(offset),
                                  std::string(text).c_str(), static_cast<gint>(length), nullptr);
}

void TextField::remove(Range range) const {
  if (editableText_ == nullptr) return;
  atspi_editable_text_delete_text(editableText_.get(), static_cast<gint>(range.start),
                                  static_cast<gint>(range.end), nullptr);
}

std::optional<bool> TextField::select(Range range) const {
  if (!hasText()) return false;
  const auto start = static_cast<gint>(range.start), end = static_cast<gint>(range.end);
  GError* error = nullptr;
  const auto isSelected = atspi_text_get_n_selections(text_.get(), nullptr) > 0
                              ? atspi_text_set_selection(text_.get(), 0, start, end, &error)
                              : atspi_text_add_selection(text_.get(), start, end, &error);
  if (error == nullptr) return isSelected != FALSE;
  g_error_free(error);
  return std::nullopt;
}

bool TextField::isSelected(Range range) const {
  if (!hasText()) return false;
  const auto selected = selection();
  return selected && selected->start == range.start && selected->end == range.end;
}

bool TextField::hasSelection() const {
  const auto selected = selection();
  return selected && selected->start < selected->end;
}

void TextField::setCaret(std::int64_t offset) const {
  if (!hasText()) return;
  atspi_text_set_caret_offset(text_.get(), static_cast<gint>(offset), nullptr);
}

}  // namespace mirvane
