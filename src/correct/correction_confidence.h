#pragma once

#include <string_view>

#include "suggest/known_words.h"
#include "suggest/nearby_keys.h"

namespace mirvane {

/// How sure it is that `candidate` was meant by `typed`, 0 to 1, from the kind of motor error that
/// lies between them. 0 means that none was recognised, or that `typed` is itself a known word.
/// Letter case does not matter.
[[nodiscard]] double correctionConfidence(std::string_view typed, std::string_view candidate,
                                          const KnownWords& knownWords,
                                          const NearbyKeys& nearbyKeys);

/// One key replaced by another: twice its nearby-key probability + 0.5, held within 0 to 1; 0 when
/// more or less than one character differs or the dictionary rejects `b`.
[[nodiscard]] double substitutionScore(std::string_view a, std::string_view b,
                                       const KnownWords& knownWords, const NearbyKeys& nearbyKeys);

/// True when one text has one character more than the other and is the same otherwise, or when
/// exactly one character differs.
[[nodiscard]] bool isSingleInsertionOrDeletion(std::string_view a, std::string_view b);

}  // namespace mirvane
