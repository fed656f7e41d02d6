#include "files/whole_file.h"

#include <array>
#include <cstdint>
#include <cstdio>
#include <random>

namespace mirvane {
namespace {

using Kind = FileSystem::Kind;
using Path = FileSystem::Path;

constexpr std::string_view unfinishedPrefix = ".mirvanetest-";
constexpr std::string_view unfinishedSuffix = ".unfinished";
constexpr std::size_t unfinishedDigits = 16;

/// Does not depend on the name of the file, which may be as long as names can be.
std::string makeUnfinishedName() {
  std::random_device random;
  const auto number = (static_cast<std::uint64_t>(random()) << 32U) | random();
  std::array<char, unfinishedDigits + 1> digits{};
  std::snprintf(digits.data(), digits.size(), "%016llx", static_cast<unsigned long long>(number));
  return std::string(unfinishedPrefix) + digits.data() + std::string(unfinishedSuffix);
}

bool isUnfinishedName(std::string_view name) {
  return name.size() == unfinishedPrefix.size() + unfinishedDigits + unfinishedSuffix.size() &&
         name.starts_with(unfinishedPrefix) && name.ends_with(unfinishedSuffix);
}

Path folderOf(const Path& path) {
  return path.has_parent_path() ? path.parent_path() : Path(".");
}

struct Target {
  Path path;
  FileSystem::Status status;
};

/// The end of a chain of links.
Target followLinks(FileSystem& files, Path path, std::error_code& error) {
  constexpr int longestChain = 40;
  for (int link = 0; link < longestChain; ++link) {
    const auto status = files.status(path, error);
    if (error || status.kind != Kind::link) return {std::move(path), status};
    const auto next = files.linkTarget(path, error);
    if (error) return {};
    path = folderOf(path) / next;
  }
  error = std::make_error_code(std::errc::too_many_symbolic_link_levels);
  return {};
}

std::error_code refusalOf(Kind kind) {
  switch (kind) {
    case Kind::folder:
      return {EISDIR, std::system_category()};
    case Kind::other:
      return {EPERM, std::system_category()};
    default:
      return {};
  }
}

std::error_code checkTarget(FileSystem& files, const Target& target) {
  if (target.status.kind == Kind::regular) return files.checkWritable(target.path);
  return refusalOf(target.status.kind);
}

/// The new content in a file of its own beside the target, gone again unless it takes its place.
class UnfinishedFile {
 public:
  UnfinishedFile(FileSystem& files, const Path& folder) : files_(files), folder_(folder) {}
  UnfinishedFile(const UnfinishedFile&) = delete;
  UnfinishedFile& operator=(const UnfinishedFile&) = delete;

  // The first failure has been told: a second one says nothing new.
  ~UnfinishedFile() {
    if (isOpen_) (void)files_.close(file_);
    if (exists_) (void)files_.remove(path_);
  }

  [[nodiscard]] std::error_code create() {
    path_ = folder_ / makeUnfinishedName();
    std::error_code error;
    file_ = files_.create(path_, error);
    isOpen_ = exists_ = !error;
    // Where files cannot be marked as in use, none is taken for a left-over either.
    if (isOpen_) (void)files_.lock(file_);
    return error;
  }

  [[nodiscard]] std::error_code write(std::string_view content) {
    while (!content.empty()) {
      std::error_code error;
      const auto count = files_.write(file_, content, error);
      if (error) return error;
      if (count == 0) return std::make_error_code(std::errc::io_error);
      content.remove_prefix(count);
    }
    return {};
  }

  [[nodiscard]] std::error_code setPermissions(unsigned permissions) {
    return files_.setPermissions(file_, permissions);
  }

  /// Network file systems tell late, at one of these, that there is no room.
  [[nodiscard]] std::error_code finish() {
    if (const auto error = files_.sync(file_)) return error;
    isOpen_ = false;
    return files_.close(file_);
  }

  [[nodiscard]] std::error_code takePlaceOf(const Path& target) {
    const auto error = files_.rename(path_, target);
    exists_ = static_cast<bool>(error);
    return error;
  }

 private:
  FileSystem& files_;
  Path folder_, path_;
  FileSystem::Handle file_;
  bool isOpen_ = false, exists_ = false;
};

class Folder {
 public:
  Folder(FileSystem& files, const Path& path, std::error_code& error)
      : files_(files), handle_(files.openFolder(path, error)), isOpen_(!error) {}
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;
  ~Folder() {
    if (isOpen_) (void)files_.close(handle_);
  }

  /// Some file systems have nothing to do here and answer that they cannot.
  [[nodiscard]] std::error_code sync() {
    const auto error = files_.sync(handle_);
    for (const auto unsupported : {std::errc::invalid_argument, std::errc::not_supported,
                                   std::errc::function_not_supported}) {
      if (error == unsupported) return {};
    }
    return error;
  }

 private:
  FileSystem& files_;
  FileSystem::Handle handle_;
  bool isOpen_;
};

std::error_code replace(FileSystem& files, const Target& target, std::string_view content) {
  const auto folderPath = folderOf(target.path);
  std::error_code error;
  Folder folder(files, folderPath, error);
  if (error) return error;
  UnfinishedFile unfinished(files, folderPath);
  if ((error = unfinished.create())) return error;
  if ((error = unfinished.write(content))) return error;
  if (target.status.kind == Kind::regular) {
    if ((error = unfinished.setPermissions(target.status.permissions))) return error;
  }
  if ((error = unfinished.finish())) return error;
  if ((error = unfinished.takePlaceOf(target.path))) return error;
  return folder.sync();
}

std::string readAll(FileSystem& files, FileSystem::Handle file, std::error_code& error) {
  std::string content;
  std::array<char, 65536> bytes{};
  while (const auto count = files.read(file, bytes.data(), bytes.size(), error)) {
    content.append(bytes.data(), count);
  }
  return content;
}

}  // namespace

std::error_code writeWholeFile(FileSystem& files, const Path& path, std::string_view content) {
  std::error_code error;
  const auto target = followLinks(files, path, error);
  if (error) return error;
  if ((error = checkTarget(files, target))) return error;
  removeUnfinishedFiles(files, folderOf(target.path));
  return replace(files, target, content);
}

std::optional<std::string> readWholeFile(FileSystem& files, const Path& path,
                                         std::error_code& error) {
  const auto target = followLinks(files, path, error);
  if (!error) error = refusalOf(target.status.kind);
  if (error) return std::nullopt;
  const auto file = files.openForReading(target.path, error);
  if (error) return std::nullopt;
  auto content = readAll(files, file, error);
  (void)files.close(file);
  if (error) return std::nullopt;
  return content;
}

void removeUnfinishedFiles(FileSystem& files, const Path& folder) {
  std::error_code error;
  for (const auto& name : files.namesIn(folder, error)) {
    if (!isUnfinishedName(name)) continue;
    const auto file = files.openForReading(folder / name, error);
    if (error) continue;
    if (!files.lock(file)) (void)files.remove(folder / name);
    (void)files.close(file);
  }
}

}  // namespace mirvane
