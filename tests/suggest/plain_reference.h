#pragma once

#include <set>
#include <string>
#include <vector>

#include "model/keystroke_records.h"
#include "model/typing_config.h"
#include "platform/spell_checker.h"

namespace mirvane {

/// Candidates, scores and confidence of ASCII words, worked out the slow and obvious way. The
/// engine has to give the same answers, to the last bit.
class PlainReference {
 public:
  PlainReference(const SpellChecker& spellChecker, const TypingConfig& config,
                 std::vector<std::string> allowList = {});

  [[nodiscard]] std::vector<std::string> generateCandidates(const std::string& word) const;
  [[nodiscard]] std::vector<std::string> rank(const std::string& word,
                                              std::vector<std::string> candidates,
                                              const TypingState* state) const;
  [[nodiscard]] double score(const std::string& word, const std::string& candidate,
                             const TypingState* state) const;
  [[nodiscard]] double confidence(const std::string& typed, const std::string& candidate) const;

  [[nodiscard]] bool isKnownWord(const std::string& word) const;

 private:
  [[nodiscard]] bool isAllowed(const std::string& word) const;
  [[nodiscard]] std::vector<std::string> edits(const std::string& word) const;
  [[nodiscard]] std::string neighbors(char key) const;
  [[nodiscard]] double probability(char typed, char meant) const;
  [[nodiscard]] double repeatNearby(const std::set<std::string>& variants,
                                    const std::string& c) const;
  [[nodiscard]] double substitution(const std::string& a, const std::string& b) const;

  const SpellChecker& spellChecker_;
  const TypingConfig& config_;
  std::vector<std::string> allowList_;
};

}  // namespace mirvane
