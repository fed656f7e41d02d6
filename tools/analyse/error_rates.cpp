#include "analyse/error_rates.h"

#include <algorithm>

namespace mirvane {
namespace {

std::optional<double> share(std::size_t part, std::size_t whole) {
  if (whole == 0) return std::nullopt;
  return static_cast<double>(part) / static_cast<double>(whole);
}

}  // namespace

ErrorRates errorRates(const Symbols& presented, const Symbols& transcribed,
                      std::size_t incorrectFixed) {
  const auto longer = std::max(presented.size(), transcribed.size());
  ErrorRates rates{.distance = minimumStringDistance(presented, transcribed)};
  rates.correct = longer - rates.distance;
  const auto all = rates.correct + rates.distance + incorrectFixed;
  rates.msd = share(rates.distance, longer);
  rates.corrected = share(incorrectFixed, all);
  rates.uncorrected = share(rates.distance, all);
  rates.total = share(rates.distance + incorrectFixed, all);
  return rates;
}

std::optional<double> wordsPerMinute(std::size_t transcribedCharacters, double seconds) {
  constexpr double secondsPerMinute = 60;
  constexpr double charactersPerWord = 5;
  if (transcribedCharacters < 2 || !(seconds > 0)) return std::nullopt;
  return static_cast<double>(transcribedCharacters - 1) / seconds * secondsPerMinute /
         charactersPerWord;
}

}  // namespace mirvane
