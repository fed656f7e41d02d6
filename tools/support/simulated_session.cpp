#include "support/simulated_session.h"

namespace mirvane {

SimulatedSession::SimulatedSession(const TypingConfig& config, const LanguageServices& language,
                                   const SimulatedField& field)
    : field_(desktop_.openElement(field.kind, field.text, {field.application, true})),
      settings_(defaults_, desktop_.workspace()),
      suggestionEngine_(config, settings_, language),
      engine_({{desktop_.monitors(), desktop_.workspace(), desktop_.tasks()},
               {config, settings_, suggestionEngine_, desktop_.accessibility(), desktop_.poster(),
                desktop_.clock()}}) {
  engine_.startTracking();
}

}  // namespace mirvane
