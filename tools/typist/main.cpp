#include <CLI/CLI.hpp>
#include <cstdint>
#include <iostream>
#include <string>

#include "recording/recording_writer.h"
#include "session/study_prompts.h"
#include "support/command_line.h"
#include "typist/typist.h"

namespace mirvane {
namespace {

struct Options {
  std::uint64_t seed = 0;
  std::int64_t session = 1;
  std::string profile = "tremor";
  std::string text;
};

void declare(CLI::App& app, Options& options) {
  app.add_option("--seed", options.seed, "The same seed types the same way")->required();
  app.add_option("--session", options.session, "1, or 2 for the session with the cycle key")
      ->required()
      ->check(CLI::Range(1, 2));
  app.add_option("--profile", options.profile, "Who types")
      ->check(CLI::IsMember({"steady", "tremor"}))
      ->capture_default_str();
  app.add_option("--text", options.text, "What is typed; the session's prompt by default");
}

std::string run(const Options& options) {
  const std::string prompt = options.session == 1 ? prompt1 : prompt2;
  const auto& profile = options.profile == "steady" ? steadyProfile() : tremorProfile();
  const auto& text = options.text.empty() ? prompt : options.text;
  return formatRecording(typeText(text, options.session, profile, options.seed));
}

}  // namespace
}  // namespace mirvane

int main(int argc, char** argv) {
  return mirvane::runCommand<mirvane::Options>(
      "Writes the recording of a simulated typist to standard output", mirvane::declare,
      mirvane::run, argc, argv);
}
