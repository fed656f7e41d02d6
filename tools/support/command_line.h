#pragma once

#include <CLI/CLI.hpp>
#include <exception>
#include <iostream>
#include <stdexcept>
#include <string>
#include <type_traits>

namespace mirvane {

/// The command was called in a way that cannot work; the text says why.
class UsageError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Parses the command line into `Options` and runs the command. `run` answers the text to print, or
/// has printed what there was and answers the exit code. Exit code 0 after a text; 2 with a message
/// on standard error, and no text on standard output, when the call or a file is wrong.
template <typename Options, typename Run>
int runCommand(const char* description, void (*declare)(CLI::App&, Options&), Run run, int argc,
               char** argv) {
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
    int code = 0;
    if constexpr (std::is_same_v<std::invoke_result_t<Run, const Options&>, int>) {
      code = run(options);
    } else {
      std::cout << run(options);
    }
    return std::cout.flush() ? code : failure;
  } catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return failure;
  }
}

}  // namespace mirvane
