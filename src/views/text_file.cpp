#include "views/text_file.h"

#include <QSaveFile>

namespace mirvane {

std::optional<QString> writeTextFile(const std::filesystem::path& path, const std::string& utf8) {
  QSaveFile file(QString::fromStdString(path.string()));
  if (!file.open(QIODevice::WriteOnly)) return file.errorString();
  file.write(utf8.data(), static_cast<qint64>(utf8.size()));
  if (!file.commit()) return file.errorString();
  return std::nullopt;
}

}  // namespace mirvane
