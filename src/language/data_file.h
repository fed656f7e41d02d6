#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string>

#include "language/mapped_file.h"

namespace mirvane {

/// What a language data file holds, and which revision of its layout.
struct DataFileKind {
  std::array<char, 8> magic;
  std::uint32_t version;
};

/// A language data file: a header that tells its kind, then the payload. The numbers in it are
/// little-endian, as on every machine the program runs on; elsewhere the version does not match.
class DataFile {
 public:
  /// Absent when the file is missing, truncated, of another kind or version, or damaged.
  static std::optional<DataFile> open(const std::filesystem::path& path, const DataFileKind& kind);

  /// Aligned to 8 bytes; lives as long as this object.
  [[nodiscard]] std::span<const std::byte> payload() const;

 private:
  explicit DataFile(MappedFile file) : file_(std::move(file)) {}

  MappedFile file_;
};

/// The bytes of a data file with this payload.
std::string dataFileBytes(const DataFileKind& kind, std::string_view payload);

}  // namespace mirvane
