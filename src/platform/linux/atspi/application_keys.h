#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/linux/atspi/focus_watch.h"
#include "platform/linux/x11/desktop_input.h"

namespace mirvane {

/// A key of another application that may be told, and what the application looks like after it.
struct ReportableKey {
  DesktopKey key;
  KeyContext context;
  /// Whether Backspaces may follow it: nothing of the word was missed.
  bool mayType = true;
};

/// Decides what of the keys of other applications may be heard of: nothing of passwords, and no
/// text that is not known to be the work of the keys that were told. Everything but the constructor
/// and `isSecure` runs on the accessibility thread.
class ApplicationKeys {
 public:
  explicit ApplicationKeys(AccessibilityThread& thread) : thread_(thread), watch_(thread) {}

  /// While not listening nothing is kept of what applications say.
  void setListening(bool isListening) { watch_.setListening(isListening); }

  /// Before the thread ends.
  void stop() { watch_.stop(); }

  /// Waits for the key's effect. Absent when nobody is to hear of the key.
  [[nodiscard]] std::optional<ReportableKey> take(const DesktopKey& key, const DesktopInput& input);

  /// A key has gone by unseen.
  void noteMissedKey() { hasMissedKeys_ = true; }

  void notePointer() { watch_.notePointer(); }

  /// Another window has come to the front. Looks at it before its first key comes.
  void noteActivation(const DesktopWindow& window);

  /// What has the caret in the process, which is in front.
  [[nodiscard]] TextAtCaret look(int processId) { return watch_.focusedText(processId); }

  /// Whether Backspaces may delete this before the caret: where nothing can be read, only in an
  /// application outside accessibility.
  [[nodiscard]] bool mayStandBeforeCaret(int processId, const std::u16string& expected);

  /// Whether a password field has the focus. Of any thread.
  [[nodiscard]] bool isSecure() const { return watch_.isSecure(); }

 private:
  [[nodiscard]] KeyContext contextOf(const DesktopKey& key, const DesktopInput& input);
  void lookAhead(const DesktopWindow& window, int looksLeft);

  AccessibilityThread& thread_;
  FocusWatch watch_;
  std::uint64_t windowInFront_ = 0;
  // Of the word that is being typed.
  bool hasMissedKeys_ = false;
  bool hasRepeats_ = false;
};

}  // namespace mirvane
