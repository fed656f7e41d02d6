#include "platform/linux/json_user_defaults.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "platform/linux/posix_file_system.h"
#include "support/faulty_file_system.h"
#include "support/tiny_disk.h"

namespace mirvane {
namespace {

class JsonUserDefaultsTest : public ::testing::Test {
 protected:
  void writeFile(const QByteArray& content) const {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(content);
  }

  [[nodiscard]] QByteArray readFile(const QString& name) const {
    QFile file(folder.filePath(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("missing");
  }

  PosixFileSystem files;
  QTemporaryDir folder;
  QString path = folder.filePath(QStringLiteral("defaults.json"));
};

TEST_F(JsonUserDefaultsTest, GivesBackEveryTypeInTheNextRun) {
  const DefaultsValue list{std::vector<DefaultsValue>{{std::string("Straße")}, {1.5}, {true}}};
  {
    JsonUserDefaults defaults(files, folder.filePath(QStringLiteral("deep/down/defaults.json")));
    defaults.set("boolean", {false});
    defaults.set("number", {1.0});
    defaults.set("text", {std::string("1")});
    defaults.set("list", list);
  }
  const JsonUserDefaults next(files, folder.filePath(QStringLiteral("deep/down/defaults.json")));
  EXPECT_EQ(next.object("boolean"), DefaultsValue{false});
  EXPECT_EQ(next.object("number"), DefaultsValue{1.0});
  EXPECT_EQ(next.object("text"), DefaultsValue{std::string("1")});
  EXPECT_EQ(next.object("list"), list);
  EXPECT_EQ(next.object("absent"), std::nullopt);
}

TEST_F(JsonUserDefaultsTest, PutsADamagedFileAsideAndNeverOverwritesIt) {
  for (const char* damage : {"{\"allowList\": [", "[1, 2]"}) {
    writeFile(damage);
    JsonUserDefaults defaults(files, path);
    EXPECT_EQ(defaults.object("allowList"), std::nullopt);
    defaults.set("isAutoCorrectionEnabled", {true});
  }
  EXPECT_EQ(readFile(QStringLiteral("defaults.json.damaged")), "{\"allowList\": [");
  EXPECT_EQ(readFile(QStringLiteral("defaults.json.damaged-2")), "[1, 2]");
  EXPECT_EQ(JsonUserDefaults(files, path).object("isAutoCorrectionEnabled"), DefaultsValue{true});
}

TEST_F(JsonUserDefaultsTest, KeepsValuesForThisRunWhereNothingCanBeStored) {
  JsonUserDefaults defaults(files, QStringLiteral("/proc/mirvanetest/defaults.json"));
  defaults.set("isAutoCorrectionEnabled", {false});
  EXPECT_EQ(defaults.object("isAutoCorrectionEnabled"), DefaultsValue{false});
}

TEST_F(JsonUserDefaultsTest, LeavesAFileThatCannotBeRead) {
  writeFile(R"({"isAutoCorrectionEnabled": false})");
  FaultyFileSystem locked(files);
  locked.failAt(2, std::errc::permission_denied);
  JsonUserDefaults defaults(locked, path);
  ASSERT_EQ(locked.calls().at(2), "openForReading");
  EXPECT_EQ(defaults.object("isAutoCorrectionEnabled"), std::nullopt);
  defaults.set("isAutoCorrectionEnabled", {true});
  EXPECT_EQ(defaults.object("isAutoCorrectionEnabled"), DefaultsValue{true});
  EXPECT_EQ(readFile(QStringLiteral("defaults.json")), R"({"isAutoCorrectionEnabled": false})");
  EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden),
            QStringList(QStringLiteral("defaults.json")));
}

TEST_F(JsonUserDefaultsTest, WaitsForNobodyWhereAPipeStandsInItsPlace) {
  ASSERT_EQ(mkfifo(path.toUtf8().constData(), 0600), 0);
  JsonUserDefaults defaults(files, path);
  defaults.set("isAutoCorrectionEnabled", {true});
  EXPECT_EQ(defaults.object("isAutoCorrectionEnabled"), DefaultsValue{true});
  struct stat found {};
  EXPECT_EQ(stat(path.toUtf8().constData(), &found), 0);
  EXPECT_TRUE(S_ISFIFO(found.st_mode));
}

TEST_F(JsonUserDefaultsTest, KeepsItsFileOnAFullDisk) {
  const auto done = onTinyDisk(folder.path().toStdString(), "8k", [&] {
    writeFile(R"({"allowList": ["helo"]})");
    JsonUserDefaults defaults(files, path);
    defaults.set("disabledAppBundleIDs", {std::string(16384, 'x')});
    const JsonUserDefaults next(files, path);
    return next.object("allowList").has_value() && !next.object("disabledAppBundleIDs") &&
           readFile(QStringLiteral("defaults.json")) == R"({"allowList": ["helo"]})";
  });
  if (!done) GTEST_SKIP() << "no namespace to mount a small file system in";
  EXPECT_TRUE(*done);
}

TEST_F(JsonUserDefaultsTest, RemovesAtItsStartWhatAKilledProgramLeft) {
  const QString name = QStringLiteral(".mirvanetest-0123456789abcdef.unfinished");
  ASSERT_TRUE(QFile(folder.filePath(name)).open(QIODevice::WriteOnly));
  const JsonUserDefaults defaults(files, path);
  EXPECT_FALSE(QFile::exists(folder.filePath(name)));
}

// An array with a value of a foreign type must not pass for an array of strings.
TEST_F(JsonUserDefaultsTest, KeepsThePlaceOfValuesItCannotHold) {
  writeFile(R"({"allowList": ["one", null, {"a": 1}], "object": {}, "nothing": null})");
  const JsonUserDefaults defaults(files, path);
  const auto list = defaults.object("allowList");
  ASSERT_TRUE(list.has_value());
  EXPECT_EQ(std::get<std::vector<DefaultsValue>>(list->value).size(), 3U);
  const auto object = defaults.object("object");
  ASSERT_TRUE(object.has_value());
  EXPECT_FALSE(std::get<std::vector<DefaultsValue>>(object->value).empty());
  EXPECT_FALSE(defaults.object("nothing").has_value());
}

}  // namespace
}  // namespace mirvane
