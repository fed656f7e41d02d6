#include "files/save_target.h"

#include <gtest/gtest.h>
#include <stdlib.h>

#include <fstream>

namespace mirvane {
namespace {

namespace fs = std::filesystem;
using Kind = SaveTarget::Kind;

class Target : public ::testing::Test {
 protected:
  Target() {
    std::string pattern = (fs::temp_directory_path() / "target-XXXXXX").string();
    folder = mkdtemp(pattern.data());
    fs::create_directory(folder / "inner");
    std::ofstream(folder / "old.txt") << "old";
    fs::create_symlink("nowhere", folder / "broken.txt");
  }
  ~Target() override { fs::remove_all(folder); }

  fs::path folder;
};

TEST_F(Target, IsWhatTheTypedNameMeans) {
  const struct {
    std::string name;
    Kind kind;
    fs::path path;
  } rows[] = {
      {"", Kind::nothing, {}},
      {" \t", Kind::nothing, {}},
      {"new.txt", Kind::newFile, folder / "new.txt"},
      {"new.TXT", Kind::newFile, folder / "new.TXT"},
      {"  new  ", Kind::newFile, folder / "new.txt"},
      {"table.csv", Kind::newFile, folder / "table.csv.txt"},
      {"ends.", Kind::newFile, folder / "ends..txt"},
      {".txt", Kind::newFile, folder / ".txt.txt"},
      {"old", Kind::existingFile, folder / "old.txt"},
      {"old.txt", Kind::existingFile, folder / "old.txt"},
      {"broken", Kind::existingFile, folder / "broken.txt"},
      {"inner", Kind::folder, folder / "inner"},
      {"inner/", Kind::folder, folder / "inner/"},
      {"inner/new", Kind::newFile, folder / "inner/new.txt"},
      {"inner/../old.txt", Kind::existingFile, folder / "old.txt"},
      {"/nowhere/new.txt", Kind::newFile, "/nowhere/new.txt"},
  };
  for (const auto& row : rows) {
    const auto target = saveTarget(folder, row.name);
    EXPECT_EQ(target.kind, row.kind) << row.name;
    EXPECT_EQ(target.path, row.path) << row.name;
  }
}

}  // namespace
}  // namespace mirvane
