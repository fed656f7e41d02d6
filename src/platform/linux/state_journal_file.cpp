#include "platform/linux/state_journal_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <utility>

namespace mirvane {
namespace {

constexpr const char* journalName = "unsaved-study.jsonl";
constexpr const char* lockName = "unsaved-study.lock";
constexpr mode_t ownerOnlyFolder = 0700;
constexpr mode_t ownerOnlyFile = 0600;
// Not to be led elsewhere, nor to wait for what is not a file.
constexpr int carefully = O_NOFOLLOW | O_CLOEXEC | O_NONBLOCK;

/// Opens something that exists and is ours; makes it ours alone.
FileDescriptor ownOnly(FileDescriptor opened, mode_t kind, mode_t mode) {
  struct stat status {};
  if (!opened.isOpen() || fstat(opened.number(), &status) != 0) return {};
  const bool isOurs = (status.st_mode & S_IFMT) == kind && status.st_uid == geteuid();
  const bool isNamedOnce = kind == S_IFDIR || status.st_nlink == 1;
  if (!isOurs || !isNamedOnce) {
    errno = EPERM;
    return {};
  }
  if ((status.st_mode & 07777U) != mode && fchmod(opened.number(), mode) != 0) return {};
  return opened;
}

FileDescriptor openIn(const FileDescriptor& folder, const char* name, int flags) {
  return ownOnly(FileDescriptor(openat(folder.number(), name, flags | carefully, ownerOnlyFile)),
                 S_IFREG, ownerOnlyFile);
}

bool writeAll(int file, std::string_view bytes) {
  while (!bytes.empty()) {
    const auto written = write(file, bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) return false;
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return true;
}

std::string environment(const char* name) {
  const char* const value = std::getenv(name);
  return value == nullptr ? "" : value;
}

}  // namespace

FileDescriptor::FileDescriptor(FileDescriptor&& other) noexcept
    : number_(std::exchange(other.number_, -1)) {}

FileDescriptor& FileDescriptor::operator=(FileDescriptor&& other) noexcept {
  std::swap(number_, other.number_);
  return *this;
}

FileDescriptor::~FileDescriptor() {
  if (isOpen()) close(number_);
}

std::string StateJournalFile::standardFolder() {
  auto base = environment("XDG_STATE_HOME");
  if (base.empty() || base.front() != '/') base = environment("HOME") + "/.local/state";
  return base + "/mirvanetest";
}

JournalFile::Claim StateJournalFile::claim() {
  if (lock_.isOpen()) return Claim::mine;
  if (!openFolder()) return Claim::impossible;
  auto lock = openIn(directory_, lockName, O_RDWR | O_CREAT);
  if (!lock.isOpen()) return Claim::impossible;
  if (flock(lock.number(), LOCK_EX | LOCK_NB) != 0) {
    return errno == EWOULDBLOCK ? Claim::others : Claim::impossible;
  }
  lock_ = std::move(lock);
  return Claim::mine;
}

bool StateJournalFile::openFolder() {
  std::error_code error;
  std::filesystem::create_directories(std::filesystem::path(folder_).parent_path(), error);
  if (mkdir(folder_.c_str(), ownerOnlyFolder) != 0 && errno != EEXIST) return false;
  directory_ = ownOnly(FileDescriptor(open(folder_.c_str(), O_RDONLY | O_DIRECTORY | carefully)),
                       S_IFDIR, ownerOnlyFolder);
  return directory_.isOpen();
}

bool StateJournalFile::openFile(bool isMade) {
  if (file_.isOpen()) return true;
  file_ = openIn(directory_, journalName, O_RDWR | O_APPEND | (isMade ? O_CREAT : 0));
  return file_.isOpen();
}

std::optional<std::string> StateJournalFile::contents() {
  if (!openFile(false)) {
    if (errno == ENOENT) return std::string();
    return std::nullopt;
  }
  std::string contents;
  std::array<char, 65536> part{};
  while (true) {
    const auto offset = static_cast<off_t>(contents.size());
    const auto count = pread(file_.number(), part.data(), part.size(), offset);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return std::nullopt;
    if (count == 0) return contents;
    contents.append(part.data(), static_cast<std::size_t>(count));
  }
}

bool StateJournalFile::append(std::string_view bytes) {
  return openFile(true) && writeAll(file_.number(), bytes);
}

bool StateJournalFile::cutTo(std::uint64_t size) {
  if (!openFile(false)) return size == 0 && errno == ENOENT;
  return ftruncate(file_.number(), static_cast<off_t>(size)) == 0;
}

bool StateJournalFile::sync() {
  if (!openFile(false) || fdatasync(file_.number()) != 0) return false;
  // Once the folder too: it is what names the file.
  if (!isNamed_) isNamed_ = fsync(directory_.number()) == 0;
  return isNamed_;
}

bool StateJournalFile::remove() {
  file_ = {};
  isNamed_ = false;
  return unlinkat(directory_.number(), journalName, 0) == 0 || errno == ENOENT;
}

bool StateJournalFile::setAside() {
  file_ = {};
  isNamed_ = false;
  constexpr int mostNames = 1000;
  for (int number = 1; number < mostNames; ++number) {
    const auto name = std::string(journalName) + ".set-aside-" + std::to_string(number);
    if (renameat2(directory_.number(), journalName, directory_.number(), name.c_str(),
                  RENAME_NOREPLACE) == 0) {
      return true;
    }
    if (errno != EEXIST) return errno == ENOENT;
  }
  return false;
}

}  // namespace mirvane
