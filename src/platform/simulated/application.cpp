#include "platform/simulated/application.h"

#include <algorithm>
#include <utility>

namespace mirvane::simulated {

void Application::setBundleIdentifier(std::optional<std::string> identifier) {
  description_.bundleIdentifier = std::move(identifier);
}

TextElement& Application::addElement(ElementKind kind, std::string_view text) {
  const auto& element = elements_.emplace_back(std::make_shared<TextElement>(kind, text));
  focused_ = element;
  return *element;
}

void Application::closeElement(TextElement& element) {
  std::erase_if(elements_, [&](const auto& other) { return other.get() == &element; });
}

void Application::focus(TextElement& element) {
  const auto found = std::find_if(elements_.begin(), elements_.end(),
                                  [&](const auto& other) { return other.get() == &element; });
  if (found != elements_.end()) focused_ = *found;
}

}  // namespace mirvane::simulated
