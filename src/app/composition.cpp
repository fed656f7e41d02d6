#include "app/composition.h"

namespace mirvane {

Composition::Composition()
    : others_(OtherApplications::connect(tasks_)),
      monitors_(tasks_, clock_, others_.get()),
      workspace_(others_.get()),
      accessibility_(others_.get()),
      keyEventPoster_(tasks_, others_.get()),
      bundle_(standardResourceFolder()),
      defaults_(JsonUserDefaults::standardPath()),
      config_(loadTypingConfig(bundle_)),
      settings_(defaults_, workspace_),
      language_(loadEnglishLanguage(bundle_)),
      vocabulary_(loadVocabulary(bundle_)),
      suggestionEngine_(
          config_, settings_,
          {*language_.spellChecker, language_.embedding.get(), *language_.tagger, vocabulary_}) {}

EngineServices Composition::engineServices() {
  return {{monitors_, workspace_, tasks_},
          {config_, settings_, suggestionEngine_, accessibility_, keyEventPoster_, clock_}};
}

}  // namespace mirvane
