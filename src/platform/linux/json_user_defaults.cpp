#include "platform/linux/json_user_defaults.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QStandardPaths>
#include <utility>

#include "files/whole_file.h"

namespace mirvane {
namespace {

QString toQString(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// Stands for a value of a type that is never stored here, edited into the file by hand: a list of
/// a list, which nobody asks for.
DefaultsValue somethingElse() {
  return {std::vector<DefaultsValue>{{std::vector<DefaultsValue>{}}}};
}

std::optional<DefaultsValue> fromJson(const QJsonValue& json) {
  switch (json.type()) {
    case QJsonValue::Bool:
      return DefaultsValue{json.toBool()};
    case QJsonValue::Double:
      return DefaultsValue{json.toDouble()};
    case QJsonValue::String:
      return DefaultsValue{json.toString().toStdString()};
    case QJsonValue::Array: {
      std::vector<DefaultsValue> values;
      for (const auto& entry : json.toArray()) {
        values.push_back(fromJson(entry).value_or(somethingElse()));
      }
      return DefaultsValue{std::move(values)};
    }
    case QJsonValue::Object:
      return somethingElse();
    default:
      return std::nullopt;
  }
}

struct ToJson {
  QJsonValue operator()(bool value) const { return value; }
  QJsonValue operator()(double value) const { return value; }
  QJsonValue operator()(const std::string& value) const { return toQString(value); }
  QJsonValue operator()(const std::vector<DefaultsValue>& values) const {
    QJsonArray array;
    for (const auto& entry : values) array.append(std::visit(*this, entry.value));
    return array;
  }
};

}  // namespace

JsonUserDefaults::JsonUserDefaults(FileSystem& files, QString path)
    : files_(files), path_(std::move(path)) {
  load();
}

QString JsonUserDefaults::standardPath() {
  return QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation) +
         QStringLiteral("/defaults.json");
}

void JsonUserDefaults::load() {
  removeUnfinishedFiles(files_, filePath().parent_path());
  std::error_code error;
  const auto content = readWholeFile(files_, filePath(), error);
  if (!content) {
    // What cannot be read may hold settings all the same: it is not written over.
    isStored_ = error == std::errc::no_such_file_or_directory;
    return;
  }
  const auto document = QJsonDocument::fromJson(QByteArray::fromStdString(*content));
  if (document.isObject()) {
    values_ = document.object();
  } else {
    putAside();
  }
}

void JsonUserDefaults::putAside() {
  const QString base = path_ + QStringLiteral(".damaged");
  QString name = base;
  for (int number = 2; QFileInfo::exists(name); ++number) {
    name = base + QLatin1Char('-') + QString::number(number);
  }
  isStored_ = QFile::rename(path_, name);
}

std::optional<DefaultsValue> JsonUserDefaults::object(std::string_view key) const {
  return fromJson(values_.value(toQString(key)));
}

void JsonUserDefaults::set(std::string_view key, DefaultsValue value) {
  values_.insert(toQString(key), std::visit(ToJson{}, value.value));
  if (isStored_) save();
}

void JsonUserDefaults::save() const {
  QDir().mkpath(QFileInfo(path_).path());
  // Where it cannot be written the value is kept for this run, and what was stored stays as it is.
  (void)writeWholeFile(files_, filePath(), QJsonDocument(values_).toJson().toStdString());
}

std::filesystem::path JsonUserDefaults::filePath() const {
  return QFile::encodeName(path_).toStdString();
}

}  // namespace mirvane
