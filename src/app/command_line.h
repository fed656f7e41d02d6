#pragma once

#include <optional>
#include <string>
#include <vector>

namespace mirvane {

/// How the program was called.
struct CommandLine {
  std::optional<std::string> studyFile;    ///< instead of the deployment's study.json
  std::optional<std::string> participant;  ///< over the one that the study file names
  /// The program's name and the options that the toolkit reads itself, such as -platform.
  std::vector<std::string> toolkitArguments;
};

/// What the program answers at once, without a window.
struct CommandLineAnswer {
  std::string output;
  std::string error;
  int exitCode = 0;
};

/// Parses `arguments`, the program's name first. Needs neither a display nor the toolkit. Answers
/// --help and --version with exit code 0, and what it does not know with a message and exit code 2.
/// Of the two results one is there.
struct ParsedCommandLine {
  std::optional<CommandLine> call;
  std::optional<CommandLineAnswer> answer;
};
[[nodiscard]] ParsedCommandLine parseCommandLine(const std::vector<std::string>& arguments);

}  // namespace mirvane
