#include "recording/recording_lines.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace mirvane {
namespace {

bool isBlank(std::string_view line) {
  return line.find_first_not_of(" \t\r") == std::string_view::npos;
}

}  // namespace

Json parseJsonLine(std::string_view line) {
  // The library's own messages speak of columns and tokens, and repeat what was typed.
  auto json = Json::parse(line, nullptr, false);
  if (json.is_discarded()) throw std::runtime_error("not valid JSON");
  return json;
}

void forEachJsonLine(std::string_view contents, std::string_view name,
                     const std::function<void(const JsonFields&)>& visit) {
  for (std::size_t number = 1; !contents.empty(); ++number) {
    const auto end = std::min(contents.find('\n'), contents.size());
    const auto line = contents.substr(0, end);
    contents.remove_prefix(std::min(end + 1, contents.size()));
    if (isBlank(line)) continue;
    try {
      const auto json = parseJsonLine(line);
      visit(JsonFields(json));
    } catch (const std::runtime_error& error) {
      throw RecordingError(std::string(name) + ":" + std::to_string(number) + ": " + error.what());
    }
  }
}

std::string contentsOfFile(const std::string& path) {
  std::ifstream stream(path, std::ios::binary);
  const bool isReadable = stream && !std::filesystem::is_directory(path);
  if (!isReadable) throw RecordingError(path + ": cannot be read");
  return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

}  // namespace mirvane
