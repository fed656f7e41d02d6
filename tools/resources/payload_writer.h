#pragma once

#include <cstdint>
#include <span>
#include <string>

namespace mirvane {

/// Builds a payload that PayloadReader takes apart.
class PayloadWriter {
 public:
  template <typename Element>
  void add(std::span<const Element> part) {
    const std::uint64_t count = part.size();
    append(&count, sizeof(count));
    append(part.data(), part.size_bytes());
    bytes_.resize((bytes_.size() + 7) / 8 * 8, '\0');
  }

  [[nodiscard]] const std::string& bytes() const { return bytes_; }

 private:
  void append(const void* data, std::size_t size) {
    bytes_.append(static_cast<const char*>(data), size);
  }

  std::string bytes_;
};

}  // namespace mirvane
