#pragma once

#include <string>
#include <unordered_set>
#include <utility>
#include <vector>

#include "text/canonical.h"

namespace mirvane {

/// A list of texts in order of arrival, each one once (canonically equivalent texts are one).
class UniqueTexts {
 public:
  void add(std::string text) {
    if (seen_.insert(text::canonicalForm(text)).second) texts_.push_back(std::move(text));
  }

  [[nodiscard]] std::vector<std::string> take() { return std::move(texts_); }

 private:
  std::vector<std::string> texts_;
  std::unordered_set<std::string> seen_;
};

}  // namespace mirvane
