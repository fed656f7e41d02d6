#include <unistd.h>

#include <CLI/CLI.hpp>
#include <iostream>
#include <string>

#include "evaluate/pair_evaluation.h"
#include "evaluate/sentence_evaluation.h"
#include "evaluate/word_evaluation.h"
#include "support/command_line.h"

namespace mirvane {
namespace {

struct Options {
  std::string pairs, sentences, words;
};

void declare(CLI::App& app, Options& options) {
  app.add_option("--pairs", options.pairs, "File of \"typo TAB meant [TAB kind]\" lines");
  app.add_option("--sentences", options.sentences, "File of \"typed TAB intended\" lines");
  app.add_option("--words", options.words, "File of correct words, one a line");
  app.require_option(1);
}

/// A progress line on standard error, for whoever looks at a terminal.
Progress terminalProgress() {
  if (isatty(STDERR_FILENO) == 0) return [](std::size_t, std::size_t) {};
  return [](std::size_t done, std::size_t whole) {
    if (done % 50 != 0 && done != whole) return;
    std::cerr << '\r' << done << " of " << whole << (done == whole ? "\n" : "") << std::flush;
  };
}

std::string run(const Options& options) {
  ShippedResources shipped;
  const auto progress = terminalProgress();
  const auto result = !options.pairs.empty() ? evaluatePairs(options.pairs, shipped, progress)
                      : !options.sentences.empty()
                          ? evaluateSentences(options.sentences, shipped, progress)
                          : evaluateWords(options.words, shipped, progress);
  return result.dump(2) + '\n';
}

}  // namespace
}  // namespace mirvane

int main(int argc, char** argv) {
  return mirvane::runCommand<mirvane::Options>(
      "Measures how well the engine corrects, on a file of examples", mirvane::declare,
      mirvane::run, argc, argv);
}
