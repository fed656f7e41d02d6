#include "views/report_saver.h"

#include <QCoreApplication>

#include "files/whole_file.h"
#include "session/results_report.h"
#include "text/date_format.h"
#include "views/study_dialog.h"

namespace mirvane {
namespace {

QString tr(const char* text) {
  return QCoreApplication::translate("ReportSaver", text);
}

std::string suggestedFileName(Clock::DateTime now) {
  QString time = QString::fromStdString(text::iso8601(now));
  return QStringLiteral("MirvaneTest_%1.txt").arg(time.replace(u':', u'-')).toStdString();
}

void showSaveError(const QString& message, QWidget& window) {
  auto* const alert = new StudyDialog(
      {QStringLiteral("exclamationmark.triangle.fill"), tr("Could not save result file"),
       message.isEmpty() ? tr("Unknown error") : message},
      &window);
  alert->setObjectName(QStringLiteral("saveErrorAlert"));
  alert->addChoice(tr("OK"), StudyDialog::ChoiceRole::safe);
  alert->open();
}

}  // namespace

std::optional<std::filesystem::path> ReportSaver::save(const SessionSnapshot& session1,
                                                       const SessionSnapshot& session2,
                                                       QWidget& window) const {
  auto path = services_.savePanel.run(
      {suggestedFileName(services_.clock.now()), tr("Save").toStdString(),
       tr("Save result and send to %1").arg(services_.contactAddress).toStdString()});
  if (!path) return std::nullopt;
  const auto report = resultsReportText(session1, session2, services_.clock.now());
  if (const auto failure = writeWholeFile(services_.files, *path, report)) {
    showSaveError(QString::fromLocal8Bit(failure.message().c_str()), window);
    return std::nullopt;
  }
  if (services_.onSaved) services_.onSaved();
  return path;
}

}  // namespace mirvane
