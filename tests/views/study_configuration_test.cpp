#include "app/study_configuration.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QStandardPaths>

#include "platform/simulated/in_memory_bundle.h"

namespace mirvane {
namespace {

TEST(StudyConfiguration, ReadsTheAddressFromTheResources) {
  simulated::InMemoryBundle bundle;
  EXPECT_EQ(loadStudyConfiguration(bundle).contactAddress, "");
  bundle.add("study.json", R"({"contactAddress": "team@study.example"})");
  EXPECT_EQ(loadStudyConfiguration(bundle).contactAddress, "team@study.example");
}

TEST(StudyConfiguration, FindsNoAddressInADamagedFile) {
  for (const char* json :
       {"", "{", "[]", "{\"contactAddress\": 3}", "{\"contactAddress\": \"\"}"}) {
    EXPECT_EQ(contactAddressIn(json), std::nullopt) << json;
  }
}

TEST(StudyConfiguration, PrefersTheDeploymentsOwnFile) {
  simulated::InMemoryBundle bundle;
  bundle.add("study.json", R"({"contactAddress": "shipped@study.example"})");
  const QDir folder(QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation));
  ASSERT_TRUE(folder.mkpath(QStringLiteral(".")));
  QFile file(folder.filePath(QStringLiteral("study.json")));
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write(R"({"contactAddress": "own@study.example"})");
  file.close();
  EXPECT_EQ(loadStudyConfiguration(bundle).contactAddress, "own@study.example");
  file.remove();
}

}  // namespace
}  // namespace mirvane
