#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>

namespace mirvane {

/// The steps of the study, in order.
enum class AppStep : std::int64_t { intro, practice, session1, session2, results };

inline constexpr std::array<AppStep, 5> appSteps{
    AppStep::intro, AppStep::practice, AppStep::session1, AppStep::session2, AppStep::results};

/// The step with this raw value; none for any other value.
[[nodiscard]] constexpr std::optional<AppStep> appStepFromRawValue(std::int64_t rawValue) {
  if (rawValue < 0 || rawValue >= static_cast<std::int64_t>(appSteps.size())) return std::nullopt;
  return appSteps.at(static_cast<std::size_t>(rawValue));
}

/// The step that follows; none behind the last.
[[nodiscard]] constexpr std::optional<AppStep> stepAfter(AppStep step) {
  return appStepFromRawValue(static_cast<std::int64_t>(step) + 1);
}

}  // namespace mirvane
