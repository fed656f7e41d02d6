#include "replay/study_replay.h"

#include <algorithm>
#include <chrono>

#include "replay/recorded_session.h"
#include "session/correction_evaluation.h"
#include "session/results_report.h"
#include "session/study_prompts.h"
#include "text/date_format.h"

namespace mirvane {
namespace {

SessionSnapshot untouchedSession(std::int64_t number, Clock::DateTime start) {
  SessionSnapshot session;
  session.sessionNumber = number;
  session.prompt = number == 1 ? prompt1 : prompt2;
  session.sessionStart = start;
  return session;
}

SessionSnapshot sessionOf(const ReplayedStudy& study, std::int64_t number) {
  const auto found =
      std::find_if(study.sessions.begin(), study.sessions.end(),
                   [&](const auto& session) { return session.sessionNumber == number; });
  return found == study.sessions.end() ? untouchedSession(number, study.end) : *found;
}

Json logEntry(const CorrectionEvent& event, const CorrectionEvaluation& evaluation) {
  return {{"timestamp", text::iso8601Milliseconds(event.timestamp)},
          {"originalWord", event.originalWord},
          {"correctedWord", event.correctedWord},
          {"type", event.type},
          {"confidence", event.confidence},
          {"wordIndex", orNull(event.wordIndex)},
          {"expectedWord", orNull(evaluation.expectedWord)},
          {"isCorrect", orNull(evaluation.isCorrect)}};
}

Json logOf(const SessionSnapshot& session) {
  const auto evaluations =
      evaluateCorrections(session.correctionLog, session.prompt, session.rawTyped);
  Json log = Json::array();
  for (std::size_t i = 0; i < evaluations.size(); ++i) {
    log.push_back(logEntry(session.correctionLog[i], evaluations[i]));
  }
  return log;
}

Json sessionJson(const SessionSnapshot& session) {
  return {{"session", session.sessionNumber},
          {"prompt", session.prompt},
          {"finalText", session.finalText},
          {"rawTyped", session.rawTyped},
          {"elapsed", session.elapsed},
          {"sessionStart", text::iso8601Milliseconds(session.sessionStart)},
          {"keystrokeCount", session.keystrokeCount},
          {"wordsCompleted", session.wordsCompleted},
          {"autoCorrectionCount", session.autoCorrectionCount},
          {"manualCorrectionCount", session.manualCorrectionCount},
          {"cycleKeyCount", session.cycleKeyCount},
          {"nearbyKeyCount", session.nearbyKeyCount},
          {"repeatKeyCount", session.repeatKeyCount},
          {"correctionLog", logOf(session)}};
}

Json feedbackName(const std::optional<FeedbackType>& feedback) {
  if (!feedback) return nullptr;
  switch (*feedback) {
    case FeedbackType::repeatDetected:
      return "repeatDetected";
    case FeedbackType::hesitationDetected:
      return "hesitationDetected";
    case FeedbackType::nearbyKeyDetected:
      return "nearbyKeyDetected";
    case FeedbackType::suggestionShown:
      return "suggestionShown";
    case FeedbackType::suggestionSelected:
      return "suggestionSelected";
  }
  return nullptr;
}

Json recordJson(const std::optional<SuggestionCycler::Record>& record) {
  if (!record) return nullptr;
  return {{"originalWord", record->originalWord},
          {"candidates", record->candidates},
          {"currentIndex", orNull(record->currentIndex)},
          {"currentText", record->currentText},
          {"boundaryCharacter", record->boundaryCharacter},
          {"hasTarget", record->axTarget.has_value()}};
}

Json stateJson(const TypingState& state) {
  return {{"isRepeating", state.isRepeating},
          {"isHesitating", state.isHesitating},
          {"typingScore", state.typingScore},
          {"motorPrior", state.motorPrior}};
}

Json completedWordJson(const std::optional<CompletedTypedWord>& word) {
  if (!word) return nullptr;
  return {word->word, word->boundaryCharacter};
}

Json traceLine(const RecordedEvent& event, const RecordedSession& session) {
  const auto& engine = session.engine();
  const auto& viewModel = engine.typingViewModel();
  const auto& info = *viewModel.typingInfo();
  const auto& buffer = engine.keyInputTracker().typedWordBuffer();
  return {{"t", event.t},
          {"type", nameOf(event.kind)},
          {"suggestions", info.suggestions},
          {"word", info.word},
          {"showSuggestions", info.showSuggestions},
          {"chips", *engine.suggestions()},
          {"cycleIndex", *engine.cycleIndex()},
          {"state", stateJson(*viewModel.typingState())},
          {"feedback", feedbackName(*viewModel.feedbackType())},
          {"currentWord", buffer.currentWord()},
          {"lastCompletedWord", completedWordJson(buffer.lastCompletedWord())},
          {"field", session.field().text()},
          {"caret", session.field().caret()},
          {"record", recordJson(viewModel.suggestionCycler().record)}};
}

}  // namespace

ReplayedStudy replayStudy(const std::vector<Recording>& recordings, ShippedResources& shipped,
                          Clock::DateTime start) {
  ReplayedStudy study{{}, start};
  for (const auto& recording : recordings) {
    RecordedSession session(recording, shipped, study.end);
    session.playAll();
    study.sessions.push_back(session.snapshot());
    study.end = session.end();
  }
  return study;
}

std::string reportOf(const ReplayedStudy& study) {
  return resultsReportText(sessionOf(study, 1), sessionOf(study, 2), study.end);
}

std::string jsonOf(const ReplayedStudy& study) {
  Json sessions = Json::array();
  for (const auto& session : study.sessions) sessions.push_back(sessionJson(session));
  return Json{{"sessions", sessions}}.dump(2);
}

std::string traceOf(const Recording& recording, ShippedResources& shipped, Clock::DateTime start) {
  RecordedSession session(recording, shipped, start);
  std::string lines;
  for (const auto& event : recording.events) {
    session.play(event);
    lines += traceLine(event, session).dump();
    lines += '\n';
  }
  return lines;
}

}  // namespace mirvane
