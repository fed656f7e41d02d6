#include "platform/linux/json_user_defaults.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

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

  QTemporaryDir folder;
  QString path = folder.filePath(QStringLiteral("defaults.json"));
};

TEST_F(JsonUserDefaultsTest, GivesBackEveryTypeInTheNextRun) {
  const DefaultsValue list{std::vector<DefaultsValue>{{std::string("Straße")}, {1.5}, {true}}};
  {
    JsonUserDefaults defaults(folder.filePath(QStringLiteral("deep/down/defaults.json")));
    defaults.set("boolean", {false});
    defaults.set("number", {1.0});
    defaults.set("text", {std::string("1")});
    defaults.set("list", list);
  }
  const JsonUserDefaults next(folder.filePath(QStringLiteral("deep/down/defaults.json")));
  EXPECT_EQ(next.object("boolean"), DefaultsValue{false});
  EXPECT_EQ(next.object("number"), DefaultsValue{1.0});
  EXPECT_EQ(next.object("text"), DefaultsValue{std::string("1")});
  EXPECT_EQ(next.object("list"), list);
  EXPECT_EQ(next.object("absent"), std::nullopt);
}

TEST_F(JsonUserDefaultsTest, PutsADamagedFileAsideAndNeverOverwritesIt) {
  for (const char* damage : {"{\"allowList\": [", "[1, 2]"}) {
    writeFile(damage);
    JsonUserDefaults defaults(path);
    EXPECT_EQ(defaults.object("allowList"), std::nullopt);
    defaults.set("isAutoCorrectionEnabled", {true});
  }
  EXPECT_EQ(readFile(QStringLiteral("defaults.json.damaged")), "{\"allowList\": [");
  EXPECT_EQ(readFile(QStringLiteral("defaults.json.damaged-2")), "[1, 2]");
  EXPECT_EQ(JsonUserDefaults(path).object("isAutoCorrectionEnabled"), DefaultsValue{true});
}

TEST_F(JsonUserDefaultsTest, KeepsValuesForThisRunWhereNothingCanBeStored) {
  JsonUserDefaults defaults(QStringLiteral("/proc/mirvanetest/defaults.json"));
  defaults.set("isAutoCorrectionEnabled", {false});
  EXPECT_EQ(defaults.object("isAutoCorrectionEnabled"), DefaultsValue{false});
}

// An array with a value of a foreign type must not pass for an array of strings.
TEST_F(JsonUserDefaultsTest, KeepsThePlaceOfValuesItCannotHold) {
  writeFile(R"({"allowList": ["one", null, {"a": 1}], "object": {}, "nothing": null})");
  const JsonUserDefaults defaults(path);
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
