#include "app/study_configuration.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStandardPaths>

namespace mirvane {
namespace {

std::optional<QString> addressInBundle(const Bundle& bundle) {
  const auto path = bundle.pathForResource("study", "json");
  const auto content = path ? bundle.contents(*path) : std::nullopt;
  return content ? contactAddressIn(*content) : std::nullopt;
}

/// The user's own configuration folder is among those searched, before the system's.
std::optional<QString> addressOfDeployment() {
  const auto path =
      QStandardPaths::locate(QStandardPaths::AppConfigLocation, QStringLiteral("study.json"));
  QFile file(path);
  if (path.isEmpty() || !file.open(QIODevice::ReadOnly)) return std::nullopt;
  return contactAddressIn(file.readAll().toStdString());
}

}  // namespace

std::optional<QString> contactAddressIn(std::string_view json) {
  const auto bytes = QByteArray::fromRawData(json.data(), static_cast<qsizetype>(json.size()));
  const auto value =
      QJsonDocument::fromJson(bytes).object().value(QStringLiteral("contactAddress"));
  if (!value.isString() || value.toString().isEmpty()) return std::nullopt;
  return value.toString();
}

StudyConfiguration loadStudyConfiguration(const Bundle& bundle) {
  auto address = addressOfDeployment();
  if (!address) address = addressInBundle(bundle);
  return {address.value_or(QString())};
}

}  // namespace mirvane
