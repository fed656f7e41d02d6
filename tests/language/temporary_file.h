#pragma once

#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <string_view>

namespace mirvane {

/// A file with these bytes, gone when the test is over.
class TemporaryFile {
 public:
  explicit TemporaryFile(std::string_view bytes) {
    std::string folder = (std::filesystem::temp_directory_path() / "language-XXXXXX").string();
    if (mkdtemp(folder.data()) == nullptr) throw std::runtime_error("no temporary folder");
    folder_ = folder;
    std::ofstream(path(), std::ios::binary) << bytes;
  }
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;
  ~TemporaryFile() {
    std::error_code error;
    std::filesystem::remove_all(folder_, error);
  }

  [[nodiscard]] std::filesystem::path path() const { return folder_ / "data.bin"; }

 private:
  std::filesystem::path folder_;
};

}  // namespace mirvane
