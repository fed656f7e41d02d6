#include "analyse/report_log.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string>

#include "model/correction_event.h"
#include "text/characters.h"

namespace mirvane {
namespace {

bool isKind(std::string_view kind) {
  constexpr std::array kinds{correction_type::autoRepeat, correction_type::autoNearby,
                             correction_type::autoOther, correction_type::manual,
                             correction_type::cycle};
  return std::find(kinds.begin(), kinds.end(), kind) != kinds.end();
}

std::string entryStart(std::size_t number) {
  return "  #" + std::to_string(number) + "  [";
}

/// What the kind says of the lengths of the two words.
bool fitsKind(const LoggedCorrection& correction) {
  const auto before = text::characterCount(correction.original);
  const auto after = text::characterCount(correction.corrected);
  if (correction.kind == correction_type::autoRepeat) return after < before;
  if (correction.kind == correction_type::autoNearby) return after == before;
  if (correction.kind == correction_type::autoOther) return after > before;
  return true;
}

/// `words` is original, quotation mark, arrow, quotation mark, corrected; either may hold the same
/// signs. Of several readings the first that fits what was typed is taken.
void readWords(LoggedCorrection& correction, std::string_view words, std::string_view raw,
               const TextCursor& text) {
  constexpr std::string_view arrow = "\" → \"";
  auto at = words.find(arrow);
  if (at == std::string_view::npos) text.fail("expected an arrow between two words");
  const auto readAt = [&](std::size_t place) {
    correction.original = words.substr(0, place);
    correction.corrected = words.substr(place + arrow.size());
  };
  for (auto place = at; place != std::string_view::npos; place = words.find(arrow, place + 1)) {
    readAt(place);
    const bool wasTyped = raw.find(correction.original) != std::string_view::npos;
    if (wasTyped && fitsKind(correction)) return;
  }
  readAt(at);
}

std::optional<bool> verdictOf(TextCursor& tail) {
  const auto verdict = tail.until("  conf=");
  if (verdict == "yes") return true;
  if (verdict == "no") return false;
  if (verdict != "unknown") tail.fail("expected \"yes\", \"no\" or \"unknown\"");
  return std::nullopt;
}

void readTail(LoggedCorrection& correction, TextCursor tail) {
  if (!tail.skip("unknown")) correction.wordIndex = tail.wholeNumber();
  tail.expect("  expected=\"");
  const auto expected = tail.until("\"  correct=");
  const auto isRight = verdictOf(tail);
  correction.verdict = {.expected = isRight ? std::optional(std::string(expected)) : std::nullopt,
                        .isRight = isRight};
  if (!tail.skip("N/A")) correction.confidence = tail.decimal();
  tail.expect("  t=");
  tail.wholeNumber();
  tail.expect(":");
  tail.wholeNumber();
  tail.expect(":");
  tail.wholeNumber();
  if (!tail.rest().empty()) tail.fail("expected the end of the entry");
}

LoggedCorrection parseEntry(TextCursor entry, std::size_t number, std::string_view raw) {
  constexpr std::string_view tailStart = "\"  wordIndex=";
  entry.expect(entryStart(number));
  LoggedCorrection correction{.kind = std::string(entry.until("]  \""))};
  if (!isKind(correction.kind)) {
    entry.fail("unknown kind \"" + correction.kind.substr(0, correction.kind.find('\n')) + '"');
  }
  const auto tail = entry.rest().rfind(tailStart);
  if (tail == std::string_view::npos) entry.fail("expected \"wordIndex=\"");
  readWords(correction, entry.take(tail), raw, entry);
  entry.expect(tailStart);
  readTail(correction, entry);
  return correction;
}

/// The entry ends at the first line end after which the next thing follows and before which the
/// entry is whole.
LoggedCorrection takeEntry(TextCursor& text, std::size_t number, std::string_view raw,
                           const std::string& next) {
  std::optional<TextCursor::Mismatch> damage;
  const auto rest = text.rest();
  for (auto at = rest.find(next); at != std::string_view::npos; at = rest.find(next, at + 1)) {
    try {
      auto end = text;
      auto entry = parseEntry(text.beginning(at), number, raw);
      end.take(at + 1);
      text = end;
      return entry;
    } catch (const TextCursor::Mismatch& mismatch) {
      if (!damage) damage = mismatch;
    }
  }
  if (damage) throw TextCursor::Mismatch(*damage);
  text.fail("the log's entry " + std::to_string(number) + " is not whole");
}

}  // namespace

std::vector<LoggedCorrection> parseReportLog(TextCursor& text, std::size_t count,
                                             std::string_view raw, std::string_view next) {
  std::vector<LoggedCorrection> log;
  for (std::size_t number = 1; number <= count; ++number) {
    const bool isLast = number == count;
    log.push_back(takeEntry(text, number, raw,
                            '\n' + (isLast ? '\n' + std::string(next) : entryStart(number + 1))));
  }
  text.expect("\n");
  return log;
}

}  // namespace mirvane
