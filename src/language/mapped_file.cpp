#include "language/mapped_file.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <utility>

namespace mirvane {

namespace {

std::span<const std::byte> mapOpenFile(int file) {
  struct stat status {};
  if (fstat(file, &status) != 0 || !S_ISREG(status.st_mode) || status.st_size <= 0) return {};
  const auto size = static_cast<std::size_t>(status.st_size);
  const void* address = mmap(nullptr, size, PROT_READ, MAP_PRIVATE, file, 0);
  if (address == MAP_FAILED) return {};
  return {static_cast<const std::byte*>(address), size};
}

}  // namespace

MappedFile::MappedFile(const std::filesystem::path& path) {
  // A pipe would keep an open that blocks waiting; it is then refused like a folder.
  const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
  if (file < 0) return;
  bytes_ = mapOpenFile(file);
  close(file);
}

MappedFile::MappedFile(MappedFile&& other) noexcept : bytes_(std::exchange(other.bytes_, {})) {}

MappedFile& MappedFile::operator=(MappedFile&& other) noexcept {
  std::swap(bytes_, other.bytes_);
  return *this;
}

MappedFile::~MappedFile() {
  if (!bytes_.empty()) munmap(const_cast<std::byte*>(bytes_.data()), bytes_.size());
}

}  // namespace mirvane
