#pragma once

#include <string>

#include "platform/journal_file.h"

namespace mirvane {

/// An open file or folder, closed at the end.
class FileDescriptor {
 public:
  FileDescriptor() = default;
  explicit FileDescriptor(int number) : number_(number) {}
  FileDescriptor(FileDescriptor&& other) noexcept;
  FileDescriptor& operator=(FileDescriptor&& other) noexcept;
  FileDescriptor(const FileDescriptor&) = delete;
  FileDescriptor& operator=(const FileDescriptor&) = delete;
  ~FileDescriptor();

  [[nodiscard]] bool isOpen() const { return number_ >= 0; }
  [[nodiscard]] int number() const { return number_; }

 private:
  int number_ = -1;
};

/// "unsaved-study.jsonl" in a folder of its own, which only this user may enter. A folder or file
/// that is a symbolic link or belongs to somebody else is not used. A lock on a second file beside
/// it keeps the studies of two programs apart.
class StateJournalFile : public JournalFile {
 public:
  explicit StateJournalFile(std::string folder) : folder_(std::move(folder)) {}

  /// `$XDG_STATE_HOME/mirvanetest`, in ~/.local/state when that names no absolute path.
  [[nodiscard]] static std::string standardFolder();

  [[nodiscard]] Claim claim() override;
  [[nodiscard]] std::optional<std::string> contents() override;
  [[nodiscard]] bool append(std::string_view bytes) override;
  [[nodiscard]] bool cutTo(std::uint64_t size) override;
  [[nodiscard]] bool sync() override;
  [[nodiscard]] bool remove() override;
  [[nodiscard]] bool setAside() override;

 private:
  [[nodiscard]] bool openFolder();
  /// The journal, opened and kept open; made when it is not there and `isMade`.
  [[nodiscard]] bool openFile(bool isMade);

  std::string folder_;
  FileDescriptor directory_, lock_, file_;
  bool isNamed_ = false;  ///< the folder's entry of the file outlives a power cut
};

}  // namespace mirvane
