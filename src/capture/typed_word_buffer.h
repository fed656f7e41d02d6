#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "model/keystroke_records.h"

namespace mirvane {

/// A finished word and the key text that ended it.
struct CompletedTypedWord {
  std::string word;  ///< never empty; case as typed, or the correction put in its place
  std::string boundaryCharacter;  ///< exactly one character

  /// Equality as text: canonically equivalent words are equal.
  bool operator==(const CompletedTypedWord& other) const;
};

/// Assembles the word being typed from key presses and remembers the last finished one. It decides
/// nothing; it answers what was typed when the text field cannot be read.
class TypedWordBuffer {
 public:
  [[nodiscard]] const std::string& currentWord() const { return currentWord_; }
  [[nodiscard]] const std::optional<CompletedTypedWord>& lastCompletedWord() const {
    return lastCompletedWord_;
  }

  /// Applies one key press.
  void handle(const KeyEvent& event);

  /// The Backspace key: takes the last character of the current word; with no current word it
  /// forgets the completed one, which does not come back.
  void deleteBackward();

  /// Finishes the current word. A second boundary in a row leaves no completed word.
  void completeWord(std::string_view boundary);

  /// Forgets both words.
  void reset();

  /// One character that starts with an ASCII letter, an ASCII digit or an apostrophe.
  [[nodiscard]] static bool isWordCharacter(std::string_view text);

  /// For whoever has put a correction into the document: what stands there now.
  void replaceCurrentWord(std::string word) { currentWord_ = std::move(word); }
  void replaceCompletedWord(CompletedTypedWord word);

 private:
  std::string currentWord_;
  std::optional<CompletedTypedWord> lastCompletedWord_;
};

}  // namespace mirvane
