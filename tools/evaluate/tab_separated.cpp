#include "evaluate/tab_separated.h"

#include <fstream>
#include <stdexcept>
#include <string_view>

namespace mirvane {
namespace {

std::vector<std::string> splitAtTabs(std::string_view line) {
  std::vector<std::string> fields;
  for (std::size_t start = 0; start <= line.size();) {
    const auto end = std::min(line.find('\t', start), line.size());
    fields.emplace_back(line.substr(start, end - start));
    start = end + 1;
  }
  return fields;
}

}  // namespace

std::vector<std::vector<std::string>> readTabSeparated(const std::filesystem::path& file,
                                                       std::size_t leastFields) {
  std::ifstream stream(file);
  if (!stream || std::filesystem::is_directory(file)) {
    throw std::runtime_error(file.string() + ": cannot be read");
  }
  std::vector<std::vector<std::string>> rows;
  std::size_t number = 0;
  for (std::string line; std::getline(stream, line);) {
    ++number;
    if (line.ends_with('\r')) line.pop_back();
    if (line.empty()) continue;
    rows.push_back(splitAtTabs(line));
    if (rows.back().size() < leastFields) {
      throw std::runtime_error(file.string() + ":" + std::to_string(number) + ": expected " +
                               std::to_string(leastFields) + " fields separated by tabs");
    }
  }
  return rows;
}

}  // namespace mirvane
