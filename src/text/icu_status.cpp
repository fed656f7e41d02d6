#include "text/icu_status.h"

#include <stdexcept>
#include <string>

namespace mirvane::text {

void expectSuccess(UErrorCode status, const char* what) {
  if (U_SUCCESS(status)) return;
  throw std::runtime_error(std::string("ICU has no ") + what + ": " + u_errorName(status));
}

}  // namespace mirvane::text
