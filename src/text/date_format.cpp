#include "text/date_format.h"

#include <unicode/datefmt.h>
#include <unicode/smpdtfmt.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <memory>

#include "text/icu_status.h"
#include "text/scalars.h"

namespace mirvane::text {
namespace {

using std::chrono::milliseconds;

/// A `DateTime` ends in 2262: up to here, a century may be added.
constexpr double latestMilliseconds = 4e12;  // 2096

UDate toUDate(DateTime instant) {
  return static_cast<UDate>(std::chrono::floor<milliseconds>(instant).time_since_epoch().count());
}

std::string formatted(const icu::DateFormat& format, DateTime instant) {
  icu::UnicodeString text;
  format.format(toUDate(instant), text);
  std::string result;
  text.toUTF8String(result);
  return result;
}

std::string formatted(const char* pattern, DateTime instant, const icu::TimeZone& zone) {
  UErrorCode status = U_ZERO_ERROR;
  icu::SimpleDateFormat format(icu::UnicodeString(pattern), icu::Locale::getRoot(), status);
  expectSuccess(status, "date format");
  format.setTimeZone(zone);
  return formatted(format, instant);
}

/// The name of the locale that POSIX has for dates: the first of these that is set to something.
std::string nameOfDateLocale() {
  for (const char* variable : {"LC_ALL", "LC_TIME", "LANG"}) {
    const char* const value = std::getenv(variable);
    if (value != nullptr && *value != '\0') return value;
  }
  return {};
}

bool hasDates(const icu::Locale& locale) {
  std::int32_t count = 0;
  const icu::Locale* const available = icu::DateFormat::getAvailableLocales(count);
  return std::any_of(available, available + count, [&](const icu::Locale& other) {
    return std::string_view(other.getLanguage()) == locale.getLanguage();
  });
}

/// English when the name is empty, "C", "POSIX" or no language that ICU knows.
icu::Locale localeOfDates() {
  const auto locale = icu::Locale::createCanonical(nameOfDateLocale().c_str());
  return hasDates(locale) ? locale : icu::Locale::getUS();
}

/// Some locales put a narrow no-break space before AM and PM; a plain-text reader wants a space.
std::string withPlainSpaces(const std::string& text) {
  std::string result;
  for (std::size_t position = 0; position < text.size();) {
    const char32_t scalar = nextScalar(text, position);
    appendScalar(result, isWhitespace(scalar) ? U' ' : scalar);
  }
  return result;
}

/// ICU also takes blanks, single digits and other scripts' digits for a date and time of day.
bool startsLikeIso8601(std::string_view text) {
  constexpr std::string_view shape = "0000-00-00T00:00:00";
  return isAscii(text) && text.size() > shape.size() &&
         std::equal(shape.begin(), shape.end(), text.begin(), [](char expected, char c) {
           return expected == '0' ? c >= '0' && c <= '9' : c == expected;
         });
}

}  // namespace

std::string mediumDateShortTime(DateTime instant) {
  const std::unique_ptr<icu::DateFormat> format(icu::DateFormat::createDateTimeInstance(
      icu::DateFormat::kMedium, icu::DateFormat::kShort, localeOfDates()));
  if (!format) expectSuccess(U_MISSING_RESOURCE_ERROR, "date format");
  return withPlainSpaces(formatted(*format, instant));
}

std::string clockTime(DateTime instant) {
  const std::unique_ptr<icu::TimeZone> zone(icu::TimeZone::createDefault());
  return formatted("HH:mm:ss", instant, *zone);
}

std::string iso8601(DateTime instant) {
  return formatted("yyyy-MM-dd'T'HH:mm:ss'Z'", instant, *icu::TimeZone::getGMT());
}

std::string iso8601Milliseconds(DateTime instant) {
  return formatted("yyyy-MM-dd'T'HH:mm:ss.SSS'Z'", instant, *icu::TimeZone::getGMT());
}

std::optional<DateTime> parseIso8601(std::string_view text) {
  if (!startsLikeIso8601(text)) return std::nullopt;
  for (const char* pattern : {"yyyy-MM-dd'T'HH:mm:ssXXX", "yyyy-MM-dd'T'HH:mm:ss.SSSXXX"}) {
    UErrorCode status = U_ZERO_ERROR;
    icu::SimpleDateFormat format(icu::UnicodeString(pattern), icu::Locale::getRoot(), status);
    expectSuccess(status, "date format");
    format.setLenient(false);
    const auto source = icu::UnicodeString::fromUTF8(
        icu::StringPiece(text.data(), static_cast<std::int32_t>(text.size())));
    icu::ParsePosition position(0);
    const UDate date = format.parse(source, position);
    if (position.getErrorIndex() >= 0 || position.getIndex() != source.length()) continue;
    if (std::abs(date) > latestMilliseconds) return std::nullopt;
    return DateTime(milliseconds(std::llround(date)));
  }
  return std::nullopt;
}

}  // namespace mirvane::text
