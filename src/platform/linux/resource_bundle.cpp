#include "platform/linux/resource_bundle.h"

#include <fstream>
#include <system_error>

namespace mirvane {

namespace fs = std::filesystem;

std::optional<fs::path> ResourceBundle::pathForResource(std::string_view name,
                                                        std::string_view extension,
                                                        std::string_view subdirectory) const {
  auto path = folder_ / subdirectory / name;
  path += '.';
  path += extension;
  std::error_code error;
  if (!fs::exists(path, error)) return std::nullopt;
  return path;
}

std::optional<std::string> ResourceBundle::contents(const fs::path& path) const {
  std::error_code error;
  if (!fs::is_regular_file(path, error)) return std::nullopt;
  const auto size = fs::file_size(path, error);
  std::ifstream file(path, std::ios::binary);
  if (error || !file) return std::nullopt;
  std::string contents(size, '\0');
  if (!file.read(contents.data(), static_cast<std::streamsize>(size))) return std::nullopt;
  return contents;
}

fs::path standardResourceFolder() {
  std::error_code error;
  const auto program = fs::read_symlink("/proc/self/exe", error);
  auto installed = program.parent_path().parent_path() / "share" / "mirvanetest";
  if (!error && fs::is_directory(installed, error)) return installed;
  return MIRVANE_SOURCE_RESOURCES;
}

}  // namespace mirvane
