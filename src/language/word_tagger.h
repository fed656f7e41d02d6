#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string_view>

#include "language/data_file.h"
#include "language/word_set.h"
#include "platform/lexical_tagger.h"

namespace mirvane {

/// Most usual lexical classes from a data file. Without the file no word has a tag.
class WordTagger : public LexicalTagger {
 public:
  static constexpr DataFileKind fileKind{{'M', 'V', 'T', 'A', 'G', 'S', '\0', '\0'}, 1};

  /// A tagger without tags.
  WordTagger() = default;
  explicit WordTagger(const std::filesystem::path& path);

  [[nodiscard]] std::optional<LexicalClass> tag(std::string_view word) const override;

 private:
  std::optional<DataFile> file_;
  WordSet words_;
  std::span<const std::uint8_t> classes_;  // by slot of the word
};

}  // namespace mirvane
