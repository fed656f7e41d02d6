#include "support/correcting_desktop.h"

#include <algorithm>
#include <cstdio>
#include <utility>

#include "platform/key_codes.h"

namespace mirvane {

CorrectingDesktop::CorrectingDesktop(const LanguageServices& language, TypingConfig parameters)
    : config(std::move(parameters)),
      suggestionEngine(config, settings, language),
      engine({{desktop.monitors(), desktop.workspace(), desktop.tasks()},
              {config, settings, suggestionEngine, desktop.accessibility(), desktop.poster(),
               desktop.clock()}}) {
  engine.startTracking();
}

bool CorrectingDesktop::cycle() {
  const bool hasStepped = cycler().cycle();
  desktop.settle();
  return hasStepped;
}

void CorrectingDesktop::pick(const std::string& suggestion) {
  viewModel().applySuggestion(suggestion);
  desktop.settle();
}

std::vector<std::string> CorrectingDesktop::log() const {
  std::vector<std::string> entries;
  for (const auto& event : engine.measurements().correctionLog) {
    char confidence[16];
    std::snprintf(confidence, sizeof(confidence), "%.2f", event.confidence);
    entries.push_back(event.originalWord + '>' + event.correctedWord + ' ' + event.type + ' ' +
                      confidence);
  }
  return entries;
}

std::ptrdiff_t CorrectingDesktop::postedBackspaces() {
  const auto& posted = desktop.poster().posted();
  return std::count_if(posted.begin(), posted.end(), [](const SynthesizedKey& key) {
    return key.isDown && key.keyCode == keycode::deleteKey;
  });
}

}  // namespace mirvane
