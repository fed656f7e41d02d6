#include "platform/linux/atspi/field_writer.h"

#include <chrono>
#include <thread>

#include "text/utf16.h"

namespace mirvane {
namespace {

/// Applications that confirm a selection do so within a few ms; the others never do.
constexpr std::chrono::milliseconds longestSelection{150};
/// Firefox loses what it is asked while it is still at work on the key before: it is asked again.
constexpr std::chrono::milliseconds selectAgain{30};
constexpr std::chrono::milliseconds longestTyping{150};
constexpr std::chrono::milliseconds pollInterval{2};
/// The caret stands behind the word and what ended it, not farther.
constexpr std::int64_t longestTail = 8;
/// An application that hangs in the middle of a replacement is asked again, for half a minute.
constexpr std::chrono::milliseconds firstDelay{100};
constexpr std::chrono::milliseconds longestPatience{30'000};

using Clock = std::chrono::steady_clock;

template <typename Condition>
bool await(Condition condition, std::chrono::milliseconds longestWait) {
  const auto deadline = Clock::now() + longestWait;
  while (!condition()) {
    if (Clock::now() > deadline) return false;
    std::this_thread::sleep_for(pollInterval);
  }
  return true;
}

using Replacement = FieldWriter::Replacement;

/// Where the new text stands while the old one is still before it.
TextField::Range insertedRange(const TextField& field, const Replacement& replacement) {
  return {replacement.range.end, replacement.range.end + field.lengthOf(replacement.text)};
}

/// Where the new text stands in the end.
TextField::Range replacedRange(const TextField& field, const Replacement& replacement) {
  return {replacement.range.start, replacement.range.start + field.lengthOf(replacement.text)};
}

/// Whether something stands there that could not be typed again.
bool holdsEmbedded(const std::u16string& text) {
  return text.find(u'\uFFFC') != std::u16string::npos;
}

bool awaitText(const TextField& field, const Replacement& replacement) {
  const auto range = replacedRange(field, replacement);
  return await([&] { return field.holds(range, replacement.text).value_or(false); }, longestTyping);
}

}  // namespace

bool FieldWriter::replace(const std::shared_ptr<TextField>& field, const Place& place,
                          const Replacement& replacement) {
  if (field->text(replacement.range) != replacement.replaced) return false;
  if (holdsEmbedded(replacement.replaced)) return false;
  const auto outcome = replaceEditable(*field, replacement);
  if (outcome == Outcome::unknown) finishLater(field, replacement, firstDelay, longestPatience);
  if (outcome != Outcome::unchanged) return outcome == Outcome::done;
  if (!field->isFocused()) return false;
  return typist_.canType() && replaceByTyping(*field, place, replacement) == Outcome::done;
}

FieldWriter::Outcome FieldWriter::replaceEditable(const TextField& field,
                                                  const Replacement& replacement) {
  if (!field.isEditable()) return Outcome::unchanged;
  // First the new, behind the old: an application that ignores the one must not lose the other.
  field.insert(replacement.range.end, replacement.text);
  const auto isInserted = field.holds(insertedRange(field, replacement), replacement.text);
  if (!isInserted) return Outcome::unknown;
  if (!*isInserted) return Outcome::unchanged;
  field.remove(replacement.range);
  const auto isDone = field.holds(replacedRange(field, replacement), replacement.text);
  return isDone.value_or(false) ? Outcome::done : Outcome::unknown;
}

/// The application hung in the middle: once it answers, either nothing has reached it or the old
/// text still has to go. Asked ever more rarely, as each question holds up the others for a moment.
void FieldWriter::finishLater(const std::shared_ptr<TextField>& field,
                              const Replacement& replacement, std::chrono::milliseconds delay,
                              std::chrono::milliseconds patience) {
  if (delay > patience) return;
  thread_.postLater(
      [this, field, replacement, delay, patience] {
        const auto old = field->text(replacement.range);
        const auto isInserted =
            old ? field->holds(insertedRange(*field, replacement), replacement.text) : std::nullopt;
        if (!isInserted) {
          finishLater(field, replacement, 2 * delay, patience - delay);
        } else if (*isInserted && old == replacement.replaced) {
          field->remove(replacement.range);
        }
      },
      delay);
}

FieldWriter::Outcome FieldWriter::replaceByTyping(const TextField& field, const Place& place,
                                                  const Replacement& replacement) {
  auto outcome = Outcome::unchanged;
  input_.withKeysHeldBack(place.hold, [&](const DesktopInput::IsHeld& isHeld) {
    // Up to the caret, so that it ends where it was: what the participant types next goes there.
    const auto caret = field.caret();
    const auto& range = replacement.range;
    if (!caret || *caret < range.end || *caret - range.end > longestTail) return;
    const auto old = field.text({range.start, *caret});
    if (!old || !old->starts_with(replacement.replaced) || holdsEmbedded(*old)) return;
    const auto text = replacement.text + text::toUtf8(old->substr(replacement.replaced.size()));
    const auto selection = select(field, {range.start, *caret}, *old);
    const auto isSelected = selection == Selection::made;
    const auto deleteCount = isSelected ? (text.empty() ? 1 : 0) : text::scalarCount(*old);
    // Backspaces behind a selection that comes late would delete what stands before the word.
    const bool isTyped = selection != Selection::unknown && isHeld() &&
                         typist_.type(place.window, deleteCount, text);
    if (isTyped) {
      outcome = awaitText(field, replacement) ? Outcome::done : Outcome::unknown;
    } else if (selection != Selection::impossible) {
      field.setCaret(*caret);
    }
  });
  return outcome;
}

FieldWriter::Selection FieldWriter::select(const TextField& field, TextField::Range range,
                                           const std::u16string& text) {
  // Some count the text in one unit and select in another.
  const bool isCountedAlike = field.lengthOf(text::toUtf8(text)) == range.end - range.start &&
                              !field.hasPairsBefore(range.end);
  if (!isCountedAlike) return Selection::impossible;
  const auto deadline = Clock::now() + longestSelection;
  auto answer = field.select(range);
  if (answer == false) return Selection::impossible;
  const auto isSelected = [&] { return field.isSelected(range); };
  while (answer.value_or(false) && !await(isSelected, selectAgain)) {
    if (Clock::now() > deadline) return Selection::unknown;
    answer = field.select(range);
  }
  return answer.value_or(false) ? Selection::made : Selection::unknown;
}

bool FieldWriter::type(const Place& place, std::int64_t deleteCount, std::string_view text,
                       const std::function<bool()>& mayType) {
  bool isTyped = false;
  input_.withKeysHeldBack(place.hold, [&](const DesktopInput::IsHeld& isHeld) {
    isTyped = mayType() && isHeld() && typist_.type(place.window, deleteCount, text);
  });
  return isTyped;
}

}  // namespace mirvane
