#include "app/study_configuration.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include "app/study_file.h"

namespace mirvane {
namespace {

/// The address of the file that is shipped: nobody reads what is sent there.
constexpr const char* placeholderAddress = "study@mirvane.example";

QString tr(const char* text) {
  return QCoreApplication::translate("StudyConfiguration", text);
}

/// The user's own folder comes before the system's. What stands there under the name counts, be it
/// a file or not: a study must not run with other settings than its team believes.
std::optional<QString> fileOfDeployment() {
  for (const auto& folder : QStandardPaths::standardLocations(QStandardPaths::AppConfigLocation)) {
    const QFileInfo entry(folder + QStringLiteral("/study.json"));
    if (entry.exists() || entry.isSymLink()) return entry.filePath();
  }
  return std::nullopt;
}

/// Bounded, and from regular files only: reading from a pipe would wait for good.
std::optional<std::string> contentsOf(const QString& path) {
  constexpr qint64 mostBytes = 1 << 20;
  QFile file(path);
  if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly)) return std::nullopt;
  const auto bytes = file.read(mostBytes + 1);
  if (bytes.size() > mostBytes || file.error() != QFileDevice::NoError) return std::nullopt;
  return bytes.toStdString();
}

void apply(const QString& path, LoadedStudy& study) {
  const auto contents = contentsOf(path);
  const auto problem = contents ? applyStudyFile(*contents, study.configuration)
                                : std::optional(tr("cannot be read"));
  if (problem) study.problems << QStringLiteral("%1: %2").arg(path, *problem);
}

void warnOfMissingRecord(LoadedStudy& study) {
  if (!study.configuration.keepsSessionRecord) return;
  study.warnings << tr(
      "The study file asks for a session record, which this version does not "
      "write yet. Only the report will be saved.");
}

void warnOfPlaceholder(LoadedStudy& study) {
  if (study.configuration.contactAddress != QLatin1String(placeholderAddress)) return;
  study.warnings << tr("The results will be sent to %1, which is only an example. Set the study "
                       "team's own address in study.json before a participant begins.")
                        .arg(study.configuration.contactAddress);
}

}  // namespace

LoadedStudy loadStudy(const Bundle& bundle, const std::optional<std::filesystem::path>& file,
                      const std::optional<std::string>& participant) {
  LoadedStudy study;
  const auto shipped = bundle.pathForResource("study", "json");
  const auto contents = shipped ? bundle.contents(*shipped) : std::nullopt;
  if (contents) {
    if (const auto problem = applyStudyFile(*contents, study.configuration)) {
      study.problems << QStringLiteral("%1: %2").arg(QString::fromStdString(shipped->string()),
                                                     *problem);
    }
  }
  if (file) {
    apply(QString::fromStdString(file->string()), study);
  } else if (const auto deployed = fileOfDeployment()) {
    apply(*deployed, study);
  }
  if (participant) study.configuration.participant = *participant;
  warnOfMissingRecord(study);
  warnOfPlaceholder(study);
  return study;
}

}  // namespace mirvane
