#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "analyse/typed_field.h"
#include "analyse/typed_session.h"

namespace mirvane {

/// What a correction was applied to.
struct CorrectedPlace {
  /// The keys of the word; empty when the text did not end with that word.
  TypedField::KeyNumbers word = {};
  /// The keys that had been typed and not erased by then.
  TypedField::KeyNumbers keysThen = {};
  /// The first key after it that made the text longer than it was then.
  std::optional<std::size_t> continuedBy = {};
};

/// How the text of a session came about: its keys and corrections played in order, with the caret
/// at the end throughout.
struct TypingCourse {
  std::string text = {};              ///< what stands in the field at the end
  TypedField::KeyNumbers typed = {};  ///< the keys of what the fingers left
  std::vector<bool> isErased = {};    ///< per key: it typed a character that was erased
  /// Per key: the key to whose right it typed.
  std::vector<std::optional<std::size_t>> typedAfter = {};
  std::vector<CorrectedPlace> corrections = {};  ///< one per correction
};

[[nodiscard]] TypingCourse followTyping(const TypedSession& session);

}  // namespace mirvane
