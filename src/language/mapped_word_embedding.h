#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <span>
#include <string_view>

#include "language/data_file.h"
#include "language/word_set.h"
#include "platform/word_embedding.h"

namespace mirvane {

/// Word vectors of small whole numbers from a data file.
class MappedWordEmbedding : public WordEmbedding {
 public:
  static constexpr DataFileKind fileKind{{'M', 'V', 'V', 'E', 'C', 'T', 'S', '\0'}, 1};

  /// Null when the file is missing or damaged.
  static std::unique_ptr<MappedWordEmbedding> open(const std::filesystem::path& path);

  [[nodiscard]] double distance(std::string_view a, std::string_view b) const override;

 private:
  explicit MappedWordEmbedding(DataFile file) : file_(std::move(file)) {}

  [[nodiscard]] bool readParts();
  [[nodiscard]] std::span<const std::int8_t> vectorOf(std::size_t row) const {
    return values_.subspan(row * dimensions_, dimensions_);
  }

  DataFile file_;
  WordSet words_;
  std::span<const std::uint16_t> rows_;  // by slot of the word
  std::span<const float> norms_;         // Euclidean lengths, by row
  std::span<const std::int8_t> values_;  // row after row
  std::size_t dimensions_ = 0;
};

}  // namespace mirvane
