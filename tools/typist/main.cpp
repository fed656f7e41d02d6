#include <CLI/CLI.hpp>
#include <charconv>
#include <cstdint>
#include <fstream>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

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
  std::optional<std::string> text;
  std::string words;
};

/// The option parser itself wraps and clamps numbers that do not fit. Empty when all is well.
std::string complaintAboutSeed(const std::string& text) {
  std::uint64_t seed = 0;
  const auto* const end = text.data() + text.size();
  const auto result = std::from_chars(text.data(), end, seed);
  const bool isSeed = result.ec == std::errc() && result.ptr == end;
  return isSeed ? "" : text + " is not a whole number from 0 to 18446744073709551615";
}

void declare(CLI::App& app, Options& options) {
  app.add_option("--seed", options.seed, "The same seed types the same way")
      ->required()
      ->check(CLI::Validator(complaintAboutSeed, "UINT64"));
  app.add_option("--session", options.session, "1, or 2 for the session with the cycle key")
      ->required()
      ->check(CLI::Range(1, 2));
  app.add_option("--profile", options.profile, "Who types")
      ->check(CLI::IsMember({"steady", "tremor"}))
      ->capture_default_str();
  app.add_option("--text", options.text, "What is typed; the session's prompt by default");
  app.add_option("--words", options.words,
                 "File for the words meant, one JSON object a line, for checking an analysis");
}

void writeWords(const std::vector<IntendedWord>& words, const std::string& file) {
  std::ofstream stream(file);
  for (const auto& [t, meant, typed] : words) {
    stream << Json{{"t", t}, {"meant", meant}, {"typed", typed}}.dump() << '\n';
  }
  if (!stream.flush()) throw std::runtime_error(file + ": cannot be written");
}

std::string run(const Options& options) {
  const std::string prompt = options.session == 1 ? prompt1 : prompt2;
  const auto& profile = options.profile == "steady" ? steadyProfile() : tremorProfile();
  const auto text = options.text.value_or(prompt);
  const auto typed = simulateTyping(text, options.session, profile, options.seed);
  if (!options.words.empty()) writeWords(typed.words, options.words);
  return formatRecording(typed.recording);
}

}  // namespace
}  // namespace mirvane

int main(int argc, char** argv) {
  return mirvane::runCommand<mirvane::Options>(
      "Writes the recording of a simulated typist to standard output", mirvane::declare,
      mirvane::run, argc, argv);
}
