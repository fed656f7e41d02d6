#pragma once

#include <cstdint>

namespace mirvane {

/// What it costs to explain one slip of the finger or the mind, in hundredths of an ordinary edit:
/// the likelier the slip, the cheaper. Letters are 'a' to 'z' and the apostrophe, in lower case.
namespace typing_cost {

using Cost = int;

/// `typed` arrived instead of `meant`: cheap for neighbouring keys of the US QWERTY layout and
/// for letters that sound alike.
Cost substitution(char typed, char meant);

/// `typed` arrived without being meant, between `before` and `after` as typed ('\0' at an end).
Cost extraLetter(char typed, char before, char after);

/// `meant` is missing behind the meant letter `before` ('\0' at the start).
Cost missingLetter(char meant, char before);

/// Two neighbouring letters arrived in the wrong order.
Cost swap();

/// Added to any slip on the first letter, which people get right more often than others.
Cost firstLetter();

}  // namespace typing_cost

}  // namespace mirvane
