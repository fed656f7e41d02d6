#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>

namespace mirvane {

/// One logged correction or cycle step.
struct CorrectionEvent {
  std::chrono::system_clock::time_point timestamp;
  std::string originalWord;
  std::string correctedWord;
  std::string type;                       ///< one of `correction_type`
  double confidence = 0;                  ///< 0 to 1; 0 means no estimate
  std::optional<std::int64_t> wordIndex;  ///< zero-based among the typed words
};

namespace correction_type {
inline constexpr const char* autoRepeat = "auto-repeat";
inline constexpr const char* autoNearby = "auto-nearby";
inline constexpr const char* autoOther = "auto-other";
inline constexpr const char* manual = "manual";
inline constexpr const char* cycle = "cycle";
}  // namespace correction_type

}  // namespace mirvane
