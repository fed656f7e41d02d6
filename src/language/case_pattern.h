#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace mirvane {

/// How a word of ASCII letters uses capitals.
enum class CasePattern { lower, capitalised, upper, mixed };

/// A single capital counts as capitalised; characters without case fit every pattern.
CasePattern casePatternOf(std::string_view word);

/// A lower-case word in a pattern; `mixed` leaves it as it is.
std::string inCasePattern(std::string word, CasePattern pattern);

char asciiLowerCaseLetter(char letter);
std::string asciiLowerCase(std::string_view word);

}  // namespace mirvane
