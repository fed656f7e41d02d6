#include "correct/accessibility_text_replacement.h"

#include <string>

#include "capture/key_input_tracker.h"
#include "platform/key_codes.h"
#include "text/utf16.h"

namespace mirvane {
namespace {

void replaceInPlace(const AXReplacementTarget& target, std::string_view replacement) {
  auto& element = *target.element;
  element.setSelectedTextRange(target.range);
  element.setSelectedText(replacement);
  const auto behindText = target.range.location + text::utf16Length(replacement);
  element.setSelectedTextRange({target.caretAfter.value_or(behindText), 0});
}

void pressAndRelease(KeyEventSource& source, std::uint16_t keyCode, const std::string& text) {
  source.post({.keyCode = keyCode, .isDown = true, .modifierFlags = 0, .text = text});
  source.post({.keyCode = keyCode, .isDown = false, .modifierFlags = 0, .text = text});
}

std::string joined(std::string_view word, std::string_view boundary) {
  return std::string(word).append(boundary);
}

}  // namespace

ReplacementResult AccessibilityTextReplacement::replaceFinishedWord(
    std::string_view typedWord, std::string_view boundary, std::string_view replacement,
    const std::optional<AXReplacementTarget>& target) {
  if (target) {
    replaceInPlace(*target, replacement);
    return ReplacementResult::accessibility;
  }
  const auto deleteCount = text::utf16Length(typedWord) + text::utf16Length(boundary);
  const bool isPosted =
      sendKeystrokes(deleteCount, joined(replacement, boundary), joined(typedWord, boundary));
  return isPosted ? ReplacementResult::keyEvents : ReplacementResult::failed;
}

ReplacementResult AccessibilityTextReplacement::replaceCurrentWord(
    std::string_view typedWord, std::string_view replacement,
    const std::optional<AXReplacementTarget>& target) {
  return replaceFinishedWord(typedWord, {}, replacement, target);
}

void AccessibilityTextReplacement::replaceCycledText(
    std::string_view currentText, std::string_view boundary, std::string_view newText,
    const std::optional<AXReplacementTarget>& target) {
  replaceFinishedWord(currentText, boundary, newText, target);
  if (target) moveCaretToEnd(*target->element);
}

void AccessibilityTextReplacement::moveCaretToEnd(AccessibilityElement& element) {
  if (const auto length = element.textLength()) element.setSelectedTextRange({*length, 0});
}

bool AccessibilityTextReplacement::sendKeystrokes(std::int64_t deleteCount, std::string_view text,
                                                  std::string_view textBeforeCaret) {
  if (poster_.isSecureInputEnabled() || deleteCount < 0) return false;
  if (deleteCount == 0 && text.empty()) return false;
  const auto source = poster_.createSource(textBeforeCaret);
  if (!source) return false;
  source->setUserData(syntheticEventMarker);
  for (std::int64_t i = 0; i < deleteCount; ++i) pressAndRelease(*source, keycode::deleteKey, {});
  if (!text.empty()) pressAndRelease(*source, keycode::text, std::string(text));
  return true;
}

}  // namespace mirvane
