#include "support/command_line.h"

#include <exception>
#include <iostream>

namespace mirvane {
namespace {

constexpr int failure = 2;

}  // namespace

int runCommand(CLI::App& app, int argc, char** argv, const std::function<void()>& command) {
  try {
    app.parse(argc, argv);
    command();
    std::cout.flush();
    return std::cout ? 0 : failure;
  } catch (const CLI::ParseError& error) {
    return app.exit(error) == 0 ? 0 : failure;
  } catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return failure;
  }
}

}  // namespace mirvane
