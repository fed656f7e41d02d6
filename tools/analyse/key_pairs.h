#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "analyse/typed_session.h"
#include "analyse/typing_course.h"
#include "suggest/nearby_keys.h"

namespace mirvane {

enum class Slip {
  none,
  letterCase,
  nearby,
  substitution,
  transposition,
  repeat,
  insertion,
  omission,
};

[[nodiscard]] std::string_view nameOf(Slip slip);

/// A character that was meant and the key pressed for it.
struct KeyPair {
  std::string meant = {};               ///< empty for an insertion
  std::optional<std::size_t> key = {};  ///< number of the key; absent for an omission
  Slip slip = Slip::none;
  bool isErased = false;
};

/// The keys of a session in the order typed, each with the character of the prompt that it was
/// meant for, and the characters left out. What was erased is aligned with the prompt from where it
/// was typed (Wobbrock & Myers 2006). Throws a `std::runtime_error` for texts too long to compare.
[[nodiscard]] std::vector<KeyPair> pairKeys(const TypedSession& session, const TypingCourse& course,
                                            const NearbyKeys& nearbyKeys);

}  // namespace mirvane
