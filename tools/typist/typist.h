#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "recording/recording.h"

namespace mirvane {

/// How somebody types. Times are ms; rates are per character, 0 to 1, unless said otherwise.
struct TypistProfile {
  double medianGap;  ///< between two key presses
  double gapSpread;  ///< sigma of the log-normal distribution of the gaps
  double medianHold;
  double holdSpread;  ///< sigma likewise
  double repeatRate;  ///< a key pressed once or twice too often
  double nearbyRate;  ///< the key beside the meant one
  double missRate;    ///< a letter left out
  double swapRate;    ///< a letter exchanged with the next one
  double hesitationRate;
  double chipRate;   ///< per wrong word of session 1: picks the first chip instead of Space
  double cycleRate;  ///< per wrong word of session 2: presses the cycle key afterwards
};

/// Somebody without motor impairment: about 240 ms a key, held for about 95 ms.
[[nodiscard]] const TypistProfile& steadyProfile();

/// Somebody with a tremor: slower, irregular, keys held for about 150 ms.
[[nodiscard]] const TypistProfile& tremorProfile();

/// A word that a simulated typist had in mind, and what came out.
struct IntendedWord {
  double t;           ///< seconds at which its first key was pressed
  std::string meant;  ///< as in the text
  std::string typed;
};

/// What a simulated typist makes of a text, and the words it meant, in order.
struct TypedText {
  Recording recording;
  std::vector<IntendedWord> words;
};

/// The same for the same seed, on every machine. `session` is 1 or 2. The text must be typeable on
/// a US keyboard; anything else comes as from an input method.
[[nodiscard]] TypedText simulateTyping(std::string_view text, std::int64_t session,
                                       const TypistProfile& profile, std::uint64_t seed);

/// Its recording alone.
[[nodiscard]] Recording typeText(std::string_view text, std::int64_t session,
                                 const TypistProfile& profile, std::uint64_t seed);

}  // namespace mirvane
