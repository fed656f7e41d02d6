#pragma once

#include <cstddef>
#include <filesystem>
#include <span>

namespace mirvane {

/// A file's bytes as the operating system pages them in: nothing is read before it is looked at,
/// and processes that map the same file share its memory. Read-only.
class MappedFile {
 public:
  /// Empty when the file is missing, unreadable, empty or no regular file. It must not be changed
  /// in place while it is mapped; another may be renamed to its name.
  explicit MappedFile(const std::filesystem::path& path);
  MappedFile() = default;
  MappedFile(MappedFile&& other) noexcept;
  MappedFile& operator=(MappedFile&& other) noexcept;
  MappedFile(const MappedFile&) = delete;
  MappedFile& operator=(const MappedFile&) = delete;
  ~MappedFile();

  [[nodiscard]] std::span<const std::byte> bytes() const { return bytes_; }

 private:
  std::span<const std::byte> bytes_;
};

}  // namespace mirvane
