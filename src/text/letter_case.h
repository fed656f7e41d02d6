#pragma once

#include <string>
#include <string_view>

// May be called from any thread at any time: nothing is shared.
namespace mirvane::text {

/// Full Unicode lower case, scalar by scalar: locale-independent, and without the rule that gives
/// a sigma at the end of a word another form.
[[nodiscard]] std::string lowercased(std::string_view text);

/// The same, into a string whose storage is reused. `text` may not lie inside `result`.
void lowercaseInto(std::string_view text, std::string& result);

/// True when both texts are canonically equal after lower-casing.
[[nodiscard]] bool equalIgnoringCase(std::string_view a, std::string_view b);

}  // namespace mirvane::text
