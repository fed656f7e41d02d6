#include "support/progress.h"

#include <unistd.h>

#include <chrono>
#include <iostream>
#include <string>

namespace mirvane {
namespace {

using Clock = std::chrono::steady_clock;

std::string barOf(std::size_t done, std::size_t whole) {
  constexpr std::size_t width = 40;
  const auto filled = whole == 0 ? width : width * done / whole;
  return '[' + std::string(filled, '#') + std::string(width - filled, '.') + "] " +
         std::to_string(done) + " of " + std::to_string(whole);
}

}  // namespace

Progress terminalProgress() {
  if (isatty(STDERR_FILENO) == 0) return [](std::size_t, std::size_t) {};
  static constexpr auto patience = std::chrono::seconds(1);
  static constexpr auto pause = std::chrono::milliseconds(100);
  return [next = Clock::now() + patience, isShown = false](std::size_t done,
                                                           std::size_t whole) mutable {
    const bool isLast = done == whole;
    if (Clock::now() < next && !(isLast && isShown)) return;
    std::cerr << '\r' << barOf(done, whole) << (isLast ? "\n" : "") << std::flush;
    isShown = true;
    next = Clock::now() + pause;
  };
}

}  // namespace mirvane
