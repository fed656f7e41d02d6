#include "language/english_language.h"

#include <filesystem>
#include <string_view>

#include "language/dictionary.h"
#include "language/mapped_word_embedding.h"
#include "language/word_tagger.h"

namespace mirvane {

namespace {

// An empty path, which no file has, when the resource is missing.
std::filesystem::path dataFile(const Bundle& bundle, std::string_view name) {
  return bundle.pathForResource(name, "bin", "Language").value_or(std::filesystem::path());
}

}  // namespace

EnglishLanguage loadEnglishLanguage(const Bundle& bundle) {
  return {std::make_unique<Dictionary>(dataFile(bundle, "dictionary")),
          std::make_unique<WordTagger>(dataFile(bundle, "tags")),
          MappedWordEmbedding::open(dataFile(bundle, "embedding"))};
}

}  // namespace mirvane
