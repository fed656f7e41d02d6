#include "app/command_line.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <sstream>
#include <string_view>

#include "app/study_file.h"
#include "version/program_version.h"

namespace mirvane {
namespace {

constexpr int usageFailure = 2;

/// The toolkit's options that take a value; --name and -name mean the same to it. A session manager
/// that starts the program again says -session.
constexpr std::array<std::string_view, 12> toolkitOptions{
    "platform", "platformpluginpath", "platformtheme", "plugin",  "qwindowgeometry", "qwindowicon",
    "session",  "qwindowtitle",       "style",         "display", "stylesheet",      "name"};
constexpr std::string_view toolkitFlag = "reverse";

std::string_view nameOf(std::string_view argument) {
  if (argument.substr(0, 1) != "-") return {};
  argument.remove_prefix(argument.substr(0, 2) == "--" ? 2 : 1);
  return argument;
}

bool isToolkitOption(std::string_view name) {
  return std::find(toolkitOptions.begin(), toolkitOptions.end(), name) != toolkitOptions.end();
}

/// Moves the toolkit's options out of `arguments`.
std::vector<std::string> takeToolkitArguments(std::vector<std::string>& arguments) {
  std::vector<std::string> taken;
  std::vector<std::string> others;
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    const auto name = nameOf(arguments[i]);
    const bool hasValueOfItsOwn = isToolkitOption(name.substr(0, name.find('=')));
    if (!hasValueOfItsOwn && name != toolkitFlag) {
      others.push_back(arguments[i]);
      continue;
    }
    taken.push_back(arguments[i]);
    if (isToolkitOption(name) && i + 1 < arguments.size()) taken.push_back(arguments[++i]);
  }
  arguments = std::move(others);
  return taken;
}

void declare(CLI::App& app, CommandLine& call) {
  app.name("mirvanetest");
  app.set_version_flag("--version", std::string("mirvanetest ") + programVersion);
  app.add_option("--study", call.studyFile,
                 "Run the study that this file describes (docs/study-file.md)")
      ->type_name("FILE");
  app.add_option("--participant", call.participant,
                 "Code of the participant: letters, digits, and . _ - between them")
      ->type_name("CODE")
      ->check([](const std::string& code) {
        return isParticipantCode(code) ? std::string() : "not a participant code: " + code;
      });
  app.footer("Options of the toolkit, such as -platform or -style, are taken too.");
}

CommandLineAnswer answerOf(const CLI::App& app, const CLI::ParseError& error) {
  std::ostringstream output;
  std::ostringstream message;
  const bool isAsked = app.exit(error, output, message) == 0;
  return {output.str(), message.str(), isAsked ? 0 : usageFailure};
}

}  // namespace

ParsedCommandLine parseCommandLine(const std::vector<std::string>& arguments) {
  CommandLine call;
  std::vector<std::string> own(arguments);
  call.toolkitArguments = takeToolkitArguments(own);
  if (!arguments.empty()) {
    call.toolkitArguments.insert(call.toolkitArguments.begin(), arguments.front());
    own.erase(own.begin());
  }
  CLI::App app("MirvaneTest, a typing study with real-time correction");
  declare(app, call);
  std::reverse(own.begin(), own.end());  // the parser takes its arguments from the back
  try {
    app.parse(own);
  } catch (const CLI::ParseError& error) {
    return {std::nullopt, answerOf(app, error)};
  }
  return {std::move(call), std::nullopt};
}

}  // namespace mirvane
