#include "text/date_format.h"

#include <gtest/gtest.h>

#include "tests/support/user_environment.h"

namespace mirvane::text {
namespace {

using std::chrono::milliseconds;

const auto* const germany =
    testing::AddGlobalTestEnvironment(new UserEnvironment("de_DE.UTF-8", "Europe/Berlin"));

/// 2026-11-16T20:10:58Z
constexpr DateTime evening{milliseconds{1794859858000}};

TEST(DateFormat, ShowsTheUsersLocaleAndTimeZone) {
  EXPECT_EQ(mediumDateShortTime(evening), "16.11.2026, 21:10");
  EXPECT_EQ(clockTime(evening), "21:10:58");
  EXPECT_EQ(clockTime(evening + std::chrono::hours(3)), "00:10:58") << "the day after";
}

TEST(DateFormat, FollowsTheVariablesOfPosix) {
  struct Row {
    const char *all, *time, *lang, *date;
  };
  const char *german = "16.11.2026, 21:10", *english = "Nov 16, 2026, 9:10 PM";
  for (const auto& [all, time, lang, date] :
       {Row{"de_DE.UTF-8", "en_US", "en_US", german}, Row{"", "de_DE@euro", "en_US", german},
        Row{"", "en_US.UTF-8", "de_DE", english}, Row{"", "", "de", german},
        Row{"", "", "", english}, Row{"C.UTF-8", "de_DE", "de_DE", english},
        Row{"", "POSIX", "de_DE", english}, Row{"", "", "not a locale", english}}) {
    setenv("LC_ALL", all, 1);
    setenv("LC_TIME", time, 1);
    setenv("LANG", lang, 1);
    EXPECT_EQ(mediumDateShortTime(evening), date) << all << ' ' << time << ' ' << lang;
  }
  setenv("LC_ALL", "de_DE.UTF-8", 1);
}

TEST(DateFormat, WritesUtcForMachines) {
  EXPECT_EQ(iso8601(evening + milliseconds(999)), "2026-11-16T20:10:58Z");
  EXPECT_EQ(iso8601Milliseconds(evening + milliseconds(7)), "2026-11-16T20:10:58.007Z");
  EXPECT_EQ(iso8601Milliseconds(DateTime(milliseconds(-1))), "1969-12-31T23:59:59.999Z");
}

TEST(DateFormat, ReadsInstants) {
  EXPECT_EQ(parseIso8601("2026-11-16T20:10:58Z"), evening);
  EXPECT_EQ(parseIso8601("2026-11-16T14:40:58-05:30"), evening);
  EXPECT_EQ(parseIso8601("2026-11-16T20:10:58.250Z"), evening + milliseconds(250));
  EXPECT_EQ(parseIso8601("2026-11-16T20:10:58.5Z"), evening + milliseconds(500));
}

TEST(DateFormat, RefusesEverythingElse) {
  for (const char* text :
       {"", "now", "2026-11-16", "2026-11-16T20:10:58", "2026-02-29T00:00:00Z",
        "2026-13-01T00:00:00Z", "2026-11-16T25:00:00Z", "2026-11-16T20:10:60Z",
        "2026-11-16T20:10:58Zulu", " 2026-11-16T20:10:58Z", "2026-11-16 20:10:58Z",
        "2026-1-6T02:01:05Z", "٢٠٢٦-11-16T20:10:58Z", "2026-11-16T20:10:58.Z"}) {
    EXPECT_EQ(parseIso8601(text), std::nullopt) << text;
  }
}

}  // namespace
}  // namespace mirvane::text
