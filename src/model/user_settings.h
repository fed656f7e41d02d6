#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "observation/observable.h"
#include "platform/user_defaults.h"
#include "platform/workspace.h"

namespace mirvane {

/// The participant's switches, and the words and applications that are left alone. Three values
/// are kept in the user defaults; the rest is fixed or lives in memory. One instance serves the
/// whole application.
class UserSettings {
 public:
  /// Where the store has the master switch.
  static constexpr const char* autoCorrectionKey = "isAutoCorrectionEnabled";

  static constexpr bool isSentenceReviewEnabled = false;
  static constexpr bool isPhrasePickerEnabled = false;
  static constexpr bool isPhraseShortcutsEnabled = false;
  static constexpr bool isMouseAccessibilityModeEnabled = true;
  static constexpr bool keepsSuggestionBarVisible = true;

  /// Reads the stored values. A switch or an application list that was never stored is stored
  /// with its default.
  UserSettings(UserDefaults& defaults, const Workspace& workspace);

  /// Key codes and flags of hotkeys; kept in memory only.
  Observable<std::uint16_t> cycleKeyCode{54};
  Observable<std::uint16_t> pauseKeyCode{35};
  Observable<std::uint64_t> pauseModifierFlags{0x80000};

  /// Master switch of automatic correction.
  [[nodiscard]] const Observable<bool>& isAutoCorrectionEnabled() const {
    return isAutoCorrectionEnabled_;
  }
  /// Words that are never treated as misspellings.
  [[nodiscard]] const Observable<std::vector<std::string>>& allowList() const { return allowList_; }
  /// Identifiers of applications in which nothing is corrected.
  [[nodiscard]] const Observable<std::vector<std::string>>& disabledAppBundleIDs() const {
    return disabledAppBundleIDs_;
  }

  /// Each setter stores the value, changed or not, and announces it when it changed.
  void setIsAutoCorrectionEnabled(bool enabled);
  void setAllowList(std::vector<std::string> words);
  void setDisabledAppBundleIDs(std::vector<std::string> identifiers);

  /// Whether an entry of the allow list equals the word, letter case aside.
  [[nodiscard]] bool isAllowListed(std::string_view word) const;

  /// Whether the frontmost application is one of the disabled ones, letter case included.
  [[nodiscard]] bool isFrontmostAppDisabled() const;

  /// Whether words are corrected in the frontmost application at the moment.
  [[nodiscard]] bool isCorrectionActive() const {
    return *isAutoCorrectionEnabled_ && !isFrontmostAppDisabled();
  }

 private:
  void keepAllowList(std::vector<std::string> words);

  UserDefaults& defaults_;
  const Workspace& workspace_;
  Observable<bool> isAutoCorrectionEnabled_{true};
  Observable<std::vector<std::string>> allowList_;
  /// The same for the many look-ups of a key press.
  std::unordered_set<std::string> allowedForms_;
  Observable<std::vector<std::string>> disabledAppBundleIDs_;
};

}  // namespace mirvane
