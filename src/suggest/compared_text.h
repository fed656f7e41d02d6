#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "text/characters.h"
#include "text/letter_case.h"

namespace mirvane {

/// A word or candidate prepared for comparison: lower-cased once and split into characters once.
/// Stays where it was made, because the characters point into it.
class ComparedText {
 public:
  explicit ComparedText(std::string_view original)
      : originalCount_(text::characterCount(original)),
        lower_(text::lowercased(original)),
        characters_(text::characters(lower_)) {}
  ComparedText(const ComparedText&) = delete;
  ComparedText& operator=(const ComparedText&) = delete;

  [[nodiscard]] const std::string& lower() const { return lower_; }
  /// The characters of the lower-cased text.
  [[nodiscard]] const std::vector<std::string_view>& characters() const { return characters_; }
  [[nodiscard]] std::size_t length() const { return characters_.size(); }
  /// Number of characters of the text as given.
  [[nodiscard]] std::size_t originalCount() const { return originalCount_; }

 private:
  std::size_t originalCount_;
  std::string lower_;
  std::vector<std::string_view> characters_;
};

}  // namespace mirvane
