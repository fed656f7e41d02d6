#pragma once

#include "support/correcting_desktop.h"
#include "support/scripted_english.h"

namespace mirvane {

/// A tracking engine and the study's own window with a text field.
struct SimulatedSession : private ScriptedEnglish, CorrectingDesktop {
  explicit SimulatedSession(const simulated::ScriptedSpellChecker::Script& words = {})
      : ScriptedEnglish({.words = words}), CorrectingDesktop(services()) {}

  CorrectionEngine& operator*() { return engine; }
  CorrectionEngine* operator->() { return &engine; }

  simulated::TextElement& field =
      desktop.openElement(simulated::ElementKind::multiLine, {}, {.isOwn = true});
};

}  // namespace mirvane
