#pragma once

#include <string_view>

#include "platform/bundle.h"
#include "platform/lexical_tagger.h"
#include "platform/word_embedding.h"
#include "suggest/context_signals.h"
#include "suggest/vocabulary_table.h"

namespace mirvane {

/// How well a candidate fits the text around it. Every feature is 0 when what it needs is missing.
class ContextScore {
 public:
  struct Vocabulary {
    VocabularyTable unigramTable;  ///< by lower-case word
    VocabularyTable bigramTable;   ///< by two lower-case words with one space between
  };

  /// `embedding` may be null: the platform has none. Everything else must outlive this object.
  ContextScore(const Vocabulary& vocabulary, const WordEmbedding* embedding,
               const LexicalTagger& tagger)
      : vocabulary_(vocabulary), embedding_(embedding), tagger_(tagger) {}

  /// The sum of the four features below.
  [[nodiscard]] double contextScore(std::string_view candidate,
                                    const ContextSignals& context) const;

  /// Frequency of the candidate.
  [[nodiscard]] double unigramScore(std::string_view candidate) const;
  /// Frequency of the pairs it makes with its neighbours.
  [[nodiscard]] double bigramScore(std::string_view candidate, const ContextSignals& context) const;
  /// Fit of its part of speech behind the previous word.
  [[nodiscard]] double posScore(std::string_view candidate, const ContextSignals& context) const;
  /// Closeness of meaning to the surrounding words, 0 to 0.6.
  [[nodiscard]] double embeddingScore(std::string_view candidate,
                                      const ContextSignals& context) const;

  [[nodiscard]] const LexicalTagger& tagger() const { return tagger_; }

 private:
  [[nodiscard]] double pairWeight(std::string_view first, std::string_view second) const;

  const Vocabulary& vocabulary_;
  const WordEmbedding* embedding_;
  const LexicalTagger& tagger_;
};

/// The two tables of the application's resources.
[[nodiscard]] ContextScore::Vocabulary loadVocabulary(const Bundle& bundle);

}  // namespace mirvane
