#include "support/shipped_resources.h"

#include "language/english_language.h"

namespace mirvane {

struct ShippedResources::English {
  explicit English(const Bundle& bundle)
      : language(loadEnglishLanguage(bundle)), vocabulary(loadVocabulary(bundle)) {}

  EnglishLanguage language;
  ContextScore::Vocabulary vocabulary;
};

ShippedResources::ShippedResources() : bundle_(standardResourceFolder()) {}

ShippedResources::~ShippedResources() = default;

const TypingConfig& ShippedResources::typingConfig() {
  if (!typingConfig_) typingConfig_ = std::make_unique<TypingConfig>(loadTypingConfig(bundle_));
  return *typingConfig_;
}

LanguageServices ShippedResources::language() {
  if (!english_) english_ = std::make_unique<English>(bundle_);
  const auto& language = english_->language;
  return {*language.spellChecker, language.embedding.get(), *language.tagger, english_->vocabulary};
}

}  // namespace mirvane
