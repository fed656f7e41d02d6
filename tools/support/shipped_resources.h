#pragma once

#include <memory>

#include "model/typing_config.h"
#include "platform/linux/resource_bundle.h"
#include "suggest/context_score.h"
#include "suggest/suggestion_engine.h"

namespace mirvane {

/// The resources that the product ships, each loaded when it is first asked for.
class ShippedResources {
 public:
  ShippedResources();
  ShippedResources(const ShippedResources&) = delete;
  ShippedResources& operator=(const ShippedResources&) = delete;
  ~ShippedResources();

  [[nodiscard]] const TypingConfig& typingConfig();
  [[nodiscard]] LanguageServices language();

 private:
  struct English;

  ResourceBundle bundle_;
  std::unique_ptr<TypingConfig> typingConfig_;
  std::unique_ptr<English> english_;
};

}  // namespace mirvane
