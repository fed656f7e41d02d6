#pragma once

#include <filesystem>
#include <fstream>
#include <map>
#include <string>

#include "analyse/table.h"

namespace mirvane {

/// Writes tables as CSV files into a folder, which it makes. Nothing of an earlier run is touched
/// before `finish`: the rows go to files that end in ".part". Without `finish` those are removed.
/// Throws a `std::runtime_error` with the file's name when it cannot be written.
class TableFolder : public TableWriter {
 public:
  TableFolder(std::filesystem::path folder, const std::vector<Table>& tables);
  ~TableFolder() override;

  void write(const Table& table, const std::vector<Cell>& row) override;

  /// Puts the written tables in the place of earlier ones.
  void finish();

 private:
  struct File {
    std::filesystem::path path;
    std::ofstream stream;

    [[nodiscard]] std::filesystem::path part() const { return path.string() + ".part"; }
  };

  std::filesystem::path folder_;
  std::map<std::string, File> files_;  // by the table's name
};

}  // namespace mirvane
