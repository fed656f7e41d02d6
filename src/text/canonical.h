#pragma once

#include <string>
#include <string_view>

// May be called from any thread at any time: nothing is shared.
namespace mirvane::text {

/// Equality of texts as people see them: canonically equivalent Unicode strings are equal.
[[nodiscard]] bool canonicallyEqual(std::string_view a, std::string_view b);

/// One spelling for all canonically equivalent texts (NFC), to be used as a table key.
[[nodiscard]] std::string canonicalForm(std::string_view text);

}  // namespace mirvane::text
