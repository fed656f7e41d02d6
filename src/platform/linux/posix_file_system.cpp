#include "platform/linux/posix_file_system.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

namespace mirvane {
namespace {

std::error_code lastError() {
  return {errno, std::system_category()};
}

/// The answer of a call, made again as long as a signal interrupts it.
template <typename Call>
auto completed(Call call) {
  auto answer = call();
  while (answer == -1 && errno == EINTR) answer = call();
  return answer;
}

/// For calls whose only answer is whether they failed.
template <typename Call>
std::error_code errorOf(Call call) {
  return completed(call) == -1 ? lastError() : std::error_code();
}

FileSystem::Handle open(const FileSystem::Path& path, int flags, std::error_code& error) {
  constexpr mode_t forTheOwner = S_IRUSR | S_IWUSR;
  const int number =
      completed([&] { return ::open(path.c_str(), flags | O_CLOEXEC | O_NOCTTY, forTheOwner); });
  error = number == -1 ? lastError() : std::error_code();
  return {number};
}

std::size_t counted(ssize_t count, std::error_code& error) {
  error = count == -1 ? lastError() : std::error_code();
  return count == -1 ? 0 : static_cast<std::size_t>(count);
}

FileSystem::Kind kindOf(mode_t mode) {
  if (S_ISREG(mode)) return FileSystem::Kind::regular;
  if (S_ISDIR(mode)) return FileSystem::Kind::folder;
  if (S_ISLNK(mode)) return FileSystem::Kind::link;
  return FileSystem::Kind::other;
}

}  // namespace

FileSystem::Status PosixFileSystem::status(const Path& path, std::error_code& error) {
  constexpr mode_t nineBits = S_IRWXU | S_IRWXG | S_IRWXO;
  struct stat found {};
  error.clear();
  if (lstat(path.c_str(), &found) == 0) return {kindOf(found.st_mode), found.st_mode & nineBits};
  if (errno != ENOENT) error = lastError();
  return {};
}

FileSystem::Path PosixFileSystem::linkTarget(const Path& link, std::error_code& error) {
  return std::filesystem::read_symlink(link, error);
}

std::error_code PosixFileSystem::checkWritable(const Path& path) {
  return errorOf([&] { return faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS); });
}

std::vector<std::string> PosixFileSystem::namesIn(const Path& folder, std::error_code& error) {
  std::vector<std::string> names;
  std::filesystem::directory_iterator entry(folder, error);
  for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
    names.push_back(entry->path().filename());
  }
  return names;
}

FileSystem::Handle PosixFileSystem::create(const Path& path, std::error_code& error) {
  return open(path, O_WRONLY | O_CREAT | O_EXCL, error);
}

FileSystem::Handle PosixFileSystem::openForReading(const Path& path, std::error_code& error) {
  return open(path, O_RDONLY | O_NONBLOCK | O_NOFOLLOW, error);
}

FileSystem::Handle PosixFileSystem::openFolder(const Path& folder, std::error_code& error) {
  return open(folder, O_RDONLY | O_DIRECTORY, error);
}

std::error_code PosixFileSystem::lock(Handle file) {
  return errorOf([&] { return flock(file.number, LOCK_EX | LOCK_NB); });
}

std::size_t PosixFileSystem::read(Handle file, char* bytes, std::size_t size,
                                  std::error_code& error) {
  return counted(completed([&] { return ::read(file.number, bytes, size); }), error);
}

std::size_t PosixFileSystem::write(Handle file, std::string_view bytes, std::error_code& error) {
  return counted(completed([&] { return ::write(file.number, bytes.data(), bytes.size()); }),
                 error);
}

std::error_code PosixFileSystem::setPermissions(Handle file, unsigned permissions) {
  return errorOf([&] { return fchmod(file.number, permissions); });
}

std::error_code PosixFileSystem::sync(Handle handle) {
  return errorOf([&] { return fsync(handle.number); });
}

std::error_code PosixFileSystem::close(Handle handle) {
  // Not made again: the number is free after the first call, whatever it answers.
  return ::close(handle.number) == -1 && errno != EINTR ? lastError() : std::error_code();
}

std::error_code PosixFileSystem::rename(const Path& from, const Path& to) {
  return errorOf([&] { return std::rename(from.c_str(), to.c_str()); });
}

std::error_code PosixFileSystem::remove(const Path& path) {
  return errorOf([&] { return unlink(path.c_str()); });
}

}  // namespace mirvane
