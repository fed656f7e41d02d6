#include "files/whole_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <set>
#include <sstream>

#include "platform/linux/posix_file_system.h"
#include "support/faulty_file_system.h"
#include "support/tiny_disk.h"

namespace mirvane {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;

/// The superuser may write and read everything: what others may not is tried as somebody else.
class AsNobody {
 public:
  explicit AsNobody(const fs::path& folder) : wasRoot_(geteuid() == 0) {
    constexpr uid_t nobody = 65534;
    if (!wasRoot_) return;
    for (const auto& entry : fs::recursive_directory_iterator(folder)) own(entry.path(), nobody);
    own(folder, nobody);
    if (seteuid(nobody) != 0) ADD_FAILURE() << "cannot become somebody else";
  }
  ~AsNobody() {
    if (wasRoot_ && seteuid(0) != 0) std::abort();
  }
  AsNobody(const AsNobody&) = delete;
  AsNobody& operator=(const AsNobody&) = delete;

 private:
  static void own(const fs::path& path, uid_t owner) {
    if (lchown(path.c_str(), owner, static_cast<gid_t>(-1)) != 0) ADD_FAILURE() << path;
  }

  bool wasRoot_;
};

/// A folder of its own for each test, with a file in it.
class WholeFile : public testing::Test {
 protected:
  WholeFile() {
    std::string name = (fs::temp_directory_path() / "whole-file-XXXXXX").string();
    folder = mkdtemp(name.data());
    file = folder / "report.txt";
    startAnew();
  }
  void TearDown() override {
    std::error_code error;
    fs::permissions(folder, fs::perms::owner_all, error);
    fs::remove_all(folder);
  }

  void startAnew() const {
    for (const auto& entry : fs::directory_iterator(folder)) fs::remove_all(entry.path());
    std::ofstream(file) << "old";
  }

  [[nodiscard]] static std::string content(const fs::path& path) {
    std::ostringstream text;
    text << std::ifstream(path).rdbuf();
    return text.str();
  }
  [[nodiscard]] std::set<std::string> names() const {
    std::set<std::string> found;
    for (const auto& entry : fs::directory_iterator(folder)) found.insert(entry.path().filename());
    return found;
  }
  [[nodiscard]] std::error_code write(const fs::path& path, std::string_view text = "new") {
    return writeWholeFile(files, path, text);
  }
  [[nodiscard]] static unsigned mode(const fs::path& path) {
    return static_cast<unsigned>(fs::status(path).permissions());
  }

