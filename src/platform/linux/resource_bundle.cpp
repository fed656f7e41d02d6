#include "platform/linux/resource_bundle.h"

#include <QCoreApplication>
#include <fstream>
#include <iterator>
#include <utility>

namespace mirvane {

namespace fs = std::filesystem;

ResourceBundle::ResourceBundle(std::vector<fs::path> folders) : folders_(std::move(folders)) {}

ResourceBundle ResourceBundle::ofProgram() {
  const fs::path program = QCoreApplication::applicationDirPath().toStdString();
  return ResourceBundle({program.parent_path() / "share" / "mirvanetest"});
}

std::optional<fs::path> ResourceBundle::pathForResource(std::string_view name,
                                                        std::string_view extension,
                                                        std::string_view subdirectory) const {
  const std::string fileName = std::string(name) + "." + std::string(extension);
  for (const auto& folder : folders_) {
    const fs::path path = folder / subdirectory / fileName;
    std::error_code error;
    if (fs::is_regular_file(path, error)) return path;
  }
  return std::nullopt;
}

std::optional<std::string> ResourceBundle::contents(const fs::path& path) const {
  std::ifstream file(path, std::ios::binary);
  if (!file) return std::nullopt;
  std::string content(std::istreambuf_iterator<char>(file), {});
  if (file.bad()) return std::nullopt;
  return content;
}

}  // namespace mirvane
