#pragma once

#include <functional>
#include <map>
#include <string>

#include "platform/word_embedding.h"

namespace mirvane::simulated {

/// Distances from a table, symmetric; 2 for a pair that is missing.
class ScriptedWordEmbedding : public WordEmbedding {
 public:
  using Distances = std::map<std::string, double, std::less<>>;

  /// `byPair` names both words with a bar between them: "cat|dog". A key without a bar is ignored.
  explicit ScriptedWordEmbedding(const Distances& byPair = {});

  void set(std::string_view a, std::string_view b, double distance);

  [[nodiscard]] double distance(std::string_view a, std::string_view b) const override;

 private:
  std::map<std::string, Distances, std::less<>> distances_;
};

}  // namespace mirvane::simulated
