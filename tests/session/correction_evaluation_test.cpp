#include "session/correction_evaluation.h"

#include <gtest/gtest.h>

namespace mirvane {
namespace {

struct Entry {
  const char* original;
  const char* corrected;
  std::optional<std::int64_t> wordIndex;
  std::string verdict;  ///< "expected yes", "expected no" or "unknown"
};

std::string shown(const CorrectionEvaluation& evaluation) {
  EXPECT_EQ(evaluation.expectedWord.has_value(), evaluation.isCorrect.has_value());
  if (!evaluation.expectedWord) return "unknown";
  return *evaluation.expectedWord + (*evaluation.isCorrect ? " yes" : " no");
}

void expectVerdicts(const std::vector<Entry>& entries, const char* prompt, const char* rawTyped) {
  std::vector<CorrectionEvent> log;
  log.reserve(entries.size());
  for (const auto& [original, corrected, wordIndex, verdict] : entries) {
    log.push_back({{}, original, corrected, correction_type::autoOther, 0, wordIndex});
  }
  const auto evaluations = evaluateCorrections(log, prompt, rawTyped);
  ASSERT_EQ(evaluations.size(), entries.size());
  for (std::size_t i = 0; i < entries.size(); ++i) {
    EXPECT_EQ(shown(evaluations[i]), entries[i].verdict) << "entry " << i;
  }
}

TEST(CorrectionEvaluation, TakesTheWordIndexWithinThePrompt) {
  expectVerdicts({{"teh", "the", 0, "The yes"},
                  {"caf", "CAFE\u0301!", 1, "Café yes"},
                  {"d0g", "dig", 2, "dog no"},
                  {"teh", "the", 0, "The yes"}},
                 "The Café, dog.", "");
}

TEST(CorrectionEvaluation, SearchesTheTypedWordsWithoutAnIndex) {
  expectVerdicts({{"teh", "the", std::nullopt, "The yes"},
                  {"dgo", "dog", 3, "dog yes"},
                  {"dgo", "dog", -1, "unknown"}},
                 "The lazy dog", "Teh lazy DGO");
  expectVerdicts({{"gone", "lazy", std::nullopt, "lazy yes"}}, "The lazy dog", "teh lazy dog");
}

TEST(CorrectionEvaluation, SearchesFromBehindTheEntryBefore) {
  expectVerdicts({{"a", "the", std::nullopt, "the yes"},
                  {"a", "the", std::nullopt, "cat no"},
                  {"a", "the", 0, "the yes"},
                  {"a", "mat", std::nullopt, "mat yes"},
                  {"a", "mat", std::nullopt, "unknown"}},
                 "the cat mat", "a a a");
  expectVerdicts({{"x", "mat", 2, "hat no"}, {"a", "the", std::nullopt, "unknown"}}, "the cat hat",
                 "a a a");
}

TEST(CorrectionEvaluation, DoesNotKnowWordsOutsideThePrompt) {
  expectVerdicts({{"c", "see", std::nullopt, "unknown"}, {"a", "the", std::nullopt, "the yes"}},
                 "the cat", "a b c");
  expectVerdicts({{"a", "the", 0, "unknown"}}, "— 😀 —", "a");
  expectVerdicts({{"a", "...", 0, "unknown"}}, "the", "a");
  expectVerdicts({{"a", "the", 1, "unknown"}}, "the", " ");
}

}  // namespace
}  // namespace mirvane
