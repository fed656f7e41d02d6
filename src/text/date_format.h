#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

// May be called from any thread at any time, as long as nobody changes the environment.
namespace mirvane::text {

/// An absolute instant.
using DateTime = std::chrono::system_clock::time_point;

/// Medium date and short time in the user's locale and time zone: "Nov 16, 2026, 8:10 PM". The
/// locale is that of LC_ALL, LC_TIME or LANG, and English when none of them names one. Unusual
/// spaces of the locale's pattern come out as plain ones.
[[nodiscard]] std::string mediumDateShortTime(DateTime instant);

/// 24-hour "HH:mm:ss" in the user's time zone, whatever the locale.
[[nodiscard]] std::string clockTime(DateTime instant);

/// UTC, to the second: "2026-11-16T20:10:58Z".
[[nodiscard]] std::string iso8601(DateTime instant);

/// UTC, to the millisecond: "2026-11-16T20:10:58.250Z".
[[nodiscard]] std::string iso8601Milliseconds(DateTime instant);

/// Reads "2026-11-16T20:10:58Z", with optional fractions of a second and an offset such as
/// "+01:00" in place of the Z. Absent when the text is anything else or names no real date, or one
/// outside the years 1844 to 2096.
[[nodiscard]] std::optional<DateTime> parseIso8601(std::string_view text);

}  // namespace mirvane::text
