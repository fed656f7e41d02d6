#pragma once

#include <CLI/CLI.hpp>
#include <exception>
#include <iostream>
#include <stdexcept>
#include <string>

namespace mirvane {

/// The command was called in a way that cannot work; the text says why.
class UsageError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Parses the command line into `Options`, runs the command and prints what it answers. Exit code
/// 0; or 2 with a message on standard error, and nothing on standard output, when the call or a
/// file is wrong.
template <typename Options>
int runCommand(const char* description, void (*declare)(CLI::App&, Options&),
               std::string (*run)(const Options&), int argc, char** argv) {
  constexpr int failure = 2;
  try {
    CLI::App app(description);
    Options options;
    declare(app, options);
    try {
      app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
      return app.exit(error) == 0 ? 0 : failure;
    }
    std::cout << run(options) << std::flush;
    return std::cout ? 0 : failure;
  } catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return failure;
  }
}

}  // namespace mirvane
