#pragma once

#include <string_view>

namespace mirvane {

/// English words as points: near ones occur in similar text.
class WordEmbedding {
 public:
  WordEmbedding() = default;
  WordEmbedding(const WordEmbedding&) = delete;
  WordEmbedding& operator=(const WordEmbedding&) = delete;
  virtual ~WordEmbedding() = default;

  /// Cosine distance of two lower-case words, 0 to 2; exactly 2 when either is unknown.
  [[nodiscard]] virtual double distance(std::string_view a, std::string_view b) const = 0;
};

}  // namespace mirvane
