#include "analyse/table_folder.h"

#include <fcntl.h>
#include <unistd.h>

#include <stdexcept>
#include <system_error>

namespace mirvane {
namespace {

[[noreturn]] void fail(const std::filesystem::path& path, const std::string& what) {
  throw std::runtime_error(path.string() + ": " + what);
}

/// Its content has to be on the disk before another file makes room for it.
bool isOnDisk(const std::filesystem::path& path) {
  // NOLINTNEXTLINE(cppcoreguidelines-pro-type-vararg): a system call
  const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (file < 0) return false;
  const bool isSynced = fsync(file) == 0;
  return close(file) == 0 && isSynced;
}

}  // namespace

TableFolder::TableFolder(std::filesystem::path folder, const std::vector<Table>& tables)
    : folder_(std::move(folder)) {
  std::error_code error;
  std::filesystem::create_directories(folder_, error);
  if (!std::filesystem::is_directory(folder_)) fail(folder_, "the folder cannot be made");
  for (const auto& table : tables) {
    auto& file = files_[table.name];
    file.path = folder_ / (table.name + ".csv");
    file.stream.open(file.part(), std::ios::binary | std::ios::trunc);
    if (!(file.stream << csvHeader(table))) fail(file.part(), "cannot be written");
  }
}

TableFolder::~TableFolder() {
  for (auto& [name, file] : files_) {
    file.stream.close();
    std::error_code ignored;
    std::filesystem::remove(file.part(), ignored);
  }
}

void TableFolder::write(const Table& table, const std::vector<Cell>& row) {
  auto& file = files_.at(table.name);
  if (!(file.stream << csvLine(row))) fail(file.part(), "cannot be written");
}

void TableFolder::finish() {
  for (auto& [name, file] : files_) {
    file.stream.close();
    if (!file.stream || !isOnDisk(file.part())) fail(file.part(), "cannot be written");
  }
  for (auto& [name, file] : files_) {
    std::error_code error;
    std::filesystem::rename(file.part(), file.path, error);
    if (error) fail(file.path, error.message());
  }
}

}  // namespace mirvane
