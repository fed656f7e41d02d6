#include "platform/simulated/in_memory_bundle.h"

#include <utility>

namespace mirvane::simulated {

void InMemoryBundle::add(std::string_view path, std::string contents) {
  resources_.insert_or_assign(std::string(path), std::move(contents));
}

void InMemoryBundle::addUnreadable(std::string_view path) {
  resources_.insert_or_assign(std::string(path), std::nullopt);
}

std::optional<std::filesystem::path> InMemoryBundle::pathForResource(
    std::string_view name, std::string_view extension, std::string_view subdirectory) const {
  std::string fileName(name);
  if (!extension.empty()) fileName.append(".").append(extension);
  auto path = std::filesystem::path(subdirectory) / fileName;
  if (!resources_.contains(path.string())) return std::nullopt;
  return path;
}

std::optional<std::string> InMemoryBundle::contents(const std::filesystem::path& path) const {
  const auto found = resources_.find(path.string());
  return found == resources_.end() ? std::nullopt : found->second;
}

}  // namespace mirvane::simulated
