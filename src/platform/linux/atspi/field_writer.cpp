#include "platform/linux/atspi/field_writer.h"

#include <chrono>
#include <thread>

#include "text/utf16.h"

namespace mirvane {
namespace {

/// Applications that confirm a selection do so within a few ms; the others never do.
constexpr std::chrono::milliseconds longestSelection{60};
constexpr std::chrono::milliseconds longestTyping{150};
constexpr std::chrono::milliseconds pollInterval{2};
/// The caret stands behind the word and what ended it, not farther.
constexpr std::int64_t longestTail = 8;

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

bool awaitText(const TextField& field, const FieldWriter::Replacement& replacement) {
  const auto start = replacement.range.start;
  const TextField::Range range{start, start + field.lengthOf(replacement.text)};
  const auto expected = text::toUtf16(replacement.text);
  return await([&] { return field.text(range) == expected; }, longestTyping);
}

}  // namespace

bool FieldWriter::replace(const TextField& field, std::uint64_t window,
                          const Replacement& replacement) {
  if (field.text(replacement.range) != replacement.replaced) return false;
  if (field.replace(replacement.range, replacement.text)) return true;
  if (!field.isFocused() || field.text(replacement.range) != replacement.replaced) return false;
  bool isDone = false;
  input_.withKeysHeldBack([&] {
    isDone =
        replaceSelected(field, window, replacement) || replaceBackwards(field, window, replacement);
  });
  return isDone;
}

bool FieldWriter::replaceSelected(const TextField& field, std::uint64_t window,
                                  const Replacement& replacement) {
  if (!typist_.canType() || !field.select(replacement.range)) return false;
  const auto isSelected = [&] { return field.isSelected(replacement.range); };
  if (!await(isSelected, longestSelection)) return false;
  // An empty text would leave the selection as it is.
  const std::int64_t deleteCount = replacement.text.empty() ? 1 : 0;
  return typist_.type(window, deleteCount, replacement.text, 0) && awaitText(field, replacement);
}

bool FieldWriter::replaceBackwards(const TextField& field, std::uint64_t window,
                                   const Replacement& replacement) {
  const auto caret = field.caret();
  if (!typist_.canType() || !caret || *caret < replacement.range.end) return false;
  if (*caret - replacement.range.end > longestTail) return false;
  const auto deleted = field.text({replacement.range.start, *caret});
  const auto tail = field.text({replacement.range.end, *caret});
  if (!deleted || !tail || !deleted->starts_with(replacement.replaced)) return false;
  const auto deleteCount = *caret - replacement.range.start;
  return typist_.type(window, deleteCount, replacement.text + text::toUtf8(*tail), 0) &&
         awaitText(field, replacement);
}

bool FieldWriter::type(std::uint64_t window, std::int64_t deleteCount, std::string_view text,
                       std::int64_t userData) {
  bool isTyped = false;
  input_.withKeysHeldBack([&] {
    if (typist_.canType()) isTyped = typist_.type(window, deleteCount, text, userData);
  });
  return isTyped;
}

}  // namespace mirvane
