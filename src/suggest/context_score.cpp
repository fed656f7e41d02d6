#include "suggest/context_score.h"

#include <algorithm>

#include "text/letter_case.h"

namespace mirvane {
namespace {

constexpr double unigramWeight = 0.6;
constexpr double previousPairWeight = 0.8, nextPairWeight = 0.5;
constexpr double posFit = 0.4, posFitAfterVerb = 0.3;
constexpr double embeddingWeight = 0.6;
constexpr double largestDistance = 2;

double posFitAfter(LexicalClass previous, LexicalClass candidate) {
  using enum LexicalClass;
  const auto isOneOf = [candidate](auto... classes) { return ((candidate == classes) || ...); };
  switch (previous) {
    case determiner:
      return isOneOf(noun, adjective) ? posFit : 0;
    case pronoun:
      return isOneOf(verb) ? posFit : 0;
    case preposition:
      return isOneOf(noun, determiner) ? posFit : 0;
    case verb:
      return isOneOf(determiner, noun, pronoun) ? posFitAfterVerb : 0;
    case adjective:
      return isOneOf(noun) ? posFit : 0;
    case noun:
    case other:
      return 0;
  }
  return 0;
}

}  // namespace

double ContextScore::contextScore(std::string_view candidate, const ContextSignals& context) const {
  return unigramScore(candidate) + bigramScore(candidate, context) + posScore(candidate, context) +
         embeddingScore(candidate, context);
}

double ContextScore::unigramScore(std::string_view candidate) const {
  return unigramWeight * vocabulary_.unigramTable.weight(text::lowercased(candidate));
}

double ContextScore::bigramScore(std::string_view candidate, const ContextSignals& context) const {
  double score = 0;
  if (context.prevWord) score += previousPairWeight * pairWeight(*context.prevWord, candidate);
  if (context.nextWord) score += nextPairWeight * pairWeight(candidate, *context.nextWord);
  return score;
}

double ContextScore::pairWeight(std::string_view first, std::string_view second) const {
  return vocabulary_.bigramTable.weight(text::lowercased(first) + ' ' + text::lowercased(second));
}

double ContextScore::posScore(std::string_view candidate, const ContextSignals& context) const {
  if (!context.prevPOS) return 0;
  const auto tag = tagger_.tag(candidate);
  return tag ? posFitAfter(*context.prevPOS, *tag) : 0;
}

double ContextScore::embeddingScore(std::string_view candidate,
                                    const ContextSignals& context) const {
  if (embedding_ == nullptr) return 0;
  const std::string lower = text::lowercased(candidate);
  double sum = 0;
  int known = 0;
  for (const auto& word : context.surroundingWords) {
    const double distance = embedding_->distance(lower, word);
    if (!(distance > 0 && distance < largestDistance)) continue;
    sum += distance;
    ++known;
  }
  if (known == 0) return 0;
  return std::clamp((1 - sum / known) * embeddingWeight, 0.0, embeddingWeight);
}

ContextScore::Vocabulary loadVocabulary(const Bundle& bundle) {
  return {loadVocabularyTable(bundle, "base_unigrams"),
          loadVocabularyTable(bundle, "base_bigrams")};
}

}  // namespace mirvane
