#pragma once

#include <memory>

#include "platform/bundle.h"
#include "platform/lexical_tagger.h"
#include "platform/spell_checker.h"
#include "platform/word_embedding.h"

namespace mirvane {

/// The English services of the application.
struct EnglishLanguage {
  std::unique_ptr<SpellChecker> spellChecker;  ///< never null
  std::unique_ptr<LexicalTagger> tagger;       ///< never null
  std::unique_ptr<WordEmbedding> embedding;    ///< null when there is none
};

/// Maps the data files in the folder "Language" of the bundle. A service whose file is missing or
/// damaged knows nothing.
EnglishLanguage loadEnglishLanguage(const Bundle& bundle);

}  // namespace mirvane
