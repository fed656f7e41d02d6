#include "platform/linux/atspi/application_keys.h"

#include <chrono>
#include <utility>

#include "platform/key_codes.h"
#include "platform/linux/key_identity.h"
#include "platform/linux/x11/server_clock.h"
#include "text/scalars.h"
#include "text/word_boundaries.h"

namespace mirvane {
namespace {

/// How often, and how long after each other, a window that has just come to the front is searched
/// for its focused element.
constexpr int mostLooksAhead = 10;
constexpr std::chrono::milliseconds betweenLooks{400};

constexpr std::uint64_t commandModifiers = modifier::control | modifier::option | modifier::command;

/// The text whose appearance shows that the application has dealt with the key; absent for keys
/// that need not type any.
std::optional<std::string> effectOf(const WatchedKey& key) {
  if (!key.isDown || !key.text || (key.modifierFlags & commandModifiers) != 0) return std::nullopt;
  // It deletes behind the caret.
  if (virtualKeyCode(key.scanCode) == keycode::forwardDelete) return std::nullopt;
  const bool isControl = static_cast<unsigned char>(key.text->front()) < ' ';
  if (isControl && key.text != "\r") return std::nullopt;
  return key.text;
}

AwaitedKey awaited(const WatchedKey& key) {
  return {effectOf(key), key.text && text::isBoundaryKeyText(*key.text),
          timePoint(key.timestamp * millisecondsPerSecond),
          timePoint(key.deliveredAt * millisecondsPerSecond)};
}

bool isInWord(char16_t unit) {
  return text::isLetter(unit) || text::isNumber(unit);
}

/// Whether Backspaces may take this back without a look: in a chat it may have been sent, in a form
/// the focus may be elsewhere.
bool mayBeTakenBackBlindly(const std::u16string& text) {
  return !text.empty() && text.back() != u'\n' && text.back() != u'\t';
}

}  // namespace

std::optional<ReportableKey> ApplicationKeys::take(const DesktopKey& key,
                                                   const DesktopInput& input) {
  auto context = contextOf(key, input);
  if (context.isSecure) {
    hasMissedKeys_ = true;
    return std::nullopt;
  }
  // How often a held key has been repeated is a guess.
  hasRepeats_ = hasRepeats_ || key.key.isRepeat;
  const bool mayType = !hasMissedKeys_ && !hasRepeats_;
  if (key.hold != KeyHold::none) hasMissedKeys_ = hasRepeats_ = false;
  return ReportableKey{key, std::move(context), mayType};
}

KeyContext ApplicationKeys::contextOf(const DesktopKey& key, const DesktopInput& input) {
  const auto awaitedKey = awaited(key.key);
  KeyContext context;
  context.isSecure = key.window.isTerminal || watch_.wasSecure(awaitedKey.pressedAt);
  // Releases change nothing that anybody asks about.
  if (context.isSecure || !key.key.isDown) return context;
  context = watch_.contextOfKey(key.window.processId, awaitedKey);
  // What stands there may be the work of later keys, and theirs the word that would be corrected.
  if (key.hold != KeyHold::none && !input.isHolding(key.hold)) context.text.content.reset();
  return context;
}

void ApplicationKeys::noteActivation(const DesktopWindow& window) {
  windowInFront_ = window.id;
  watch_.noteActivation();
  if (window.isOwn || window.isTerminal) {
    watch_.leave();
  } else {
    lookAhead(window, mostLooksAhead);
  }
}

/// The first look at an application takes longest, above all while it is starting.
void ApplicationKeys::lookAhead(const DesktopWindow& window, int looksLeft) {
  if (windowInFront_ != window.id) return;
  if (watch_.focusedField(window.processId) != nullptr || looksLeft == 0) return;
  thread_.postLater([this, window, looksLeft] { lookAhead(window, looksLeft - 1); }, betweenLooks);
}

bool ApplicationKeys::mayStandBeforeCaret(int processId, const std::u16string& expected) {
  const auto content = look(processId).content;
  if (isSecure()) return false;
  if (!content) return !watch_.takesPart(processId) && mayBeTakenBackBlindly(expected);
  if (content->selection.length > 0 || !content->hasBeforeCaret(expected)) return false;
  // The end of a longer word may not be what the replacement is for.
  const auto before = content->beforeCaret().value_or(std::u16string());
  return before.size() <= expected.size() || !isInWord(before[before.size() - expected.size() - 1]);
}

}  // namespace mirvane
