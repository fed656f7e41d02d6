#include "app/study_configuration.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QDir>
#include <QFile>
#include <QStandardPaths>
#include <QTemporaryDir>

#include "app/study_file.h"
#include "platform/simulated/in_memory_bundle.h"

namespace mirvane {
namespace {

/// A study.json in the user's configuration folder, or what stands there under its name.
class DeployedStudy {
 public:
  DeployedStudy() {
    QDir().mkpath(QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation));
    QFile::remove(path);
  }
  ~DeployedStudy() { QFile::remove(path); }
  DeployedStudy(const DeployedStudy&) = delete;
  DeployedStudy& operator=(const DeployedStudy&) = delete;

  void write(const QByteArray& json) const {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(json);
  }

  const QString path = QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation) +
                       QStringLiteral("/study.json");
};

struct ShippedBundle : simulated::InMemoryBundle {
  ShippedBundle() { add("study.json", R"({"contactAddress": "shipped@study.example"})"); }
};

TEST(StudyFile, SetsEverythingThatItNames) {
  StudyConfiguration study;
  const auto problem = applyStudyFile(
      "\xEF\xBB\xBF"
      R"({
    "$schema": "study.schema.json",
    "contactAddress": "team@study.example",
    "prompts": ["One short line.", " Zwei Wörter "],
    "participant": "P-07.b",
    "keepSessionRecord": true,
    "watchOtherPrograms": false,
    "keepUnsavedStudy": false,
    "automaticCorrection": false})",
      study);
  EXPECT_EQ(problem, std::nullopt);
  EXPECT_EQ(study.contactAddress, "team@study.example");
  EXPECT_EQ(study.prompts[0], "One short line.");
  EXPECT_EQ(study.prompts[1], "Zwei Wörter");
  EXPECT_EQ(study.participant, "P-07.b");
  EXPECT_TRUE(study.keepsSessionRecord);
  EXPECT_FALSE(study.watchesOtherPrograms);
  EXPECT_FALSE(study.keepsUnsavedStudy);
  EXPECT_FALSE(study.correctsAutomatically);
}

TEST(StudyFile, LeavesWhatItDoesNotName) {
  StudyConfiguration study;
  EXPECT_EQ(applyStudyFile("{}", study), std::nullopt);
  EXPECT_EQ(study.prompts[0], prompt1);
  EXPECT_EQ(study.prompts[1], prompt2);
  EXPECT_FALSE(study.keepsSessionRecord);
  EXPECT_TRUE(study.watchesOtherPrograms && study.keepsUnsavedStudy && study.correctsAutomatically);
}

TEST(StudyFile, DamageIsNamedAndChangesNothing) {
  struct Row {
    QByteArray json;
    const char* named;
  };
  const Row rows[] = {
      {"", "line 1"},
      {"{\n\"participant\": \"P1\",\n}", "line 3"},
      {"[]", "object"},
      {R"({"contactAddress": 3})", "contactAddress"},
      {R"({"contactAddress": ""})", "contactAddress"},
      {R"({"contactAddress": "a b@c"})", "contactAddress"},
      {R"({"contactAddress": "team@"})", "contactAddress"},
      {R"({"prompts": "One line."})", "prompts"},
      {R"({"prompts": ["One line."]})", "prompts"},
      {R"({"prompts": ["One line.", 2]})", "prompt"},
      {R"({"prompts": ["One line.", "..."]})", "prompt"},
      {R"({"prompts": ["One line.", "two\nlines"]})", "prompt"},
      {R"({"prompts": ["One line.", ")" + QByteArray(2001, 'a') + R"("]})", "prompt"},
      {R"({"participant": "P 1"})", "participant"},
      {R"({"keepSessionRecord": "yes"})", "keepSessionRecord"},
      {R"({"automaticCorrection": 0})", "automaticCorrection"},
      {R"({"contactAdress": "team@study.example"})", "contactAdress"},
  };
  for (const auto& [json, named] : rows) {
    StudyConfiguration study;
    study.participant = "before";
    const auto problem = applyStudyFile(json.toStdString(), study);
    ASSERT_TRUE(problem) << json.constData();
    EXPECT_TRUE(problem->contains(QLatin1String(named))) << problem->toStdString();
    EXPECT_EQ(study.participant, "before") << json.constData();
  }
}

