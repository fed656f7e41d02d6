// Prints what a pocketsphinx language model knows: every word as "word log10-probability", then,
// for the most frequent words, every pair as "first second
// log10-probability-of-second-after-first". The model's file is a trie without a public iterator,
// so each pair is asked for by its numbers.

#include <sphinxbase/ngram_model.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <vector>

namespace {

struct Word {
  int32 number;
  double logProbability;
};

std::vector<Word> wordsByFrequency(ngram_model_t* model, logmath_t* logs) {
  std::vector<Word> words;
  const int32 count = ngram_model_get_counts(model)[0];
  for (int32 number = 0; number < count; ++number) {
    int32 used = 0;
    const int32 score = ngram_ng_score(model, number, nullptr, 0, &used);
    words.push_back({number, logmath_log_to_log10(logs, score)});
  }
  std::stable_sort(words.begin(), words.end(), [](const Word& a, const Word& b) {
    return a.logProbability > b.logProbability;
  });
  return words;
}

void printPairs(ngram_model_t* model, logmath_t* logs, std::vector<Word> words) {
  // In the order of their numbers neighbouring questions touch neighbouring memory.
  std::sort(words.begin(), words.end(),
            [](const Word& a, const Word& b) { return a.number < b.number; });
  for (const Word& first : words) {
    int32 history = first.number;
    for (const Word& second : words) {
      int32 used = 0;
      const int32 score = ngram_ng_score(model, second.number, &history, 1, &used);
      if (used < 2) continue;
      std::printf("%s %s %.4f\n", ngram_word(model, first.number), ngram_word(model, second.number),
                  logmath_log_to_log10(logs, score));
    }
  }
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fprintf(stderr, "usage: language_model MODEL WORDS-IN-PAIRS\n");
    return EXIT_FAILURE;
  }
  logmath_t* logs = logmath_init(1.0001, 0, 0);
  ngram_model_t* model = ngram_model_read(nullptr, argv[1], NGRAM_AUTO, logs);
  if (model == nullptr) return EXIT_FAILURE;
  std::vector<Word> words = wordsByFrequency(model, logs);
  for (const Word& word : words) {
    std::printf("%s %.4f\n", ngram_word(model, word.number), word.logProbability);
  }
  words.resize(std::min(words.size(), static_cast<std::size_t>(std::atoi(argv[2]))));
  printPairs(model, logs, words);
  ngram_model_free(model);
  logmath_free(logs);
}
