#include "platform/linux/state_journal_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QTemporaryDir>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>

#include "session/journal_writer.h"
#include "support/tiny_disk.h"

namespace mirvane {
namespace {

namespace fs = std::filesystem;
using Claim = JournalFile::Claim;
using testing::ElementsAre;

class StateJournal : public ::testing::Test {
 protected:
  [[nodiscard]] std::string path(const std::string& name) const { return (folder / name).string(); }

  [[nodiscard]] std::vector<std::string> names() const {
    std::vector<std::string> found;
    for (const auto& entry : fs::directory_iterator(folder)) {
      found.push_back(entry.path().filename().string());
    }
    std::sort(found.begin(), found.end());
    return found;
  }

  static unsigned permissions(const std::string& path) {
    struct stat status {};
    return stat(path.c_str(), &status) == 0 ? status.st_mode & 07777U : 0;
  }

  QTemporaryDir home;
  fs::path base = home.path().toStdString();
  fs::path folder = base / "state" / "mirvanetest";
};

TEST_F(StateJournal, IsForItsOwnerAlone) {
  StateJournalFile file(folder.string());
  ASSERT_EQ(file.claim(), Claim::mine);
  EXPECT_EQ(file.contents(), "");
  ASSERT_TRUE(file.append("one\n"));
  ASSERT_TRUE(file.append("two\n"));
  ASSERT_TRUE(file.sync());
  EXPECT_EQ(permissions(folder.string()), 0700U);
  EXPECT_EQ(permissions(path("unsaved-study.jsonl")), 0600U);
  EXPECT_EQ(file.contents(), "one\ntwo\n");
  ASSERT_TRUE(file.cutTo(4));
  ASSERT_TRUE(file.append("three\n"));
  EXPECT_EQ(file.contents(), "one\nthree\n");
  ASSERT_TRUE(file.remove());
  EXPECT_EQ(file.contents(), "");
  EXPECT_TRUE(file.remove());
  EXPECT_TRUE(file.cutTo(0));
}

TEST_F(StateJournal, TightensWhatOthersCouldRead) {
  fs::create_directories(folder);
  fs::permissions(folder, fs::perms(0755));
  std::ofstream(path("unsaved-study.jsonl")) << "kept\n";
  fs::permissions(path("unsaved-study.jsonl"), fs::perms(0644));
  StateJournalFile file(folder.string());
  ASSERT_EQ(file.claim(), Claim::mine);
  EXPECT_EQ(file.contents(), "kept\n");
  EXPECT_EQ(permissions(folder.string()), 0700U);
  EXPECT_EQ(permissions(path("unsaved-study.jsonl")), 0600U);
}

TEST_F(StateJournal, IsClaimedByOneStudyAtATime) {
  auto first = std::make_unique<StateJournalFile>(folder.string());
  ASSERT_EQ(first->claim(), Claim::mine);
  EXPECT_EQ(first->claim(), Claim::mine);
  EXPECT_EQ(StateJournalFile(folder.string()).claim(), Claim::others);
  first.reset();
  EXPECT_EQ(StateJournalFile(folder.string()).claim(), Claim::mine);
}

TEST_F(StateJournal, IsNotLedElsewhere) {
  const auto victim = (base / "victim").string();
  std::ofstream(victim) << "precious";
  fs::create_directories(folder);
  fs::create_symlink(victim, path("unsaved-study.jsonl"));
  StateJournalFile file(folder.string());
  ASSERT_EQ(file.claim(), Claim::mine);
  EXPECT_FALSE(file.contents());
  EXPECT_FALSE(file.append("x"));
  EXPECT_FALSE(file.cutTo(0));
  ASSERT_TRUE(file.setAside());
  EXPECT_EQ(fs::file_size(victim), 8U);
  EXPECT_EQ(file.contents(), "");
  // Nor by a second name of a file, a folder, or a pipe that never ends.
  fs::create_hard_link(victim, path("unsaved-study.jsonl"));
  EXPECT_FALSE(file.append("x"));
  EXPECT_EQ(fs::file_size(victim), 8U);
  fs::remove(path("unsaved-study.jsonl"));
  ASSERT_EQ(mkfifo(path("unsaved-study.jsonl").c_str(), 0600), 0);
  EXPECT_FALSE(file.contents());
  EXPECT_FALSE(file.append("x"));
}

TEST_F(StateJournal, HasNoPlaceInAFolderThatIsALinkOrOfSomebodyElse) {
  fs::create_directories(base / "state");
  fs::create_directories(base / "elsewhere");
  fs::create_directory_symlink(base / "elsewhere", folder);
  EXPECT_EQ(StateJournalFile(folder.string()).claim(), Claim::impossible);
  EXPECT_TRUE(fs::is_empty(base / "elsewhere"));
  fs::remove(folder);
  std::ofstream(folder.string()) << "a file";
  EXPECT_EQ(StateJournalFile(folder.string()).claim(), Claim::impossible);
  fs::remove(folder);
  if (geteuid() != 0) GTEST_SKIP() << "only the administrator can give a folder away";
  fs::create_directory(folder);
  ASSERT_EQ(chown(folder.c_str(), 65534, 65534), 0);
  EXPECT_EQ(StateJournalFile(folder.string()).claim(), Claim::impossible);
}

/// Whether a journal on a disk that is full for a while is a whole state all the time.
bool staysWholeOnAFullDisk(const std::string& folder) {
  StateJournalFile file(folder + "/mirvanetest");
  const StudyHeader header{.program = "1.0"};
  JournalWriter writer(file, header, openJournal(file, header));
  UnsavedStudy study{.savedAt = {}, .step = 2, .sessions = {}};
  const auto store = [&](const std::string& text) {
    study.sessions[0].typedText = text;
    writer.add({{}, study});
    return writer.store();
  };
  const auto kept = [&] {
    const auto journal = parseJournal(file.contents().value_or(""));
    return journal && !journal->isDamaged ? journal->study.sessions[0].typedText.size() : 0;
  };
  const std::string ballast = folder + "/ballast";
  bool isRight = store("a") && kept() == 1;
  std::ofstream(ballast) << std::string(200'000, 'x');
  isRight = isRight && !store(std::string(30'000, 'b')) && kept() == 1;
  isRight = isRight && !store(std::string(31'000, 'c')) && kept() == 1;
  fs::remove(ballast);
  return isRight && writer.store() && kept() == 31'000;
}

TEST_F(StateJournal, StaysWholeOnAFullDiskAndGoesOnWhenThereIsSpace) {
  fs::create_directories(base / "tiny");
  const auto folderOnDisk = (base / "tiny").string();
  const auto isWhole =
      onTinyDisk(folderOnDisk, "64k", [&] { return staysWholeOnAFullDisk(folderOnDisk); });
  if (!isWhole) GTEST_SKIP() << "no file system can be mounted here";
  EXPECT_TRUE(*isWhole);
}

TEST_F(StateJournal, GivesEachThatIsSetAsideANameOfItsOwn) {
  StateJournalFile file(folder.string());
  ASSERT_EQ(file.claim(), Claim::mine);
  for (int i = 0; i < 2; ++i) {
    ASSERT_TRUE(file.append("x"));
    ASSERT_TRUE(file.setAside());
  }
  EXPECT_THAT(names(), ElementsAre("unsaved-study.jsonl.set-aside-1",
                                   "unsaved-study.jsonl.set-aside-2", "unsaved-study.lock"));
}

TEST_F(StateJournal, StandsWhereTheDesktopKeepsTheStateOfPrograms) {
  const std::string before = getenv("XDG_STATE_HOME") == nullptr ? "" : getenv("XDG_STATE_HOME");
  setenv("XDG_STATE_HOME", "/somewhere", 1);
  EXPECT_EQ(StateJournalFile::standardFolder(), "/somewhere/mirvanetest");
  setenv("XDG_STATE_HOME", "relative", 1);
  EXPECT_EQ(StateJournalFile::standardFolder(),
            std::string(getenv("HOME")) + "/.local/state/mirvanetest");
  if (before.empty()) {
    unsetenv("XDG_STATE_HOME");
  } else {
    setenv("XDG_STATE_HOME", before.c_str(), 1);
  }
}

}  // namespace
}  // namespace mirvane
