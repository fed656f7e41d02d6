#include "analyse/typed_field.h"

#include <algorithm>

#include "session/study_words.h"
#include "text/characters.h"

namespace mirvane {
namespace {

/// The boundary key that ended a word, and what may come with it.
constexpr std::size_t mostCharactersAfterWord = 3;

bool belongsToNoWord(std::string_view character) {
  return normalizedWord(character).empty();
}

void append(TypedField::KeyNumbers& keys, const TypedField::KeyNumbers& more) {
  keys.insert(keys.end(), more.begin(), more.end());
}

}  // namespace

TypedField::KeyNumbers TypedField::press(const TypedKey& key, std::size_t number) {
  switch (key.effect) {
    case TypedKey::Effect::erases:
      return erase();
    case TypedKey::Effect::erasesWord:
      return eraseWord();
    case TypedKey::Effect::types:
      cells_.push_back({key.text, {number}});
  }
  return {};
}

TypedField::KeyNumbers TypedField::erase() {
  if (cells_.empty()) return {};
  auto keys = std::move(cells_.back().keys);
  cells_.pop_back();
  return keys;
}

TypedField::KeyNumbers TypedField::eraseWord() {
  KeyNumbers erased;
  const auto eraseWhile = [&](bool isBetweenWords) {
    while (!cells_.empty() && belongsToNoWord(cells_.back().character) == isBetweenWords) {
      append(erased, erase());
    }
  };
  eraseWhile(true);
  eraseWhile(false);
  return erased;
}

std::optional<TypedField::KeyNumbers> TypedField::correct(std::string_view original,
                                                          std::string_view corrected) {
  const auto before = text::characters(original);
  const auto start = findAtEnd(before);
  if (!start) return std::nullopt;
  const auto first = cells_.begin() + static_cast<std::ptrdiff_t>(*start);
  const auto last = first + static_cast<std::ptrdiff_t>(before.size());

  KeyNumbers word;
  for (auto cell = first; cell != last; ++cell) append(word, cell->keys);

  std::vector<Cell> replacement;
  for (const auto character : text::characters(corrected)) {
    const auto i = replacement.size();
    const bool hasPredecessor = i < before.size();
    replacement.push_back({std::string(character), hasPredecessor
                                                       ? first[static_cast<std::ptrdiff_t>(i)].keys
                                                       : KeyNumbers{}});
  }
  if (replacement.empty()) replacement.emplace_back();
  for (auto i = replacement.size(); i < before.size(); ++i) {
    append(replacement.back().keys, first[static_cast<std::ptrdiff_t>(i)].keys);
  }
  cells_.insert(cells_.erase(first, last), replacement.begin(), replacement.end());
  return word;
}

std::optional<std::size_t> TypedField::findAtEnd(const std::vector<std::string_view>& word) const {
  if (word.empty() || word.size() > cells_.size()) return std::nullopt;
  for (std::size_t after = 0; after <= mostCharactersAfterWord; ++after) {
    if (word.size() + after > cells_.size()) break;
    const auto start = cells_.size() - after - word.size();
    const bool isHere =
        std::equal(word.begin(), word.end(), cells_.begin() + static_cast<std::ptrdiff_t>(start),
                   [](std::string_view character, const Cell& cell) {
                     return text::sameCharacter(character, cell.character);
                   });
    if (isHere) return start;
    const auto next = cells_.size() - after - 1;
    if (!belongsToNoWord(cells_[next].character)) break;
  }
  return std::nullopt;
}

std::string TypedField::text() const {
  std::string text;
  for (const auto& cell : cells_) text += cell.character;
  return text;
}

TypedField::KeyNumbers TypedField::keys() const {
  KeyNumbers keys;
  for (const auto& cell : cells_) append(keys, cell.keys);
  return keys;
}

std::optional<std::size_t> TypedField::lastKey() const {
  for (auto cell = cells_.rbegin(); cell != cells_.rend(); ++cell) {
    if (!cell->keys.empty()) return cell->keys.back();
  }
  return std::nullopt;
}

}  // namespace mirvane
