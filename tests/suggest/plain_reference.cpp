#include "suggest/plain_reference.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <map>

namespace mirvane {
namespace {

using Texts = std::vector<std::string>;

std::string lower(std::string text) {
  for (char& c : text) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return text;
}

bool isVowel(char c) {
  return c == 'a' || c == 'e' || c == 'i' || c == 'o' || c == 'u';
}

bool isIn(const Texts& texts, const std::string& text) {
  return std::find(texts.begin(), texts.end(), text) != texts.end();
}

void addOnce(Texts& texts, const std::string& text) {
  if (!isIn(texts, text)) texts.push_back(text);
}

/// Every text that the runs of `rest` expand to, the single letter before the double.
Texts expansions(const std::string& rest) {
  if (rest.empty()) return {""};
  std::size_t count = 1;
  while (count < rest.size() && rest[count] == rest[0]) ++count;
  const std::string single(1, rest[0]), twice(2, rest[0]);
  Texts options{single, twice};
  if (count == 1) options = {single};
  if (count == 2 && std::string("lseofrtnpcdgm").find(rest[0]) != std::string::npos) {
    options = {twice};
  }
  Texts result;
  for (const auto& option : options) {
    for (const auto& tail : expansions(rest.substr(count))) result.push_back(option + tail);
  }
  return result;
}

Texts variantsOf(const std::string& word) {
  if (word.empty()) return {};
  Texts variants{word};
  for (const auto& text : expansions(word)) addOnce(variants, text);
  return variants;
}

std::vector<std::size_t> differences(const std::string& a, const std::string& b) {
  std::vector<std::size_t> positions;
  for (std::size_t i = 0; i < a.size(); ++i) {
    if (a[i] != b[i]) positions.push_back(i);
  }
  return positions;
}

bool hasTriple(const std::string& word) {
  for (std::size_t i = 2; i < word.size(); ++i) {
    if (word[i] == word[i - 1] && word[i] == word[i - 2]) return true;
  }
  return false;
}

double transposition(const std::string& w, const std::string& c) {
  if (w.size() != c.size()) return 0;
  const auto d = differences(w, c);
  if (d.size() != 2 || w[d[0]] != c[d[1]] || w[d[1]] != c[d[0]]) return 0;
  return d[1] == d[0] + 1 ? 1.5 : 0.8;
}

double missedDouble(const std::string& w, const std::string& c) {
  for (std::size_t i = 1; i < c.size(); ++i) {
    std::string without = c;
    without.erase(i, 1);
    if (c[i] == c[i - 1] && without == w) return w.size() < 4 ? 1.0 : 1.5;
  }
  return 0;
}

std::string consonants(std::string text) {
  text.erase(std::remove_if(text.begin(), text.end(), isVowel), text.end());
  return text;
}

double vowelOmission(const std::string& w, const std::string& c) {
  if (consonants(w) != consonants(c)) return 0;
  if (c.size() == w.size() + 1) return 1.5;
  return c.size() == w.size() + 2 ? 1.2 : 0;
}

double prefix(const std::string& w, const std::string& c) {
  std::size_t shared = 0;
  while (shared < w.size() && shared < c.size() && w[shared] == c[shared]) ++shared;
  return static_cast<double>(shared) / static_cast<double>(std::max(w.size(), c.size()));
}

bool isOneInsertionApart(const std::string& a, const std::string& b) {
  const auto& longer = a.size() > b.size() ? a : b;
  const auto& shorter = a.size() > b.size() ? b : a;
  if (longer.size() != shorter.size() + 1) return false;
  for (std::size_t i = 0; i < longer.size(); ++i) {
    std::string without = longer;
    if (without.erase(i, 1) == shorter) return true;
  }
  return false;
}

double weight(double full, const TypingState* state) {
  if (state == nullptr) return 1.0;
  const double q = state->motorPrior < 0 ? 0 : state->motorPrior < 1 ? state->motorPrior : 1;
  return 1 + (full - 1) * q;
}

}  // namespace

PlainReference::PlainReference(const SpellChecker& spellChecker, const TypingConfig& config,
                               Texts allowList)
    : spellChecker_(spellChecker), config_(config), allowList_(std::move(allowList)) {}

bool PlainReference::isAllowed(const std::string& word) const {
  for (const auto& entry : allowList_) {
    if (lower(entry) == lower(word)) return true;
  }
  return false;
}

bool PlainReference::isKnownWord(const std::string& word) const {
  return (!word.empty() && spellChecker_.isCorrect(word)) || isAllowed(word);
}

std::string PlainReference::neighbors(char key) const {
  static const std::map<char, std::string> layout{
      {'q', "wa"},     {'w', "qeas"},   {'e', "wrsd"},   {'r', "etdf"},   {'t', "ryfg"},
      {'y', "tugh"},   {'u', "yihj"},   {'i', "uojk"},   {'o', "ipkl"},   {'p', "ol"},
      {'a', "qwsz"},   {'s', "awedzx"}, {'d', "serfxc"}, {'f', "drtgcv"}, {'g', "ftyhvb"},
      {'h', "gyujbn"}, {'j', "huiknm"}, {'k', "jiolm"},  {'l', "kop"},    {'z', "asx"},
      {'x', "zsdc"},   {'c', "xdfv"},   {'v', "cfgb"},   {'b', "vghn"},   {'n', "bhjm"},
      {'m', "njk"}};
  if (config_.nearbyKeyProbabilities.empty()) return layout.contains(key) ? layout.at(key) : "";
  std::string keys;
  for (auto [typed, row] : config_.nearbyKeyProbabilities) {
    if (typed != std::string(1, key)) continue;
    std::stable_sort(row.begin(), row.end(),
                     [](const auto& a, const auto& b) { return a.second > b.second; });
    for (const auto& entry : row) keys += entry.first;
  }
  return keys;
}

double PlainReference::probability(char typed, char meant) const {
  for (const auto& [key, row] : config_.nearbyKeyProbabilities) {
    if (key != std::string(1, typed)) continue;
    for (const auto& [other, value] : row) {
      if (other == std::string(1, meant)) return value;
    }
  }
  return 0;
}

Texts PlainReference::edits(const std::string& word) const {
  const std::string l = lower(word);
  const std::size_t n = l.size();
  if (n < 2 || isKnownWord(l)) return {};
  Texts produced{l};
  for (std::size_t i = 0; i < n; ++i) {
    for (const char neighbor : neighbors(l[i])) {
      std::string text = l;
      text[i] = neighbor;
      produced.push_back(text);
    }
  }
  for (std::size_t i = 0; n <= 8 && i <= n; ++i) {
    for (char letter = 'a'; letter <= 'z'; ++letter) {
      produced.push_back(l.substr(0, i) + letter + l.substr(i));
    }
  }
  const bool wantsPairs = n <= 6 && std::none_of(l.begin(), l.end(), isVowel);
  for (std::size_t i = 0; wantsPairs && i <= n; ++i) {
    for (const char first : std::string("aeiou")) {
      const std::string once = l.substr(0, i) + first + l.substr(i);
      for (std::size_t j = i + 1; j <= n + 1; ++j) {
        for (const char second : std::string("aeiou")) {
          produced.push_back(once.substr(0, j) + second + once.substr(j));
        }
      }
    }
  }
  Texts known;
  for (const auto& text : produced) {
    if (isKnownWord(text)) addOnce(known, text);
  }
  return known;
}

Texts PlainReference::generateCandidates(const std::string& word) const {
  for (const char c : word) {
    if (std::isalpha(static_cast<unsigned char>(c)) == 0 && c != '\'') return {};
  }
  Texts found;
  for (const auto& variant : variantsOf(word)) {
    if (isKnownWord(lower(variant))) addOnce(found, lower(variant));
    for (const auto& text : spellChecker_.completions(variant)) addOnce(found, text);
    for (const auto& text : spellChecker_.guesses(variant)) addOnce(found, text);
  }
  for (const auto& variant : variantsOf(word)) {
    for (const auto& text : edits(variant)) addOnce(found, text);
  }
  Texts kept;
  if (isAllowed(word) && !word.empty()) kept.push_back(lower(word));
  for (const auto& text : found) {
    if (!isAllowed(word) || lower(text) != lower(word)) kept.push_back(text);
  }
  Texts valid;
  for (const auto& text : kept) {
    const bool isPossessive = text.ends_with("'s") || text.ends_with("'S");
    const bool maySuggest =
        isAllowed(text) || lower(text) == lower(word) || spellChecker_.mayBeSuggested(lower(text));
    if (!isPossessive && isKnownWord(lower(text)) && maySuggest) valid.push_back(text);
  }
  return valid;
}

double PlainReference::repeatNearby(const std::set<std::string>& variants,
                                    const std::string& c) const {
  double best = 0;
  for (const auto& variant : variants) {
    if (variant.size() != c.size()) continue;
    const auto d = differences(variant, c);
    const double q = d.size() == 1 ? probability(variant[d[0]], c[d[0]]) : 0;
    if (q > 0) best = std::max(best, q + 1.5);
  }
  return best;
}

double PlainReference::score(const std::string& word, const std::string& candidate,
                             const TypingState* state) const {
  const std::string w = lower(word), c = lower(candidate);
  const auto variants = variantsOf(w);
  std::set<std::string> repeats(variants.begin(), variants.end());
  repeats.erase(w);
  const bool isRepeat = repeats.contains(c);
  const bool isRepeating = (state != nullptr && state->isRepeating) || hasTriple(w);
  const auto d = w.size() == c.size() ? differences(w, c) : std::vector<std::size_t>{};

  double motor = d.size() == 1 ? probability(w[d[0]], c[d[0]]) : 0;
  motor += transposition(w, c);
  motor += isRepeating && isRepeat ? 2.2 : 0;
  motor += missedDouble(w, c);
  motor += isRepeat ? 0 : repeatNearby(repeats, c);
  const double spelling = 0.35 * prefix(w, c) + vowelOmission(w, c);
  double penalty = w != c && isKnownWord(w) ? 3.0 : 0;
  if (c.size() > w.size() && c.starts_with(w)) penalty += 0.45;
  const auto& weights = config_.motorPriorWeights;
  return motor * weight(weights.motorBoost, state) +
         spelling * weight(weights.phoneticDamp, state) - penalty;
}

Texts PlainReference::rank(const std::string& word, Texts candidates,
                           const TypingState* state) const {
  std::map<std::string, double> scores;
  for (const auto& candidate : candidates) scores[candidate] = score(word, candidate, state);
  std::stable_sort(candidates.begin(), candidates.end(),
                   [&](const auto& a, const auto& b) { return scores.at(a) > scores.at(b); });
  return candidates;
}

double PlainReference::substitution(const std::string& a, const std::string& b) const {
  const auto d = differences(a, b);
  if (d.size() != 1 || !spellChecker_.isCorrect(b)) return 0;
  return std::min(std::max(2 * probability(a[d[0]], b[d[0]]) + 0.5, 0.0), 1.0);
}

double PlainReference::confidence(const std::string& typed, const std::string& candidate) const {
  const std::string a = lower(typed), b = lower(candidate);
  if (isKnownWord(a)) return 0;
  if (a.size() == b.size()) return substitution(a, b);
  if (hasTriple(a) && isKnownWord(b) && isIn(variantsOf(a), b)) return 0.95;
  return isOneInsertionApart(a, b) && isKnownWord(b) ? 0.85 : 0;
}

}  // namespace mirvane
