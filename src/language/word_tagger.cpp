#include "language/word_tagger.h"

#include <algorithm>
#include <array>

#include "language/case_pattern.h"

namespace mirvane {

WordTagger::WordTagger(const std::filesystem::path& path) : file_(DataFile::open(path, fileKind)) {
  if (!file_) return;
  PayloadReader payload(file_->payload());
  const auto words = WordSet::read(payload);
  const auto classes = payload.next<std::uint8_t>();
  if (!words || !classes || classes->size() != words->slotCount()) return;
  words_ = *words;
  classes_ = *classes;
}

std::optional<LexicalClass> WordTagger::tag(std::string_view word) const {
  if (word.size() > WordSet::longestWord) return std::nullopt;
  std::array<char, WordSet::longestWord> lower;
  std::ranges::transform(word, lower.begin(), asciiLowerCaseLetter);
  const auto slot = words_.slotOf({lower.data(), word.size()});
  if (!slot || classes_[*slot] > static_cast<std::uint8_t>(LexicalClass::other)) {
    return std::nullopt;
  }
  return static_cast<LexicalClass>(classes_[*slot]);
}

}  // namespace mirvane
