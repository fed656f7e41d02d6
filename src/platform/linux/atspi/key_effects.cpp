#include "platform/linux/atspi/key_effects.h"

#include <algorithm>
#include <utility>

#include "text/scalars.h"

namespace mirvane {
namespace {

constexpr std::size_t mostPending = 64;

bool isEffect(const KeyEffects::Change& change, std::string_view typed) {
  if (typed == "\x7F") return !change.isInsertion;
  // An editor may indent the new line as well.
  if (typed == "\r") return change.isInsertion && change.text.starts_with('\n');
  if (!change.isInsertion) return false;
  // Qt announces the whole paragraph anew for a letter composed by its input method.
  return change.text == typed || (!text::isAscii(typed) && change.text.ends_with(typed));
}

}  // namespace

KeyEffects::Id KeyEffects::expect(Application application, std::string_view text,
                                  Clock::time_point pressedAt) {
  Key key{Id{++lastId_}, application, std::string(text), pressedAt};
  const Id id = key.id;
  if (takeEarlyChange(key)) return id;
  pending_.push_back(std::move(key));
  if (pending_.size() > mostPending) pending_.pop_front();
  return id;
}

bool KeyEffects::takeEarlyChange(const Key& key) {
  const auto found = std::find_if(early_.begin(), early_.end(), [&](const EarlyChange& early) {
    return early.application == key.application && early.time >= key.pressedAt &&
           isEffect(early.change, key.text);
  });
  if (found == early_.end()) return false;
  early_.erase(early_.begin(), found + 1);
  giveUp(key.application, key.pressedAt);
  return true;
}

void KeyEffects::note(Application application, Change change, Clock::time_point time) {
  const auto found = std::find_if(pending_.begin(), pending_.end(), [&](const Key& key) {
    return key.application == application && isEffect(change, key.text);
  });
  if (found == pending_.end()) {
    early_.push_back({application, std::move(change), time});
    if (early_.size() > mostPending) early_.pop_front();
    return;
  }
  const Id shown = found->id;
  std::erase_if(pending_,
                [&](const Key& key) { return key.application == application && key.id <= shown; });
}

bool KeyEffects::isShown(Id id) const {
  return std::none_of(pending_.begin(), pending_.end(),
                      [&](const Key& key) { return key.id == id; });
}

void KeyEffects::giveUp(Application application, Clock::time_point time) {
  std::erase_if(pending_, [&](const Key& key) {
    return key.application == application && key.pressedAt < time;
  });
}

}  // namespace mirvane
