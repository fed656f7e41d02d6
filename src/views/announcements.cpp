#include "views/announcements.h"

#include <QCoreApplication>
#include <utility>

namespace mirvane {
namespace {

QString translated(const char* text) {
  return QCoreApplication::translate("mirvane::Announcements", text);
}

QString words(const CorrectionEvent& event) {
  const auto before = QString::fromStdString(event.originalWord);
  const auto after = QString::fromStdString(event.correctedWord);
  if (event.type == correction_type::cycle) return translated("changed to %1").arg(after);
  if (event.type == correction_type::manual) {
    return translated("%1, replaced by %2").arg(before, after);
  }
  return translated("%1, corrected to %2").arg(before, after);
}

}  // namespace

Announcements::Announcements(SettleTimer& moment, Speak speak)
    : moment_(moment), speak_(std::move(speak)) {
  moment_.onElapsed = [this] { speakAll(); };
}

void Announcements::say(const QString& text) {
  waiting_ << text;
  moment_.restart();
}

void Announcements::speakAll() {
  QString all;
  for (const auto& text : std::exchange(waiting_, {})) {
    if (!all.isEmpty()) all += all.endsWith(u'.') ? QStringLiteral(" ") : QStringLiteral(". ");
    all += text;
  }
  if (!all.isEmpty()) speak_(all);
}

EngineAnnouncements::EngineAnnouncements(const CorrectionEngine& engine,
                                         Announcements& announcements, SettleTimer& pause)
    : engine_(engine),
      announcements_(announcements),
      pause_(pause),
      saidEvents_(engine.measurements().correctionLog.size()),
      subscription_(engine.suggestions().subscribe([this] { follow(); })) {
  pause_.onElapsed = [this] { saySuggestions(); };
}

void EngineAnnouncements::follow() {
  const auto& log = engine_.measurements().correctionLog;
  if (log.size() < saidEvents_) saidEvents_ = 0;  // the session has been reset
  for (; saidEvents_ < log.size(); ++saidEvents_) announcements_.say(words(log[saidEvents_]));
  pause_.restart();
}

void EngineAnnouncements::saySuggestions() {
  const auto& suggestions = *engine_.suggestions();
  if (suggestions == saidSuggestions_) return;
  saidSuggestions_ = suggestions;
  if (suggestions.empty()) return;
  QStringList list;
  for (const auto& suggestion : suggestions) list << QString::fromStdString(suggestion);
  announcements_.say(translated("Suggestions: %1").arg(list.join(QStringLiteral(", "))));
}

}  // namespace mirvane
