#include <CLI/CLI.hpp>
#include <string>

#include "evaluate/pair_evaluation.h"
#include "evaluate/sentence_evaluation.h"
#include "evaluate/word_evaluation.h"
#include "support/command_line.h"
#include "support/progress.h"

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
