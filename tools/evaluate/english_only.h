#pragma once

#include "model/user_settings.h"
#include "platform/simulated/in_memory_user_defaults.h"
#include "platform/simulated/in_memory_workspace.h"
#include "suggest/suggestion_engine.h"
#include "support/shipped_resources.h"

namespace mirvane {

/// The suggestion engine on the shipped resources, with default settings and without a desktop.
struct EnglishOnly {
  explicit EnglishOnly(ShippedResources& shipped)
      : config(shipped.typingConfig()),
        settings(defaults, workspace),
        engine(config, settings, shipped.language()) {}

  simulated::InMemoryUserDefaults defaults;
  simulated::InMemoryWorkspace workspace;
  const TypingConfig& config;
  UserSettings settings;
  SuggestionEngine engine;
};

}  // namespace mirvane
