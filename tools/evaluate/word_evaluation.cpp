#include "evaluate/word_evaluation.h"

#include <string>
#include <vector>

#include "evaluate/share.h"
#include "evaluate/tab_separated.h"

namespace mirvane {

nlohmann::ordered_json evaluateWords(const std::filesystem::path& file, ShippedResources& shipped,
                                     const Progress& progress) {
  const auto rows = readTabSeparated(file, 1);
  const auto& spellChecker = shipped.language().spellChecker;
  std::vector<std::string> rejected;
  std::size_t done = 0;
  for (const auto& row : rows) {
    if (!spellChecker.isCorrect(row[0])) rejected.push_back(row[0]);
    progress(++done, rows.size());
  }
  return {{"words", rows.size()},
          {"rejected", share(rejected.size(), rows.size())},
          {"rejectedWords", rejected}};
}

}  // namespace mirvane
