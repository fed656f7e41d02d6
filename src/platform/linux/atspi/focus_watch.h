#pragma once

#include <atomic>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <unordered_set>

#include "platform/linux/atspi/accessibility_thread.h"
#include "platform/linux/atspi/focus_finder.h"
#include "platform/linux/atspi/key_effects.h"
#include "platform/linux/atspi/shown_text.h"

namespace mirvane {

/// A key of another application, as far as its effect goes.
struct AwaitedKey {
  /// What it types: the effect to wait for. Absent when it need not type anything.
  std::optional<std::string> text;
  bool endsWord = false;
  KeyEffects::Clock::time_point pressedAt;
  KeyEffects::Clock::time_point deliveredAt;  ///< to the application
};

/// What stands behind a key of another application, once the application has dealt with it.
struct KeyContext {
  /// The key may be part of a password: nobody is to hear of it.
  bool isSecure = false;
  /// With the key's effect in it: absent as well when the effect is not there, or when the key ends
  /// another word than the one that the keys before it were typed into.
  TextAtCaret text;
};

/// Follows the focused element and the text changes of other applications. Everything but the
/// constructor runs on the accessibility thread.
class FocusWatch {
 public:
  using Clock = AccessibilityThread::Clock;

  explicit FocusWatch(AccessibilityThread& thread);
  FocusWatch(const FocusWatch&) = delete;
  FocusWatch& operator=(const FocusWatch&) = delete;
  ~FocusWatch() = default;

  /// Listens to the applications, or no longer; what they said is forgotten then.
  void setListening(bool isListening);
  /// Lets go of all that is known of them. Nothing may be asked afterwards.
  void stop();

  /// The pointer may have moved the focus.
  void notePointer() { mayHaveMoved_ = true; }

  /// Waits until the application has done what the key does, until 150 ms after it got the key at
  /// most, and looks at the result.
  [[nodiscard]] KeyContext contextOfKey(int processId, const AwaitedKey& key);

  /// The focused element of the process, which is in front; null when there is none to be reached.
  [[nodiscard]] std::shared_ptr<TextField> focusedField(int processId);

  /// What has the caret in it.
  [[nodiscard]] TextAtCaret focusedText(int processId);

  /// Another window is in front now.
  void noteActivation() {
    hasSeenFocus_ = hasUnseenKeys_ = false;
    shown_.forget();
  }

  /// It is an own one, or one that is not asked anything.
  void leave() { enter(nullptr); }

  /// Whether the application takes part in accessibility, or that is not known.
  [[nodiscard]] bool takesPart(int processId) {
    return finder_.nameOf(processId) != nullptr || finder_.isUnanswered(processId);
  }

  /// Whether a key pressed at that time may be part of a password.
  [[nodiscard]] bool wasSecure(Clock::time_point pressedAt) const {
    return isSecure_ || pressedAt <= lastSecure_;
  }

  /// Whether the element that had the focus last takes a password. Of any thread.
  [[nodiscard]] bool isSecure() const { return isSecure_; }

 private:
  static void onEvent(AtspiEvent* event, void* self);
  void noteChange(const AtspiEvent& event, bool isInsertion);
  void noteFocus(const AtspiEvent& event);
  void start();
  void enter(KeyEffects::Application application);
  void setSecure(bool isSecure);
  /// The focused element of the process that was entered; null when there is none to be reached.
  [[nodiscard]] std::shared_ptr<TextField> lookAtFocus(int processId);
  [[nodiscard]] KeyContext lookFor(int processId, const AwaitedKey& key);
  [[nodiscard]] KeyContext contextWithoutField(bool mayTakePart, const AwaitedKey& key);
  /// In the field with the focus, which has shown the key's effect or will not.
  [[nodiscard]] KeyContext contextIn(const std::shared_ptr<TextField>& field, const AwaitedKey& key,
                                     bool hasEffect);
  [[nodiscard]] TextAtCaret readBehind(const std::shared_ptr<TextField>& field,
                                       const std::string& typed);
  [[nodiscard]] std::optional<KeyEffects::Id> expectEffect(KeyEffects::Application application,
                                                           const AwaitedKey& key);
  [[nodiscard]] bool isExpectedToAnnounce();
  [[nodiscard]] bool awaitEffect(KeyEffects::Id id, Clock::time_point deadline);

  AccessibilityThread& thread_;
  FocusFinder finder_;
  KeyEffects effects_;
  AtspiEventListener* listener_ = nullptr;
  /// The focus may be elsewhere than the application says: it has shown no effect of a key since
  /// one that moves the focus.
  bool mayHaveMoved_ = false;
  ShownText shown_;
  bool hasSeenFocus_ = false;   ///< in the window in front
  bool hasUnseenKeys_ = false;  ///< typed there before
  std::atomic<bool> isSecure_ = false;
  Clock::time_point lastSecure_{};
  /// The application that has the keyboard; null when it is none that is asked anything.
  KeyEffects::Application inFront_ = nullptr;
  /// The applications that announce their changes.
  std::unordered_set<KeyEffects::Application> announcing_;
  /// How many keys in a row an application has shown no effect of.
  std::unordered_map<KeyEffects::Application, int> silence_;
  /// When an application did not answer last.
  Clock::time_point lastUnanswered_{};
};

}  // namespace mirvane
