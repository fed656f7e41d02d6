#pragma once

#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace mirvane {

/// The tab-separated fields of every line of a file; empty when there is no such file.
inline std::vector<std::vector<std::string>> fieldsOfLines(const std::string& path) {
  std::vector<std::vector<std::string>> lines;
  std::ifstream file(path);
  for (std::string line; std::getline(file, line);) {
    std::istringstream fields(line);
    lines.emplace_back();
    for (std::string field; std::getline(fields, field, '\t');) lines.back().push_back(field);
  }
  return lines;
}

}  // namespace mirvane
