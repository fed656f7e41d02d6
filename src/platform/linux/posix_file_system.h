#pragma once

#include "platform/file_system.h"

namespace mirvane {

class PosixFileSystem : public FileSystem {
 public:
  [[nodiscard]] Status status(const Path& path, std::error_code& error) override;
  [[nodiscard]] Path linkTarget(const Path& link, std::error_code& error) override;
  [[nodiscard]] std::error_code checkWritable(const Path& path) override;
  [[nodiscard]] std::vector<std::string> namesIn(const Path& folder,
                                                 std::error_code& error) override;
  [[nodiscard]] Handle create(const Path& path, std::error_code& error) override;
  [[nodiscard]] Handle openForReading(const Path& path, std::error_code& error) override;
  [[nodiscard]] Handle openFolder(const Path& folder, std::error_code& error) override;
  [[nodiscard]] std::error_code lock(Handle file) override;
  [[nodiscard]] std::size_t read(Handle file, char* bytes, std::size_t size,
                                 std::error_code& error) override;
  [[nodiscard]] std::size_t write(Handle file, std::string_view bytes,
                                  std::error_code& error) override;
  [[nodiscard]] std::error_code setPermissions(Handle file, unsigned permissions) override;
  [[nodiscard]] std::error_code sync(Handle handle) override;
  [[nodiscard]] std::error_code close(Handle handle) override;
  [[nodiscard]] std::error_code rename(const Path& from, const Path& to) override;
  [[nodiscard]] std::error_code remove(const Path& path) override;
};

}  // namespace mirvane
