// What one key costs, from its key-down to the published suggestions, on the shipped English.

#include <benchmark/benchmark.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/simulated/key_layout.h"
#include "session/study_prompts.h"
#include "support/shipped_resources.h"
#include "support/simulated_session.h"

namespace mirvane {
namespace {

ShippedResources& shipped() {
  static ShippedResources resources;
  return resources;
}

/// Lets the engine handle one key; the simulated desktop's own work is done before.
void press(benchmark::State& state, simulated::Desktop& desktop, const simulated::KeyStroke& key) {
  state.PauseTiming();
  desktop.advance(0.18);
  desktop.keyboard().press(key);
  state.ResumeTiming();
  desktop.settle();
}

/// A sentence with errors of every kind; one iteration is one key.
void typeSentence(benchmark::State& state, SimulatedSession& session) {
  const std::string text =
      "Teh qiuck brwn foox jumps ovr the lzay dog. She seells sea shlls by teh sea shoer. ";
  std::size_t position = 0;
  for (auto _ : state) {
    const char character = text[position++ % text.size()];
    press(state, session.desktop(), *simulated::keyStrokeFor(std::string(1, character)));
  }
}

void oneKey(benchmark::State& state) {
  SimulatedSession session(shipped().typingConfig(), shipped().language());
  typeSentence(state, session);
}
BENCHMARK(oneKey)->Iterations(20000);

/// The same for a participant with many allowed words.
void oneKeyWithAllowedWords(benchmark::State& state) {
  SimulatedSession session(shipped().typingConfig(), shipped().language());
  std::vector<std::string> words;
  for (int i = 0; i < 10'000; ++i) words.push_back("name" + std::to_string(i));
  session.settings().setAllowList(std::move(words));
  typeSentence(state, session);
}
BENCHMARK(oneKeyWithAllowedWords)->Iterations(20000);

/// The last letter of a word with eight doubled letters, which stands for 256 words.
void lastKeyOfWorstWord(benchmark::State& state) {
  const auto lastKey = *simulated::keyStrokeFor("y");
  const auto backspace = *simulated::keyStrokeFor("\b");
  SimulatedSession session(shipped().typingConfig(), shipped().language());
  session.desktop().type("aabbhhiikkuuwwyy");
  for (auto _ : state) {
    state.PauseTiming();
    session.desktop().strike(backspace);
    state.ResumeTiming();
    press(state, session.desktop(), lastKey);
  }
}
BENCHMARK(lastKeyOfWorstWord)->Unit(benchmark::kMillisecond)->Iterations(20);

std::string document(std::int64_t size) {
  std::string text;
  while (text.size() < static_cast<std::size_t>(size)) text += std::string(prompt1) + '\n';
  return text;
}

/// One letter of a word in the middle of a document of so many bytes.
void keyInDocument(benchmark::State& state) {
  const auto text = document(state.range(0));
  SimulatedSession session(shipped().typingConfig(), shipped().language(), {.text = text});
  session.field().placeCaret(session.field().length() / 2);
  session.desktop().type(" brwn");
  const auto backspace = *simulated::keyStrokeFor("\b");
  const auto letter = *simulated::keyStrokeFor("n");
  for (auto _ : state) {
    state.PauseTiming();
    session.desktop().strike(backspace);
    state.ResumeTiming();
    press(state, session.desktop(), letter);
  }
}
BENCHMARK(keyInDocument)
    ->Unit(benchmark::kMicrosecond)
    ->Arg(1 << 10)
    ->Arg(10 << 10)
    ->Arg(1 << 20)
    ->Arg(10 << 20)
    ->Iterations(2000);

/// Everything from an empty process state to the suggestions of the first key.
void loadToFirstKey(benchmark::State& state) {
  for (auto _ : state) {
    ShippedResources resources;
    SimulatedSession session(resources.typingConfig(), resources.language());
    session.desktop().keyboard().press(*simulated::keyStrokeFor("t"));
    session.desktop().settle();
  }
}
BENCHMARK(loadToFirstKey)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace mirvane
