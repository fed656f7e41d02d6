#include "language/data_file.h"

#include <xxhash.h>

#include <cstring>
#include <utility>

namespace mirvane {

namespace {

struct Header {
  std::array<char, 8> magic;
  std::uint32_t version;
  std::uint32_t reserved;
  std::uint64_t payloadSize;
  std::uint64_t checksum;
};
static_assert(sizeof(Header) == 32);

Header headerOf(const DataFileKind& kind, const void* payload, std::size_t size) {
  return {kind.magic, kind.version, 0, size, XXH3_64bits(payload, size)};
}

}  // namespace

std::optional<DataFile> DataFile::open(const std::filesystem::path& path,
                                       const DataFileKind& kind) {
  DataFile file{MappedFile(path)};
  const std::span<const std::byte> bytes = file.file_.bytes();
  if (bytes.size() < sizeof(Header)) return std::nullopt;
  const Header expected =
      headerOf(kind, bytes.data() + sizeof(Header), bytes.size() - sizeof(Header));
  if (std::memcmp(bytes.data(), &expected, sizeof(Header)) != 0) return std::nullopt;
  return file;
}

std::span<const std::byte> DataFile::payload() const {
  return file_.bytes().subspan(sizeof(Header));
}

std::string dataFileBytes(const DataFileKind& kind, std::string_view payload) {
  const Header header = headerOf(kind, payload.data(), payload.size());
  std::string bytes(reinterpret_cast<const char*>(&header), sizeof(Header));
  return bytes.append(payload);
}

}  // namespace mirvane
