#include "correct/text_before.h"

#include <algorithm>

namespace mirvane {
namespace {

/// Holds most words and their neighbours, and costs one round trip.
constexpr std::int64_t firstPiece = 128;

}  // namespace

TextBefore::TextBefore(const AccessibilityElement& element, std::int64_t end)
    : element_(element), start_(end) {
  readMore();
}

bool TextBefore::readMore() {
  const auto length = std::min(start_, std::max(firstPiece, std::int64_t(text_.size())));
  if (length == 0 || hasFailed_) return false;
  const auto piece = element_.text({start_ - length, length});
  hasFailed_ = !piece || std::int64_t(piece->size()) != length;
  if (hasFailed_) return false;
  text_.insert(0, *piece);
  start_ -= length;
  return true;
}

}  // namespace mirvane
