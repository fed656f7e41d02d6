#include "files/save_target.h"

#include <algorithm>
#include <cctype>
#include <system_error>

namespace mirvane {
namespace {

constexpr const char* textSuffix = ".txt";

std::string trimmed(const std::string& text) {
  constexpr const char* whiteSpace = " \t\r\n";
  const auto first = text.find_first_not_of(whiteSpace);
  if (first == std::string::npos) return {};
  return text.substr(first, text.find_last_not_of(whiteSpace) - first + 1);
}

std::string lowercasedAscii(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return text;
}

}  // namespace

std::filesystem::path withTextSuffix(std::filesystem::path path) {
  if (lowercasedAscii(path.extension().string()) != textSuffix) path += textSuffix;
  return path;
}

SaveTarget saveTarget(const std::filesystem::path& folder, const std::string& name) {
  const std::string wanted = trimmed(name);
  if (wanted.empty()) return {};
  const auto path = (folder / wanted).lexically_normal();
  std::error_code ignored;
  if (!path.has_filename() || std::filesystem::is_directory(path, ignored)) {
    return {SaveTarget::Kind::folder, path};
  }
  const auto file = withTextSuffix(path);
  const bool exists = std::filesystem::exists(std::filesystem::symlink_status(file, ignored));
  return {exists ? SaveTarget::Kind::existingFile : SaveTarget::Kind::newFile, file};
}

}  // namespace mirvane
