#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace mirvane {

/// A key press that typed or erased a character. Its times are absent when only a report tells.
struct TypedKey {
  enum class Effect { types, erases, erasesWord };

  Effect effect = Effect::types;
  std::string text = {};            ///< the one character that it typed
  std::optional<double> t = {};     ///< seconds since the session's start
  std::optional<double> gap = {};   ///< ms since the key press before
  std::optional<double> hold = {};  ///< ms that it was down
  std::uint16_t code = 0;           ///< 0 when not known
  bool isHeldRepeat = false;        ///< the keyboard repeated a key that was held
};

/// A correction or cycle step as the engine logged it.
struct LoggedCorrection {
  std::string kind = {};  ///< one of `correction_type`
  std::string original = {};
  std::string corrected = {};
  std::optional<std::int64_t> wordIndex = {};
  double confidence = 0;         ///< 0: no estimate
  std::optional<double> t = {};  ///< seconds since the session's start
  std::size_t keysBefore = 0;    ///< how many of the session's keys were typed before it
  /// What the report says of it; the outer absence: there is no report.
  struct Verdict {
    std::optional<std::string> expected = {};
    std::optional<bool> isRight = {};
  };
  std::optional<Verdict> verdict = {};
};

/// Figures that only a report has.
struct ReportedFigures {
  double elapsed = 0;  ///< seconds
  double wpm = 0;
  std::optional<double> kspc = {};
  std::int64_t correctFixes = 0;
  std::int64_t incorrectFixes = 0;
};

/// One session as it was typed, wherever that is known from.
struct TypedSession {
  std::int64_t number = 1;  ///< 1 or 2
  std::string prompt = {};
  std::string raw = {};  ///< everything typed, control characters included
  std::string finalText = {};
  std::vector<TypedKey> keys = {};
  std::vector<LoggedCorrection> corrections = {};
  std::optional<std::string> start = {};  ///< instant of second 0, ISO 8601
  std::optional<std::int64_t> resets = {};
  bool hasTimes = false;
  std::optional<ReportedFigures> reported = {};
  std::optional<bool> reportMatches = {};
};

/// The key press that a logged character stands for, without its times. Absent for one that
/// changes no text: Escape, Tab, an arrow key.
[[nodiscard]] std::optional<TypedKey> keyOfCharacter(std::string_view character);

}  // namespace mirvane
