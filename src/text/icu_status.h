#pragma once

#include <unicode/utypes.h>

namespace mirvane::text {

/// Throws std::runtime_error when a call of ICU has failed: its data is missing or the memory is
/// used up, so that nothing can be done with texts. `what` says what was asked for.
void expectSuccess(UErrorCode status, const char* what);

}  // namespace mirvane::text
