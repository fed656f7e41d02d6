#include "platform/linux/atspi/key_effects.h"

#include <algorithm>
#include <utility>

#include "platform/linux/field_text.h"
#include "text/scalars.h"
#include "text/utf16.h"

namespace mirvane {
namespace {

constexpr std::size_t mostPending = 64;
/// A longer change that fits no key at once is no key's.
constexpr std::size_t longestEffect = 64;  // bytes

std::string asPlain(std::string_view text) {
  return text::toUtf8(withPlainSpaces(text::toUtf16(text)));
}

/// What an application inserts for a key.
std::string_view insertionOf(std::string_view typed) {
  return typed == "\r" ? "\n" : typed;
}

/// How much of `inserted` is the effect of a key that inserts `insertion`; 0 when it begins with
/// something else than that or a space before it.
std::size_t effectLength(std::string_view inserted, std::string_view insertion) {
  const std::size_t start = inserted.starts_with(insertion) ? 0 : 1;
  const bool isEffect =
      start == 0 || (inserted.starts_with(' ') && inserted.substr(start).starts_with(insertion));
  return isEffect ? start + insertion.size() : 0;
}

bool isEffect(const KeyEffects::Change& change, std::string_view typed) {
  if (typed == "\x7F") return !change.isInsertion;
  // An editor may indent the new line as well.
  if (typed == "\r") {
    return change.isInsertion &&
           (change.text.starts_with('\n') || change.text.starts_with("\uFFFC"));
  }
  if (!change.isInsertion) return false;
  // Qt announces the whole paragraph anew for a letter composed by its input method.
  return change.text == typed || (!text::isAscii(typed) && change.text.ends_with(typed));
}

}  // namespace

KeyEffects::Id KeyEffects::expect(Application application, std::string_view text,
                                  Clock::time_point deliveredAt) {
  Key key{Id{++lastId_}, application, asPlain(text), deliveredAt};
  const Id id = key.id;
  if (takeEarlyChange(key)) return id;
  pending_.push_back(std::move(key));
  if (pending_.size() > mostPending) pending_.pop_front();
  return id;
}

bool KeyEffects::takeEarlyChange(const Key& key) {
  const auto insertion = insertionOf(key.text);
  const auto lengthIn = [&](const Change& change) {
    return change.isInsertion ? effectLength(change.text, insertion) : 0;
  };
  const auto found = std::find_if(early_.begin(), early_.end(), [&](const EarlyChange& early) {
    return early.application == key.application && early.time >= key.deliveredAt &&
           (isEffect(early.change, key.text) || lengthIn(early.change) > 0);
  });
  if (found == early_.end()) return false;
  // The rest may be the effect of the next keys.
  const auto length = lengthIn(found->change);
  const bool isWhole = length == 0 || found->change.text.size() == length;
  if (!isWhole) found->change.text.erase(0, length);
  early_.erase(early_.begin(), isWhole ? found + 1 : found);
  giveUp(key.application, key.deliveredAt);
  return true;
}

bool KeyEffects::note(Application application, Change change, Clock::time_point time) {
  change.text = asPlain(change.text);
  if (const auto shown = lastTyped(application, change)) {
    std::erase_if(pending_, [&](const Key& key) {
      return key.application == application && key.id <= *shown;
    });
    return true;
  }
  if (change.text.size() > longestEffect) return false;
  early_.push_back({application, std::move(change), time});
  if (early_.size() > mostPending) early_.pop_front();
  return false;
}

/// The last of the keys that the change is the effect of.
std::optional<KeyEffects::Id> KeyEffects::lastTyped(Application application,
                                                    const Change& change) const {
  for (auto key = pending_.begin(); key != pending_.end(); ++key) {
    if (key->application != application) continue;
    if (isEffect(change, key->text)) return key->id;
    if (!change.isInsertion) continue;
    if (const auto last = lastTypedFrom(key, change.text)) return last;
  }
  return std::nullopt;
}

/// The same for an application that is behind, and does the work of several keys at once.
std::optional<KeyEffects::Id> KeyEffects::lastTypedFrom(
    const std::deque<Key>::const_iterator& first, std::string_view text) const {
  const auto application = first->application;
  for (auto key = first; key != pending_.end(); ++key) {
    if (key->application != application) continue;
    const auto length = effectLength(text, insertionOf(key->text));
    if (length == 0) return std::nullopt;
    text.remove_prefix(length);
    if (text.empty()) return key->id;
  }
  return std::nullopt;
}

bool KeyEffects::isShown(Id id) const {
  return std::none_of(pending_.begin(), pending_.end(),
                      [&](const Key& key) { return key.id == id; });
}

void KeyEffects::giveUp(Application application, Clock::time_point time) {
  std::erase_if(pending_, [&](const Key& key) {
    return key.application == application && key.deliveredAt < time;
  });
}

void KeyEffects::clear() {
  pending_.clear();
  early_.clear();
}

}  // namespace mirvane
