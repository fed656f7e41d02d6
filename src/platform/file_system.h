#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

namespace mirvane {

/// The system's calls on files, each for itself. What is made of them stands in `files/`; here
/// nothing is decided. Whatever fails answers with the system's own error.
class FileSystem {
 public:
  using Path = std::filesystem::path;

  enum class Kind { absent, regular, folder, link, other };

  struct Status {
    Kind kind = Kind::absent;
    unsigned permissions = 0;  ///< the nine bits of owner, group and others
  };

  /// An open file or folder, closed by `close` alone.
  struct Handle {
    int number = -1;
  };

  FileSystem() = default;
  FileSystem(const FileSystem&) = delete;
  FileSystem& operator=(const FileSystem&) = delete;
  virtual ~FileSystem() = default;

  /// Of the entry itself, a link too. That there is none is no error.
  [[nodiscard]] virtual Status status(const Path& path, std::error_code& error) = 0;
  /// Where a link leads to, as it is written in it.
  [[nodiscard]] virtual Path linkTarget(const Path& link, std::error_code& error) = 0;
  /// Whether this user may write the file.
  [[nodiscard]] virtual std::error_code checkWritable(const Path& path) = 0;
  [[nodiscard]] virtual std::vector<std::string> namesIn(const Path& folder,
                                                         std::error_code& error) = 0;

  /// A new file, for its owner alone; fails where anything of that name exists.
  [[nodiscard]] virtual Handle create(const Path& path, std::error_code& error) = 0;
  /// Never waits, whatever stands there; a link is not followed.
  [[nodiscard]] virtual Handle openForReading(const Path& path, std::error_code& error) = 0;
  [[nodiscard]] virtual Handle openFolder(const Path& folder, std::error_code& error) = 0;

  /// Marks an open file as in use until it is closed, by the end of the program at the latest.
  /// Fails at once where another program, or another handle, has marked it.
  [[nodiscard]] virtual std::error_code lock(Handle file) = 0;
  /// How many bytes were read; 0 at the end of the file.
  [[nodiscard]] virtual std::size_t read(Handle file, char* bytes, std::size_t size,
                                         std::error_code& error) = 0;
  /// How many of the bytes were written, which may be fewer than all.
  [[nodiscard]] virtual std::size_t write(Handle file, std::string_view bytes,
                                          std::error_code& error) = 0;
  [[nodiscard]] virtual std::error_code setPermissions(Handle file, unsigned permissions) = 0;
  /// Returns once the file, or the names in a folder, would outlast a power cut.
  [[nodiscard]] virtual std::error_code sync(Handle handle) = 0;
  /// The handle is gone even if this fails.
  [[nodiscard]] virtual std::error_code close(Handle handle) = 0;

  /// Replaces what stands at `to`, in one step.
  [[nodiscard]] virtual std::error_code rename(const Path& from, const Path& to) = 0;
  [[nodiscard]] virtual std::error_code remove(const Path& path) = 0;
};

}  // namespace mirvane
