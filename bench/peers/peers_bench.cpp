// Spell checkers on the same "typo TAB meant" pairs, in one run and one table: how often the meant
// word is the first guess or among the first three, without context, and what that costs.
// usage: peers-bench PAIRS [COUNT]

#include <malloc.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <string>
#include <vector>

#include "peer.h"
#include "words_of_file.h"

namespace mirvane {

namespace {

using Clock = std::chrono::steady_clock;
using Pairs = std::vector<std::vector<std::string>>;

std::string lowerCase(std::string text) {
  std::ranges::transform(text, text.begin(), [](char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
  });
  return text;
}

/// Resident memory of this process, in MB.
double residentMegabytes() {
  std::ifstream statm("/proc/self/statm");
  double whole = 0;
  double resident = 0;
  statm >> whole >> resident;
  return resident * 4096 / 1e6;
}

struct Row {
  int correct = 0;
  int first = 0;
  int firstThree = 0;
  std::vector<double> guessMicroseconds;
  double checkNanoseconds = 0;
};

double at(std::vector<double>& values, double part) {
  std::ranges::sort(values);
  return values[static_cast<std::size_t>(part * static_cast<double>(values.size() - 1))];
}

void countGuesses(Row& row, const std::vector<std::string>& guesses, const std::string& meant) {
  for (std::size_t i = 0; i < std::min<std::size_t>(guesses.size(), 3); ++i) {
    if (lowerCase(guesses[i]) != meant) continue;
    if (i == 0) ++row.first;
    ++row.firstThree;
    return;
  }
}

/// How many of the typed and meant words are correct.
int countCorrect(Peer& peer, const Pairs& pairs) {
  int correct = 0;
  for (const auto& pair : pairs) {
    correct += peer.isCorrect(pair[0]) ? 1 : 0;
    correct += peer.isCorrect(pair[1]) ? 1 : 0;
  }
  return correct;
}

/// Mean of a correctness test, over several rounds.
double checkNanoseconds(Peer& peer, const Pairs& pairs) {
  constexpr std::size_t rounds = 10;
  const auto started = Clock::now();
  for (std::size_t round = 0; round < rounds; ++round) countCorrect(peer, pairs);
  const std::chrono::duration<double, std::nano> passed = Clock::now() - started;
  return passed.count() / static_cast<double>(2 * rounds * pairs.size());
}

Row measure(Peer& peer, const Pairs& pairs) {
  Row row;
  row.correct = countCorrect(peer, pairs);  // warms the caches, too
  row.checkNanoseconds = checkNanoseconds(peer, pairs);
  for (const auto& pair : pairs) {
    const auto start = Clock::now();
    const auto guesses = peer.guesses(pair[0]);
    const std::chrono::duration<double, std::micro> passed = Clock::now() - start;
    row.guessMicroseconds.push_back(passed.count());
    countGuesses(row, guesses, lowerCase(pair[1]));
  }
  return row;
}

void printRow(const std::string& name, Row row, std::size_t pairs, double megabytes) {
  const double share = 100.0 / static_cast<double>(pairs);
  std::printf("| %s | %.1f | %.1f | %d | %.0f | %.0f | %.0f | %.1f |\n", name.c_str(),
              row.first * share, row.firstThree * share, row.correct,
              at(row.guessMicroseconds, 0.5), at(row.guessMicroseconds, 0.99), row.checkNanoseconds,
              megabytes);
}

int run(const Pairs& pairs) {
  std::puts(
      "| | top-1 % | top-3 % | accepted words | guesses median us | p99 us | check mean ns | "
      "memory MB |");
  std::puts("|---|---|---|---|---|---|---|---|");
  const std::vector<std::function<std::unique_ptr<Peer>()>> makers{
      makeOwnPeer,
#ifdef WITH_HUNSPELL
      makeHunspellPeer,
#endif
#ifdef WITH_NUSPELL
      makeNuspellPeer,
#endif
#ifdef WITH_ASPELL
      makeAspellPeer,
#endif
  };
  for (const auto& make : makers) {
    malloc_trim(0);
    const double before = residentMegabytes();
    const auto peer = make();
    const Row row = measure(*peer, pairs);
    printRow(peer->name(), row, pairs.size(), residentMegabytes() - before);
    std::fflush(stdout);
  }
  return EXIT_SUCCESS;
}

}  // namespace

}  // namespace mirvane

int main(int argc, char** argv) {
  auto pairs = mirvane::fieldsOfLines(argc > 1 ? argv[1] : "");
  std::erase_if(pairs, [](const auto& fields) { return fields.size() < 2; });
  if (argc > 2) pairs.resize(std::min(pairs.size(), static_cast<std::size_t>(std::atoi(argv[2]))));
  if (pairs.empty()) {
    std::fputs("usage: peers-bench PAIRS [COUNT]\n", stderr);
    return EXIT_FAILURE;
  }
  return mirvane::run(pairs);
}
