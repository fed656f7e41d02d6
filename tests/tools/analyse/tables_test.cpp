#include "analyse/tables.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "recording/json_fields.h"

namespace mirvane {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
namespace fs = std::filesystem;

TEST(Csv, WritesEveryValueSoThatItIsReadBack) {
  struct Row {
    Cell cell;
    const char* field;
  };
  const Row rows[] = {
      {{}, ""},
      {true, "true"},
      {std::int64_t{-7}, "-7"},
      {2.5, "2.5"},
      {100.0, "100"},
      {-0.0, "0"},
      {1.0 / 3, "0.333333"},
      {213.99999999999997, "214"},
      {std::string("plain"), "plain"},
      {std::string("a,b"), "\"a,b\""},
      {std::string("say \"yes\""), "\"say \"\"yes\"\"\""},
      {std::string(" "), "\" \""},
      {std::string("a\nb\r\x7f\t"), "a␊b␍␡␉"},
      {std::string("=cmd()"), "'=cmd()"},
      {std::string("-1+1"), "'-1+1"},
      {std::string("@x"), "'@x"},
      {std::string("'"), "''"},
      {std::string("日本 é"), "日本 é"},
  };
  for (const auto& row : rows) EXPECT_EQ(csvLine({row.cell}), std::string(row.field) + "\r\n");
  EXPECT_EQ(csvLine({std::int64_t{1}, Cell(), std::string("x")}), "1,,x\r\n");
}

std::string contentsOf(const fs::path& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

/// The names at the start of the rows of the section's Markdown table; one row may have several.
std::vector<std::string> documentedColumns(const std::string& document, const std::string& table) {
  std::istringstream section(document.substr(document.find("\n## " + table + ".csv\n") + 1));
  std::vector<std::string> names;
  std::string line;
  std::getline(section, line);
  while (std::getline(section, line) && !line.starts_with("## ")) {
    if (!names.empty() && line.empty()) break;
    if (!line.starts_with("| `")) continue;
    const auto cell = line.substr(0, line.find('|', 1));
    for (auto at = cell.find('`'); at != std::string::npos;) {
      const auto end = cell.find('`', at + 1);
      names.push_back(cell.substr(at + 1, end - at - 1));
      at = cell.find('`', end + 1);
    }
  }
  return names;
}

TEST(Tables, HaveTheColumnsThatAreDocumented) {
  const auto document = contentsOf(std::string(MIRVANE_FORMATS) + "/tables.md");
  for (const auto& table : analysisTables()) {
    if (table.name == "participants") continue;  // described in words: every measure twice
    EXPECT_EQ(table.columns, documentedColumns(document, table.name)) << table.name;
  }
  for (const auto& column : analysisTables()[3].columns) {
    const auto measure = column.ends_with("_1") || column.ends_with("_2")
                             ? column.substr(0, column.size() - 2)
                             : column;
    EXPECT_THAT(document.substr(document.find("## participants.csv")),
                HasSubstr('`' + measure + '`'));
  }
}

/// mirvane-analyse in a folder of its own.
class Analyse : public testing::Test {
 protected:
  void SetUp() override {
    folder_ = fs::path(testing::TempDir()) /
              testing::UnitTest::GetInstance()->current_test_info()->name();
    fs::remove_all(folder_);
    fs::create_directories(folder_);
  }
  void TearDown() override { fs::remove_all(folder_); }

  int run(const std::string& arguments) {
    const auto command = std::string("cd ") + folder_.string() + " && " + MIRVANE_PROGRAMS +
                         "/mirvane-analyse " + arguments + " >out 2>err";
    const int status = std::system(command.c_str());  // NOLINT(bugprone-command-processor)
    return WEXITSTATUS(status);
  }
  [[nodiscard]] std::string contents(const std::string& file) const {
    return contentsOf(folder_ / file);
  }
  void write(const std::string& file, const std::string& text) const {
    fs::create_directories((folder_ / file).parent_path());
    std::ofstream(folder_ / file, std::ios::binary) << text;
  }
  void copySample() const {
    fs::create_directories(folder_ / "P07");
    for (const char* name : {"session1.jsonl", "session2.jsonl"}) {
      fs::copy_file(std::string(MIRVANE_SAMPLES) + "/" + name, folder_ / "P07" / name);
    }
    fs::copy_file(std::string(MIRVANE_GOLDEN) + "/sample-study.txt", folder_ / "P08.txt");
  }

  fs::path folder_;
};

/// A participant with records and one with a report alone.
TEST_F(Analyse, WritesTheTablesOfTheSampleStudy) {
  copySample();
  ASSERT_EQ(run("P07 P08.txt --output tables/made"), 0) << contents("err");
  EXPECT_THAT(contents("out"), IsEmpty());
  EXPECT_THAT(contents("err"), IsEmpty());
  for (const auto& table : analysisTables()) {
    const auto golden = std::string(MIRVANE_GOLDEN) + "/tables/" + table.name + ".csv";
    const auto written = contents("tables/made/" + table.name + ".csv");
    if (std::getenv("MIRVANE_UPDATE_GOLDEN") != nullptr) {
      std::ofstream(golden, std::ios::binary) << written;
    }
    EXPECT_EQ(written, contentsOf(golden)) << table.name;
  }
}

TEST_F(Analyse, PrintsTheSameRowsAsJson) {
  copySample();
  ASSERT_EQ(run("--json P07 P08.txt --output tables"), 0);
  std::map<std::string, std::string> printed;
  for (const auto& table : analysisTables()) printed[table.name] = csvHeader(table);
  std::istringstream lines(contents("out"));
  for (std::string line; std::getline(lines, line);) {
    const auto object = Json::parse(line);
    std::vector<Cell> row;
    for (const auto& [name, value] : object.items()) {
      if (name == "table") continue;
      if (value.is_null()) row.emplace_back();
      if (value.is_boolean()) row.emplace_back(value.get<bool>());
      if (value.is_number_integer()) row.emplace_back(value.get<std::int64_t>());
      if (value.is_number_float()) row.emplace_back(value.get<double>());
      if (value.is_string()) row.emplace_back(value.get<std::string>());
    }
    printed[object["table"]] += csvLine(row);
  }
  for (const auto& [table, csv] : printed) EXPECT_EQ(contents("tables/" + table + ".csv"), csv);
}

TEST_F(Analyse, NamesWhatItLeavesOutAndIgnores) {
  copySample();
  write("P07/letter.pdf", "x");
  write("P07/session1.txt", "x");
  EXPECT_EQ(run("P07 --output tables"), 1);
  EXPECT_EQ(contents("err"),
            "P07/letter.pdf: ignored, neither *.txt nor *.jsonl\n"
            "P07/session1.txt:1: not a results report in UTF-8\n");
  EXPECT_THAT(contents("tables/sessions.csv"), HasSubstr("P07,2,session2.jsonl,"));
}

TEST_F(Analyse, ExplainsWrongCallsAndTouchesNoTable) {
  copySample();
  write("tables/sessions.csv", "from an earlier run");
  write("file", "");
  write("empty/note.md", "");
  struct Row {
    const char* arguments;
    const char* complaint;
  };
  const Row rows[] = {
      {"", "files is required"},
      {"P08.txt", "--output FOLDER or --json is needed"},
      {"nowhere --output tables", "nowhere: no such file or folder"},
      {"file --output tables", "file: neither a report (.txt) nor a record (.jsonl)"},
      {"empty --output tables", "no *.txt and no *.jsonl is there"},
      {"P08.txt --output file", "file: the folder cannot be made"},
      {"P08.txt --output file/tables", "file/tables: the folder cannot be made"},
      {"P08.txt --output /proc/self", "/proc/self/sessions.csv.part: cannot be written"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.arguments);
    EXPECT_EQ(run(row.arguments), 2);
    EXPECT_THAT(contents("err"), HasSubstr(row.complaint));
    EXPECT_THAT(contents("out"), IsEmpty());
  }
  EXPECT_EQ(contents("tables/sessions.csv"), "from an earlier run");
  EXPECT_EQ(std::distance(fs::directory_iterator(folder_ / "tables"), fs::directory_iterator()), 1);
}

}  // namespace
}  // namespace mirvane
