#include "platform/linux/atspi/field_writer.h"

#include <algorithm>
#include <chrono>
#include <iterator>
#include <thread>

#include "text/characters.h"
#include "text/letter_case.h"
#include "text/utf16.h"

namespace mirvane {
namespace {

/// Applications that confirm a selection do so within a few ms; the others never do.
constexpr std::chrono::milliseconds longestSelection{150};
/// Firefox loses what it is asked while it is still at work on the key before: it is asked again.
constexpr std::chrono::milliseconds selectAgain{30};
constexpr std::chrono::milliseconds longestTyping{150};
/// A selection asked for may take so long to come, and must not come over keys given back.
constexpr std::chrono::milliseconds timeForSelection{300};
constexpr std::chrono::milliseconds pollInterval{2};
/// The caret stands behind the word and what ended it, not farther.
constexpr std::int64_t longestTail = 8;
/// An application that hangs in the middle of a replacement is asked again, for half a minute.
constexpr std::chrono::milliseconds attemptInterval{100};
constexpr std::chrono::seconds longestPatience{30};

using namespace std::chrono_literals;
using Clock = FieldWriter::Clock;

template <typename Condition>
bool await(Condition condition, std::chrono::milliseconds longestWait) {
  const auto deadline = Clock::now() + longestWait;
  while (!condition()) {
    if (Clock::now() > deadline) return false;
    std::this_thread::sleep_for(pollInterval);
  }
  return true;
}

/// Whether the participant's keys still wait.
auto isHeld(const DesktopInput::TimeLeft& timeLeft) {
  return [&timeLeft] { return timeLeft() > 0ms; };
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

/// Whether as many Backspaces as the text has UTF-16 units delete just that: each sign is one, and
/// the part behind the word is what was typed, with nothing that the editor put there itself.
bool isTakenBackByKeys(const std::u16string& text, const std::u16string& tail) {
  return tail.size() == 1 && tail != u"\n" && tail != u"\t" &&
         text::characterCount(text::toUtf8(text)) == text.size();
}

/// What was typed of the text behind a word: behind a line end the editor has put the rest itself,
/// such as an indent, and will again.
std::u16string typedPart(const std::u16string& tail) {
  const auto lineEnd = tail.find(u'\n');
  return lineEnd == std::u16string::npos ? tail : tail.substr(0, lineEnd + 1);
}

/// Whether something stands there that could not be typed again.
bool holdsEmbedded(const std::u16string& text) {
  return text.find(u'\uFFFC') != std::u16string::npos;
}

/// Whether this is what a field has left of an inserted text: one with a greatest length cuts it
/// off, one for capitals writes capitals.
bool isRemainderOf(const std::u16string& remainder, const std::string& inserted) {
  return text::lowercased(inserted).starts_with(text::lowercased(text::toUtf8(remainder)));
}

}  // namespace

bool FieldWriter::replace(const std::shared_ptr<TextField>& field, const Place& place,
                          const Replacement& replacement) {
  if (field->text(replacement.range) != replacement.replaced) return false;
  if (holdsEmbedded(replacement.replaced)) return false;
  const auto outcome = replaceEditable(*field, replacement);
  if (outcome == Outcome::unknown) finishLater(field, replacement, Clock::now() + longestPatience);
  if (outcome != Outcome::unchanged) return outcome == Outcome::done;
  if (!field->isFocused()) return false;
  return typist_.canType() && replaceByTyping(*field, place, replacement) == Outcome::done;
}

FieldWriter::Outcome FieldWriter::replaceEditable(const TextField& field,
                                                  const Replacement& replacement) {
  if (!field.isEditable()) return Outcome::unchanged;
  const auto length = field.length(), caret = field.caret();
  if (!length || !caret) return Outcome::unchanged;
  // First the new, behind the old: an application that ignores the one must not lose the other.
  field.insert(replacement.range.end, replacement.text);
  const auto isInserted = field.holds(insertedRange(field, replacement), replacement.text);
  if (!isInserted) return Outcome::unknown;
  if (!*isInserted) return takeBackRemainder(field, replacement, {*length, *caret});
  field.remove(replacement.range);
  const auto isDone = field.holds(replacedRange(field, replacement), replacement.text);
  return isDone.value_or(false) ? Outcome::done : Outcome::unknown;
}

FieldWriter::Outcome FieldWriter::takeBackRemainder(const TextField& field,
                                                    const Replacement& replacement,
                                                    const State& before) {
  const auto length = field.length();
  if (!length) return Outcome::unknown;
  const auto& range = replacement.range;
  const TextField::Range added{range.end,
                               range.end + std::max<std::int64_t>(0, *length - before.length)};
  if (added.end > added.start) {
    const auto remainder = field.text(added);
    if (!remainder) return Outcome::unknown;
    // What it is nobody knows: it stays, and nothing is built on it.
    if (!isRemainderOf(*remainder, replacement.text)) return Outcome::unknown;
    field.remove(added);
    if (field.length() != before.length) return Outcome::unknown;
  }
  // Some move it along even if they insert nothing.
  field.setCaret(before.caret);
  const auto newLength = field.lengthOf(replacement.text);
  const bool isCut = field.isLine() && added.end - added.start < newLength;
  return isCut && newLength > range.end - range.start ? Outcome::refused : Outcome::unchanged;
}

/// The application hung in the middle: once it answers, either nothing has reached it or the old
/// text still has to go.
void FieldWriter::finishLater(const std::shared_ptr<TextField>& field,
                              const Replacement& replacement, Clock::time_point deadline) {
  if (Clock::now() > deadline) return;
  thread_.postLater(
      [this, field, replacement, deadline] {
        // Each question holds up the others for a moment.
        const auto old = thread_.isWaitedFor() ? std::nullopt : field->text(replacement.range);
        const auto isInserted =
            old ? field->holds(insertedRange(*field, replacement), replacement.text) : std::nullopt;
        if (!isInserted) {
          finishLater(field, replacement, deadline);
        } else if (*isInserted && old == replacement.replaced) {
          field->remove(replacement.range);
        }
      },
      attemptInterval);
}

FieldWriter::Outcome FieldWriter::replaceByTyping(const TextField& field, const Place& place,
                                                  const Replacement& replacement) {
  auto outcome = Outcome::unchanged;
  input_.withKeysHeldBack(place.hold, [&](const DesktopInput::TimeLeft& timeLeft) {
    const auto typed = keysFor(field, replacement);
    if (!typed) return;
    // Keys arrive in order, however late the application deals with them; a selection does not.
    const bool isTyped = typed->isByBackspaces ? typeAnew(place, *typed, timeLeft)
                                               : typeOver(field, place, *typed, timeLeft);
    if (!isTyped) return;
    const bool isDone = await([&] { return isShown(field, *typed); }, longestTyping);
    outcome = isDone ? Outcome::done : Outcome::unknown;
    if (!isDone && field.isLineOfQt()) takeBackCut(field, place, *typed, timeLeft);
  });
  return outcome;
}

/// Absent where no keys can replace it.
std::optional<FieldWriter::Typed> FieldWriter::keysFor(const TextField& field,
                                                       const Replacement& replacement) {
  // Up to the caret, so that it ends where it was: what the participant types next goes there.
  const auto caret = field.caret();
  const auto& range = replacement.range;
  if (!caret || *caret < range.end || *caret - range.end > longestTail) return std::nullopt;
  const auto old = field.text({range.start, *caret});
  if (!old || !old->starts_with(replacement.replaced) || holdsEmbedded(*old)) return std::nullopt;
  // The first Backspace would delete that, the rest of a word that the program proposes.
  if (field.hasSelection()) return std::nullopt;
  const auto tail = old->substr(replacement.replaced.size());
  return Typed{{range.start, *caret},
               *old,
               text::toUtf16(replacement.text) + typedPart(tail),
               isTakenBackByKeys(*old, tail)};
}

bool FieldWriter::typeAnew(const Place& place, const Typed& typed,
                           const DesktopInput::TimeLeft& timeLeft) {
  // What both begin with stays: fewer keys, and no moment before the end looks like it.
  const auto [oldEnd, newEnd] =
      std::mismatch(typed.old.begin(), typed.old.end(), typed.text.begin(), typed.text.end());
  return typist_.type(place.window, std::distance(oldEnd, typed.old.end()),
                      text::toUtf8(std::u16string(newEnd, typed.text.end())), isHeld(timeLeft));
}

/// Whether all keys have had their effect: nobody may move the caret before.
bool FieldWriter::isShown(const TextField& field, const Typed& typed) {
  const auto text = text::toUtf8(typed.text);
  const TextField::Range whole{typed.range.start, typed.range.start + field.lengthOf(text)};
  const auto caret = field.caret();
  // Behind a line end an editor may have put something itself.
  const bool isBehind =
      caret &&
      (typed.isByBackspaces ? *caret == whole.end : *caret >= whole.end && !field.hasSelection());
  return isBehind && field.holds(whole, text).value_or(false);
}

/// A line with a greatest length cuts the end off. Qt alone deals with keys before it answers: what
/// it has not shown by now does not come.
void FieldWriter::takeBackCut(const TextField& field, const Place& place, const Typed& typed,
                              const DesktopInput::TimeLeft& timeLeft) {
  const auto caret = field.caret();
  const auto standing = caret ? field.text({typed.range.start, *caret}) : std::nullopt;
  if (!standing || !typed.text.starts_with(*standing)) return;
  typeAnew(place, {typed.range, *standing, typed.old, true}, timeLeft);
}

bool FieldWriter::typeOver(const TextField& field, const Place& place, const Typed& typed,
                           const DesktopInput::TimeLeft& timeLeft) {
  const auto& range = typed.range;
  // Some count the text in one unit and select in another.
  const bool isCountedAlike = field.lengthOf(text::toUtf8(typed.old)) == range.end - range.start &&
                              !field.hasPairsBefore(range.end);
  const auto isTime = [&] { return timeLeft() >= timeForSelection; };
  if (!isCountedAlike || !isTime() || field.select(range) == false) return false;
  const auto isSelected = [&] { return field.isSelected(range); };
  const auto deadline = Clock::now() + longestSelection;
  bool isMade = await(isSelected, selectAgain);
  while (!isMade && Clock::now() < deadline && isTime() && field.select(range).value_or(false)) {
    isMade = await(isSelected, selectAgain);
  }
  // A key that was not held may have replaced it, and other text be selected now.
  const bool isWhole = isMade && field.text(range) == typed.old;
  const bool isTyped =
      isWhole && typist_.type(place.window, 0, text::toUtf8(typed.text), isHeld(timeLeft));
  // Also a selection that is not known to have been made: it may come late.
  if (!isTyped && timeLeft() > 0ms) field.setCaret(range.end);
  return isTyped;
}

bool FieldWriter::type(const Place& place, std::int64_t deleteCount, std::string_view text,
                       const std::function<bool()>& mayType) {
  bool isTyped = false;
  input_.withKeysHeldBack(place.hold, [&](const DesktopInput::TimeLeft& timeLeft) {
    isTyped = mayType() && typist_.type(place.window, deleteCount, text, isHeld(timeLeft));
  });
  return isTyped;
}

}  // namespace mirvane
