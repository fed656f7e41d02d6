#pragma once

#include <CLI/CLI.hpp>
#include <functional>
#include <stdexcept>

namespace mirvane {

/// The command was called in a way that cannot work; the text says why.
class UsageError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Parses the command line and runs the command. Exit code 0; or 2 and one line on standard error
/// when the call or a file is wrong. `command` prints only once nothing can go wrong any more.
int runCommand(CLI::App& app, int argc, char** argv, const std::function<void()>& command);

}  // namespace mirvane
