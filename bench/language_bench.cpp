// The English services on their shipped data. Typed words come from a file of
// "typo TAB meant" lines named by the environment variable MIRVANE_PAIRS.

#include <benchmark/benchmark.h>
#include <time.h>

#include <algorithm>
#include <cstdlib>
#include <string>
#include <vector>

#include "language/english_language.h"
#include "platform/linux/resource_bundle.h"
#include "suggest/context_score.h"
#include "words_of_file.h"

namespace {

using mirvane::EnglishLanguage;
using Words = std::vector<std::string>;

const mirvane::ResourceBundle& bundle() {
  static const mirvane::ResourceBundle shipped(mirvane::standardResourceFolder());
  return shipped;
}

const EnglishLanguage& english() {
  static const EnglishLanguage language = mirvane::loadEnglishLanguage(bundle());
  return language;
}

/// Typos and meant words in turn, in lower case as in the file.
const Words& mixedWords() {
  static const Words words = [] {
    const char* file = std::getenv("MIRVANE_PAIRS");
    Words mixed;
    for (auto& fields : mirvane::fieldsOfLines(file == nullptr ? "" : file)) {
      if (fields.size() >= 2) mixed.insert(mixed.end(), fields.begin(), fields.begin() + 2);
    }
    return mixed;
  }();
  return words;
}

Words unknownWords() {
  Words unknown;
  std::ranges::copy_if(mixedWords(), std::back_inserter(unknown), [](const std::string& word) {
    return !english().spellChecker->isCorrect(word);
  });
  return unknown;
}

void correctness(benchmark::State& state) {
  const auto& words = mixedWords();
  if (words.empty()) return state.SkipWithError("MIRVANE_PAIRS names no file of pairs");
  std::size_t i = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(english().spellChecker->isCorrect(words[i]));
    i = i + 1 == words.size() ? 0 : i + 1;
  }
}
BENCHMARK(correctness);

/// Processor time of this thread, in microseconds: other programs do not count.
double processorTime() {
  timespec now{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) * 1e6 + static_cast<double>(now.tv_nsec) / 1e3;
}

/// Asks once for every word and reports how the processor times are spread.
template <typename Ask>
void spread(benchmark::State& state, const Words& words, Ask ask) {
  if (words.empty()) return state.SkipWithError("MIRVANE_PAIRS names no file of pairs");
  std::vector<double> microseconds;
  for (auto _ : state) {
    for (const std::string& word : words) {
      const double start = processorTime();
      benchmark::DoNotOptimize(ask(word));
      microseconds.push_back(processorTime() - start);
    }
  }
  std::ranges::sort(microseconds);
  const auto at = [&](double part) {
    return microseconds[static_cast<std::size_t>(part *
                                                 static_cast<double>(microseconds.size() - 1))];
  };
  state.counters["median_us"] = at(0.5);
  state.counters["p99_us"] = at(0.99);
  state.counters["max_us"] = at(1);
}

void guesses(benchmark::State& state) {
  spread(state, unknownWords(),
         [](const std::string& word) { return english().spellChecker->guesses(word); });
}
BENCHMARK(guesses)->Iterations(1)->Unit(benchmark::kMillisecond);

/// Of every beginning of every word, as a typist passes through them.
void completions(benchmark::State& state) {
  Words beginnings;
  for (const std::string& word : mixedWords()) {
    for (std::size_t size = 1; size <= word.size(); ++size) {
      beginnings.push_back(word.substr(0, size));
    }
  }
  spread(state, beginnings,
         [](const std::string& word) { return english().spellChecker->completions(word); });
}
BENCHMARK(completions)->Iterations(1)->Unit(benchmark::kMillisecond);

void wordDistances(benchmark::State& state) {
  for (auto _ : state) {
    benchmark::DoNotOptimize(english().embedding->distance("garden", "flowers"));
  }
}
BENCHMARK(wordDistances);

void tags(benchmark::State& state) {
  for (auto _ : state) benchmark::DoNotOptimize(english().tagger->tag("garden"));
}
BENCHMARK(tags);

void loadServices(benchmark::State& state) {
  for (auto _ : state) {
    const EnglishLanguage language = mirvane::loadEnglishLanguage(bundle());
    benchmark::DoNotOptimize(language.spellChecker->guesses("teh"));
  }
}
BENCHMARK(loadServices)->Unit(benchmark::kMillisecond);

void loadVocabularyTables(benchmark::State& state) {
  for (auto _ : state) benchmark::DoNotOptimize(mirvane::loadVocabulary(bundle()));
}
BENCHMARK(loadVocabularyTables)->Unit(benchmark::kMillisecond);

}  // namespace
