#pragma once

#include <QJsonObject>
#include <QString>

#include "platform/file_system.h"
#include "platform/user_defaults.h"

namespace mirvane {

/// User defaults in one JSON file, replaced as a whole by each store. A file that does not hold a
/// JSON object is put aside under another name and the defaults start empty. If even that fails,
/// and where the file cannot be read, it stays as it is and values are kept for this run only.
class JsonUserDefaults : public UserDefaults {
 public:
  /// The file need not exist; its folder is made at the first store.
  JsonUserDefaults(FileSystem& files, QString path);

  /// In the folder where the desktop keeps the configuration of this user's applications.
  [[nodiscard]] static QString standardPath();

  [[nodiscard]] std::optional<DefaultsValue> object(std::string_view key) const override;
  void set(std::string_view key, DefaultsValue value) override;

 private:
  void load();
  void putAside();
  void save() const;
  [[nodiscard]] std::filesystem::path filePath() const;

  FileSystem& files_;
  QString path_;
  QJsonObject values_;
  bool isStored_ = true;
};

}  // namespace mirvane
