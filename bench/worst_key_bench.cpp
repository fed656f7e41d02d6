// The most that one key costs when the keyboard is not typed on but leant on: the longest key of
// the run and the most memory the process has held are counters.

#include <benchmark/benchmark.h>
#include <sys/resource.h>

#include <algorithm>
#include <chrono>
#include <ctime>
#include <random>
#include <string>
#include <string_view>

#include "platform/simulated/key_layout.h"
#include "session/study_prompts.h"
#include "support/shipped_resources.h"
#include "support/simulated_session.h"

namespace mirvane {
namespace {

/// More letters than any keyboard sends in the time of a session.
constexpr std::size_t keysAMinute = 3000;

ShippedResources& shipped() {
  static ShippedResources resources;
  return resources;
}

/// Processor time of this thread in milliseconds: other programs on the machine do not count.
double threadMilliseconds() {
  timespec now{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) / 1e6;
}

double peakMegabytes() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return static_cast<double>(usage.ru_maxrss) / 1024;
}

/// Types a text so many seconds a key; the longest key, in milliseconds.
double longestKey(SimulatedSession& session, std::string_view text, double gap) {
  double longest = 0;
  for (const char character : text) {
    session.desktop().advance(gap);
    session.desktop().keyboard().press(*simulated::keyStrokeFor(std::string(1, character)));
    const double start = threadMilliseconds();
    session.desktop().settle();
    longest = std::max(longest, threadMilliseconds() - start);
  }
  return longest;
}

template <typename MakeText>
void longestKeyOf(benchmark::State& state, MakeText makeText, std::string_view fieldText = {}) {
  std::minstd_rand random(20261123);
  double longest = 0;
  for (auto _ : state) {
    SimulatedSession session(shipped().typingConfig(), shipped().language(), {.text = fieldText});
    longest = std::max(longest, longestKey(session, makeText(random), 0.02));
  }
  state.counters["longest_ms"] = longest;
  state.counters["peak_MB"] = peakMegabytes();
}

char letter(std::minstd_rand& random) {
  return "abcdefghijklmnopqrstuvwxyz"[random() % 26];
}

/// One key held for a minute.
void heldLetter(benchmark::State& state) {
  longestKeyOf(state, [](auto& random) { return std::string(keysAMinute, letter(random)); });
}
BENCHMARK(heldLetter)->Unit(benchmark::kMillisecond)->Iterations(5);

/// Space or a full stop held for a minute behind a word.
void heldBoundary(benchmark::State& state) {
  longestKeyOf(state, [](auto& random) {
    return "helllo" + std::string(keysAMinute, random() % 2 == 0 ? ' ' : '.');
  });
}
BENCHMARK(heldBoundary)->Unit(benchmark::kMillisecond)->Iterations(5);

void heldReturn(benchmark::State& state) {
  longestKeyOf(state, [](auto&) { return "helllo" + std::string(keysAMinute, '\n'); });
}
BENCHMARK(heldReturn)->Unit(benchmark::kMillisecond)->Iterations(5);

/// Hands that wander over the keyboard: letters two to four times each, hardly ever a space.
std::string mashed(std::minstd_rand& random, std::string_view letters, unsigned spaces) {
  std::string text;
  while (text.size() < keysAMinute) {
    text.append(2 + random() % 3, letters[random() % letters.size()]);
    if (random() % spaces == 0) text += ' ';
  }
  return text;
}

void mashedKeys(benchmark::State& state) {
  longestKeyOf(state,
               [](auto& random) { return mashed(random, "abcdefghijklmnopqrstuvwxyz", 1000); });
}
BENCHMARK(mashedKeys)->Unit(benchmark::kMillisecond)->Iterations(5);

/// Words of about eight letters, each letter struck two to four times: as many variants as there
/// may be, each of which may be near to a word.
void mashedWords(benchmark::State& state) {
  longestKeyOf(state, [](auto& random) { return mashed(random, "eeaoitsrnlducmhgp", 8); });
}
BENCHMARK(mashedWords)->Unit(benchmark::kMillisecond)->Iterations(5);

/// The prompts with every letter struck three times.
void tripledWords(benchmark::State& state) {
  longestKeyOf(state, [](auto&) {
    std::string text;
    for (const char character : std::string(prompt1) + ' ' + std::string(prompt2)) {
      text.append(character == ' ' ? 1 : 3, character);
    }
    return text;
  });
}
BENCHMARK(tripledWords)->Unit(benchmark::kMillisecond)->Iterations(1);

/// Typing on at the end of a token of 10,000 letters: all the same, mashed, of eight runs that are
/// held for long, and with other such tokens before it.
void longToken(benchmark::State& state, const std::string& token) {
  longestKeyOf(
      state, [](auto& random) { return mashed(random, "abcdefghij", 1000).substr(0, 40); }, token);
}
std::string eightRuns() {
  std::string token;
  for (const char run : std::string_view("lesofrtn")) token.append(1250, run);
  return token;
}
std::string alternating(std::string_view part) {
  std::string token;
  while (token.size() < 10'000) token += part;
  return token;
}
BENCHMARK_CAPTURE(longToken, held, std::string(10'000, 'e'))
    ->Unit(benchmark::kMillisecond)
    ->Iterations(5);
BENCHMARK_CAPTURE(longToken, mashed, alternating("xxyzzk"))
    ->Unit(benchmark::kMillisecond)
    ->Iterations(5);
BENCHMARK_CAPTURE(longToken, plain, alternating("qwertz"))
    ->Unit(benchmark::kMillisecond)
    ->Iterations(5);
BENCHMARK_CAPTURE(longToken, eightChoices, eightRuns() + alternating("qwertz"))
    ->Unit(benchmark::kMillisecond)
    ->Iterations(5);
BENCHMARK_CAPTURE(longToken, accented, alternating("éèü"))
    ->Unit(benchmark::kMillisecond)
    ->Iterations(5);
BENCHMARK_CAPTURE(longToken, amongOthers,
                  alternating("qwertz") + " " + alternating("asdf ") + " " + alternating("abc") +
                      " " + alternating("xyz"))
    ->Unit(benchmark::kMillisecond)
    ->Iterations(5);

}  // namespace
}  // namespace mirvane
