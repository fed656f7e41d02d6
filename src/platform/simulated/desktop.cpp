#include "platform/simulated/desktop.h"

#include <algorithm>
#include <utility>

#include "text/characters.h"

namespace mirvane::simulated {

Application& Desktop::openApplication(Application::Description description) {
  Application& application = workspace_.addApplication(std::move(description));
  workspace_.activate(application);
  settle();
  return application;
}

TextElement& Desktop::openElement(ElementKind kind, std::string_view text,
                                  Application::Description application) {
  return openApplication(std::move(application)).addElement(kind, text);
}

void Desktop::advanceTo(double monotonicSeconds) {
  settle();
  for (auto next = keyboard_.nextRepeat(); next && *next <= monotonicSeconds;
       next = keyboard_.nextRepeat()) {
    clock_.advanceTo(*next);
    keyboard_.repeatHeldKey();
    settle();
  }
  clock_.advanceTo(monotonicSeconds);
}

void Desktop::strike(const KeyStroke& key, TypingRhythm rhythm) {
  const double pressedAt = clock_.monotonicSeconds();
  keyboard_.press(key);
  advanceTo(pressedAt + std::min(rhythm.hold, rhythm.gap));
  keyboard_.release(key);
  advanceTo(pressedAt + rhythm.gap);
}

void Desktop::type(std::string_view text, TypingRhythm rhythm) {
  for (const auto character : text::characters(text)) strike(keyStrokeOrText(character), rhythm);
}

}  // namespace mirvane::simulated
