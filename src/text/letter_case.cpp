#include "text/letter_case.h"

#include <unicode/uchar.h>

#include <algorithm>

#include "text/canonical.h"
#include "text/scalars.h"

namespace mirvane::text {
namespace {

char lowercasedAscii(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 0x20) : c;
}

}  // namespace

void lowercaseInto(std::string_view text, std::string& result) {
  result.clear();
  if (isAscii(text)) {
    result.resize(text.size());
    std::transform(text.begin(), text.end(), result.begin(), lowercasedAscii);
    return;
  }
  for (std::size_t position = 0; position < text.size();) {
    const char32_t scalar = nextScalar(text, position);
    appendScalar(result, static_cast<char32_t>(u_tolower(static_cast<UChar32>(scalar))));
    // The only scalar whose full lower case is longer than its simple one: a capital I with a dot
    // keeps the dot as a combining mark.
    if (scalar == 0x130) appendScalar(result, 0x307);
  }
}

std::string lowercased(std::string_view text) {
  std::string result;
  lowercaseInto(text, result);
  return result;
}

bool equalIgnoringCase(std::string_view a, std::string_view b) {
  if (isAscii(a) && isAscii(b)) {
    return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) {
             return lowercasedAscii(x) == lowercasedAscii(y);
           });
  }
  return canonicallyEqual(lowercased(a), lowercased(b));
}

}  // namespace mirvane::text