  PosixFileSystem files;
  fs::path folder, file;
};

TEST_F(WholeFile, ReplacesAFileAndKeepsItsPermissions) {
  fs::permissions(file, fs::perms{0644});
  EXPECT_FALSE(write(file));
  EXPECT_EQ(content(file), "new");
  EXPECT_EQ(mode(file), 0644U);
  EXPECT_FALSE(write(file, ""));
  EXPECT_EQ(content(file), "");
  EXPECT_THAT(names(), ElementsAre("report.txt"));
}

TEST_F(WholeFile, IsForItsOwnerAloneWhenNew) {
  const auto before = umask(0);
  EXPECT_FALSE(write(folder / "new.txt"));
  umask(before);
  EXPECT_EQ(mode(folder / "new.txt"), 0600U);
}

TEST_F(WholeFile, IsWrittenInAsManyPiecesAsTheSystemTakes) {
  const std::string text(10000, 'x');
  FaultyFileSystem slow(files);
  slow.writeInPiecesOf(999);
  EXPECT_FALSE(writeWholeFile(slow, file, text));
  EXPECT_EQ(content(file), text);
}

/// The calls of one write in order, with the old file in its place.
std::vector<std::string> callsOfAWrite(FileSystem& files, const fs::path& file) {
  FaultyFileSystem watched(files);
  EXPECT_FALSE(writeWholeFile(watched, file, "new"));
  return watched.calls();
}

// Marking the new file as in use and looking for left-overs are no part of the promise.
TEST_F(WholeFile, TellsOfAFaultAtEachCallAndLeavesTheOldFileWhole) {
  const auto calls = callsOfAWrite(files, file);
  std::vector<std::string> told;
  for (std::size_t call = 0; call < calls.size(); ++call) {
    startAnew();
    FaultyFileSystem faulty(files);
    faulty.failAt(call, std::errc::no_space_on_device);
    const auto error = writeWholeFile(faulty, file, "new");
    EXPECT_THAT(names(), ElementsAre("report.txt")) << call << ' ' << calls[call];
    const bool hasTakenPlace = !error || call > calls.size() - 3;
    EXPECT_EQ(content(file), hasTakenPlace ? "new" : "old") << call << ' ' << calls[call];
    if (!error) continue;
    EXPECT_EQ(error, std::errc::no_space_on_device);
    told.push_back(calls[call]);
  }
  EXPECT_THAT(told, ElementsAre("status", "checkWritable", "openFolder", "create", "write",
                                "setPermissions", "sync", "close", "rename", "sync"));
}

TEST_F(WholeFile, LeavesNothingWhereTheFileIsNew) {
  fs::remove(file);
  const auto calls = callsOfAWrite(files, file);
  for (std::size_t call = 0; call < calls.size(); ++call) {
    fs::remove(file);
    FaultyFileSystem faulty(files);
    faulty.failAt(call, std::errc::io_error);
    const bool isNew = !writeWholeFile(faulty, file, "new") || call > calls.size() - 3;
    EXPECT_EQ(content(file), isNew ? "new" : "") << call << ' ' << calls[call];
    EXPECT_EQ(names().size(), isNew ? 1U : 0U) << call << ' ' << calls[call];
  }
}

TEST_F(WholeFile, OutlivesAFileSystemThatGoesForGood) {
  const auto calls = callsOfAWrite(files, file);
  for (std::size_t call = 0; call < calls.size(); ++call) {
    startAnew();
    FaultyFileSystem faulty(files);
    faulty.failFrom(call, std::errc::io_error);
    const auto error = writeWholeFile(faulty, file, "new");
    EXPECT_TRUE(error || call == calls.size() - 1) << call << ' ' << calls[call];
    EXPECT_EQ(content(file), call > calls.size() - 3 ? "new" : "old") << call << ' ' << calls[call];
  }
}

TEST_F(WholeFile, IsWholeWhereverTheProgramIsKilledAndTheNextWriteTidiesUp) {
  const auto calls = callsOfAWrite(files, file);
  bool wasLeftOver = false;
  for (std::size_t call = 0; call < calls.size(); ++call) {
    startAnew();
    {
      FaultyFileSystem mortal(files);
      mortal.killAt(call);
      (void)writeWholeFile(mortal, file, "new");
    }
    EXPECT_EQ(content(file), call > calls.size() - 3 ? "new" : "old") << call << ' ' << calls[call];
    wasLeftOver = wasLeftOver || names().size() > 1;
    EXPECT_FALSE(write(file, "next"));
    EXPECT_EQ(content(file), "next");
    EXPECT_THAT(names(), ElementsAre("report.txt")) << call << ' ' << calls[call];
  }
  EXPECT_TRUE(wasLeftOver);
}

TEST_F(WholeFile, LeavesWhatIsBeingWrittenAndWhatIsNotItsOwn) {
  const std::set<std::string> others{".mirvanetest-0123456789abcdef.unfinished",
                                     ".mirvanetest-notes.unfinished", "report.txt.backup"};
  for (const auto& name : others) std::ofstream(folder / name) << name;
  std::error_code error;
  const auto inUse = files.openForReading(folder / *others.begin(), error);
  ASSERT_FALSE(files.lock(inUse));
  EXPECT_FALSE(write(file));
  auto all = others;
  all.insert("report.txt");
  EXPECT_EQ(names(), all);
  EXPECT_FALSE(files.close(inUse));
  EXPECT_FALSE(write(file));
  all.erase(*others.begin());
  EXPECT_EQ(names(), all);
}

TEST_F(WholeFile, GoesWhereALinkLeads) {
  fs::create_directory(folder / "far");
  fs::create_symlink("far/deep.txt", folder / "one");
  fs::create_symlink(folder / "one", folder / "two");
  EXPECT_FALSE(write(folder / "two"));
  EXPECT_TRUE(fs::is_symlink(folder / "two"));
  EXPECT_TRUE(fs::is_symlink(folder / "one"));
  EXPECT_EQ(content(folder / "far/deep.txt"), "new");
  fs::create_symlink("circle", folder / "circle");
  EXPECT_EQ(write(folder / "circle"), std::errc::too_many_symbolic_link_levels);
}

TEST_F(WholeFile, LeavesAloneWhatIsNoFile) {
  fs::create_directory(folder / "folder");
  ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
  EXPECT_EQ(write(folder / "folder"), std::errc::is_a_directory);
  EXPECT_EQ(write(folder / "pipe"), std::errc::operation_not_permitted);
  EXPECT_TRUE(fs::is_fifo(folder / "pipe"));
  EXPECT_EQ(write(folder / "missing/file"), std::errc::no_such_file_or_directory);
  EXPECT_EQ(write(file / "below"), std::errc::not_a_directory);
}

TEST_F(WholeFile, TakesNamesAsLongAsNamesCanBe) {
  EXPECT_FALSE(write(folder / std::string(255, 'n')));
  EXPECT_EQ(write(folder / std::string(256, 'n')), std::errc::filename_too_long);
}

TEST_F(WholeFile, LeavesAFileThatMayNotBeWritten) {
  fs::permissions(file, fs::perms::owner_read);
  const AsNobody somebodyElse(folder);
  EXPECT_EQ(write(file), std::errc::permission_denied);
  EXPECT_EQ(content(file), "old");
  fs::permissions(file, fs::perms{0600});
  fs::permissions(folder, fs::perms{0500});
  EXPECT_EQ(write(file), std::errc::permission_denied);
  EXPECT_EQ(content(file), "old");
}

TEST_F(WholeFile, StaysWholeOnAFullDisk) {
  const auto done = onTinyDisk(folder, "16k", [&] {
    const bool fits = !write(file, "old");
    const auto error = write(file, std::string(65536, 'x'));
    return fits && error == std::errc::no_space_on_device && content(file) == "old" &&
           names().size() == 1 && !write(file, "new") && content(file) == "new";
  });
  if (!done) GTEST_SKIP() << "no namespace to mount a small file system in";
  EXPECT_TRUE(*done);
}

TEST_F(WholeFile, IsReadAsAWhole) {
  const std::string text(200000, 'x');
  std::error_code error;
  fs::create_symlink("report.txt", folder / "link");
  ASSERT_FALSE(write(file, text));
  EXPECT_EQ(readWholeFile(files, folder / "link", error), text);
  EXPECT_FALSE(error);
}

TEST_F(WholeFile, IsNotReadWhereItIsNoFileAndNobodyIsWaitedFor) {
  ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
  struct Row {
    fs::path path;
    std::errc error;
  };
  for (const auto& [path, wanted] : {Row{folder / "pipe", std::errc::operation_not_permitted},
                                     Row{"/dev/zero", std::errc::operation_not_permitted},
                                     Row{folder, std::errc::is_a_directory},
                                     Row{folder / "none", std::errc::no_such_file_or_directory}}) {
    std::error_code error;
    EXPECT_EQ(readWholeFile(files, path, error), std::nullopt) << path;
    EXPECT_EQ(error, wanted) << path;
  }
}

TEST_F(WholeFile, IsReadWholeOrNotAtAllWhereverAFaultIs) {
  FaultyFileSystem watched(files);
  std::error_code error;
  ASSERT_EQ(readWholeFile(watched, file, error), "old");
  const auto calls = watched.calls();
  for (std::size_t call = 0; call < calls.size(); ++call) {
    FaultyFileSystem faulty(files);
    faulty.failAt(call, std::errc::io_error);
    const auto text = readWholeFile(faulty, file, error);
    if (calls[call] == "close") {
      EXPECT_EQ(text, "old");
    } else {
      EXPECT_EQ(text, std::nullopt) << calls[call];
      EXPECT_EQ(error, std::errc::io_error) << calls[call];
    }
  }
}

}  // namespace
}  // namespace mirvane
