#include "text/canonical.h"

#include <unicode/bytestream.h>
#include <unicode/normalizer2.h>

#include "text/icu_status.h"
#include "text/scalars.h"

namespace mirvane::text {

bool canonicallyEqual(std::string_view a, std::string_view b) {
  if (a == b) return true;
  if (isAscii(a) && isAscii(b)) return false;
  return canonicalForm(a) == canonicalForm(b);
}

std::string canonicalForm(std::string_view text) {
  if (isAscii(text)) return std::string(text);
  UErrorCode status = U_ZERO_ERROR;
  const icu::Normalizer2* nfc = icu::Normalizer2::getNFCInstance(status);
  expectSuccess(status, "normal form");
  std::string result;
  icu::StringByteSink<std::string> sink(&result);
  nfc->normalizeUTF8(0, text, sink, nullptr, status);
  expectSuccess(status, "normal form of a text");
  return result;
}

}  // namespace mirvane::text
