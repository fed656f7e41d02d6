#include "platform/linux/atspi/text_changes.h"

#include <algorithm>
#include <utility>

namespace mirvane {
namespace {

constexpr std::size_t mostChanges = 64;

bool isEffectOf(const TextChanges::Change& change, std::string_view typed) {
  if (typed == "\x7F") return !change.isInsertion;
  // An editor may indent the new line as well.
  if (typed == "\r") return change.isInsertion && change.text.starts_with('\n');
  return change.isInsertion && change.text == typed;
}

}  // namespace

void TextChanges::add(Change change) {
  changes_.push_back(std::move(change));
  if (changes_.size() > mostChanges) changes_.pop_front();
}

bool TextChanges::takeChangeOf(Application application, std::string_view text) {
  const auto found = std::find_if(changes_.begin(), changes_.end(), [&](const Change& change) {
    return change.application == application && isEffectOf(change, text);
  });
  if (found == changes_.end()) return false;
  changes_.erase(changes_.begin(), found + 1);
  return true;
}

}  // namespace mirvane