TEST(StudyFile, ParticipantCodesCanStandInFileNames) {
  for (const char* code : {"P07", "a", "1.2_3-x"}) EXPECT_TRUE(isParticipantCode(code)) << code;
  for (const char* code : {"", "-P", "P.", "../P", "P 7", "P/7", "Pé"}) {
    EXPECT_FALSE(isParticipantCode(code)) << code;
  }
  EXPECT_TRUE(isParticipantCode(std::string(64, 'P')));
  EXPECT_FALSE(isParticipantCode(std::string(65, 'P')));
}

TEST(StudyConfiguration, TheDeploymentsFileCountsMoreThanTheShippedOne) {
  const ShippedBundle bundle;
  const DeployedStudy deployed;
  EXPECT_EQ(loadStudy(bundle).configuration.contactAddress, "shipped@study.example");
  deployed.write(R"({"contactAddress": "own@study.example", "participant": "P1"})");
  EXPECT_EQ(loadStudy(bundle).configuration.contactAddress, "own@study.example");
  EXPECT_EQ(loadStudy(bundle).configuration.participant, "P1");
  EXPECT_EQ(loadStudy(bundle, std::nullopt, "P2").configuration.participant, "P2");
}

TEST(StudyConfiguration, ANamedFileStandsInThePlaceOfTheDeployments) {
  const ShippedBundle bundle;
  const DeployedStudy deployed;
  deployed.write(R"({"participant": "P1"})");
  const QTemporaryDir folder;
  const auto path = folder.filePath(QStringLiteral("mine.json"));
  QFile file(path);
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write(R"({"keepSessionRecord": true})");
  file.close();
  const auto study = loadStudy(bundle, path.toStdString());
  EXPECT_TRUE(study.problems.isEmpty());
  EXPECT_EQ(study.configuration.participant, "");
  EXPECT_TRUE(study.configuration.keepsSessionRecord);
}

TEST(StudyConfiguration, AFileThatCannotBeUsedIsAProblem) {
  const ShippedBundle bundle;
  EXPECT_EQ(loadStudy(bundle, "/nowhere/study.json").problems,
            QStringList{QStringLiteral("/nowhere/study.json: cannot be read")});
  const DeployedStudy deployed;
  deployed.write("{");
  ASSERT_EQ(loadStudy(bundle).problems.size(), 1);
  EXPECT_TRUE(loadStudy(bundle).problems.front().startsWith(deployed.path));
  EXPECT_EQ(loadStudy(bundle).configuration.contactAddress, "shipped@study.example");
}

TEST(StudyConfiguration, APipeInThePlaceOfTheFileIsNotWaitedFor) {
  const ShippedBundle bundle;
  const DeployedStudy deployed;
  ASSERT_EQ(mkfifo(deployed.path.toUtf8().constData(), 0600), 0);
  EXPECT_EQ(loadStudy(bundle).problems.size(), 1);
}

TEST(StudyConfiguration, WarnsOfARecordThatIsNotWrittenYet) {
  simulated::InMemoryBundle bundle;
  bundle.add("study.json",
             R"({"contactAddress": "team@study.example", "keepSessionRecord": true})");
  ASSERT_EQ(loadStudy(bundle).warnings.size(), 1);
  EXPECT_TRUE(loadStudy(bundle).warnings.front().contains(QLatin1String("session record")));
}

TEST(StudyConfiguration, WarnsOfTheExampleAddress) {
  simulated::InMemoryBundle bundle;
  bundle.add("study.json", R"({"contactAddress": "study@mirvane.example"})");
  ASSERT_EQ(loadStudy(bundle).warnings.size(), 1);
  EXPECT_TRUE(loadStudy(bundle).warnings.front().contains(QLatin1String("study@mirvane.example")));
  EXPECT_TRUE(loadStudy(ShippedBundle()).warnings.isEmpty());
}

}  // namespace
}  // namespace mirvane
