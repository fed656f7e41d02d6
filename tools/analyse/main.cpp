#include <CLI/CLI.hpp>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "analyse/study_analysis.h"
#include "analyse/study_files.h"
#include "analyse/table_folder.h"
#include "support/command_line.h"
#include "support/progress.h"

namespace mirvane {
namespace {

struct Options {
  std::vector<std::string> files;
  std::string output;
  bool isJson = false;
};

void declare(CLI::App& app, Options& options) {
  app.add_option("files", options.files,
                 "Folders, with all reports (*.txt) and records (*.jsonl) in and below them, or "
                 "such files")
      ->required();
  app.add_option("--output", options.output, "Folder for the tables; it is made");
  app.add_flag("--json", options.isJson, "Print the rows, one JSON object a line");
  app.footer(
      "Examples:\n"
      "  mirvane-analyse mailed --output tables\n"
      "      reads every report and record below mailed/ and writes sessions.csv, "
      "corrections.csv,\n"
      "      keys.csv, participants.csv and confusions.csv into tables/\n"
      "  mirvane-analyse --json P07.txt P07.jsonl\n"
      "      prints the rows of one participant\n"
      "A report and a record of the same name belong together. Columns and formulas are described\n"
      "in docs/formats/tables.md.\n"
      "Exit code 0; 1 when a damaged file was left out; 2 when nothing could be done.");
}

class JsonPrinter : public TableWriter {
 public:
  void write(const Table& table, const std::vector<Cell>& row) override {
    std::cout << jsonLine(table, row);
  }
};

/// Hands rows on to the folder, to standard output or to both.
class Writers : public TableWriter {
 public:
  explicit Writers(const Options& options) {
    if (!options.output.empty()) {
      folder_ = std::make_unique<TableFolder>(options.output, analysisTables());
    }
    if (options.isJson) printer_ = std::make_unique<JsonPrinter>();
  }

  void write(const Table& table, const std::vector<Cell>& row) override {
    if (folder_) folder_->write(table, row);
    if (printer_) printer_->write(table, row);
  }

  void finish() {
    if (folder_) folder_->finish();
  }

 private:
  std::unique_ptr<TableFolder> folder_;
  std::unique_ptr<JsonPrinter> printer_;
};

void tell(const std::string& message) {
  std::cerr << message << '\n';
}

void tellIgnored(const std::vector<std::filesystem::path>& files) {
  constexpr std::size_t mostNamed = 10;
  for (std::size_t i = 0; i < std::min(files.size(), mostNamed); ++i) {
    tell(files[i].string() + ": ignored, neither *.txt nor *.jsonl");
  }
  if (files.size() > mostNamed) {
    tell(std::to_string(files.size() - mostNamed) + " more files ignored");
  }
}

int run(const Options& options) {
  if (options.output.empty() && !options.isJson) {
    throw UsageError("--output FOLDER or --json is needed");
  }
  const auto found = findStudyFiles(options.files);
  tellIgnored(found.ignored);
  if (found.studies.empty()) throw UsageError("no *.txt and no *.jsonl is there");
  ShippedResources shipped;
  Writers writers(options);
  StudyAnalysis analysis(shipped, writers, tell);
  const auto progress = terminalProgress();
  for (std::size_t i = 0; i < found.studies.size(); ++i) {
    analysis.add(found.studies[i]);
    progress(i + 1, found.studies.size());
  }
  analysis.finish();
  writers.finish();
  return analysis.damagedFiles() == 0 ? 0 : 1;
}

}  // namespace
}  // namespace mirvane

int main(int argc, char** argv) {
  return mirvane::runCommand<mirvane::Options>(
      "Makes tables of reports and records: one row a session, a correction, a key, a participant",
      mirvane::declare, mirvane::run, argc, argv);
}
