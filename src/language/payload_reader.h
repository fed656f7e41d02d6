#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <optional>
#include <span>

namespace mirvane {

/// Hands out the parts of a payload one after the other, none beyond its end. A part is a count
/// of 64 bits and that many elements, filled up to a multiple of 8 bytes.
class PayloadReader {
 public:
  explicit PayloadReader(std::span<const std::byte> payload) : rest_(payload) {}

  /// The next part as elements of a plain type; absent when the payload does not hold all of it.
  template <typename Element>
  std::optional<std::span<const Element>> next() {
    std::uint64_t count = 0;
    if (rest_.size() < sizeof(count)) return std::nullopt;
    std::memcpy(&count, rest_.data(), sizeof(count));
    rest_ = rest_.subspan(sizeof(count));
    if (count > rest_.size() / sizeof(Element)) return std::nullopt;
    const std::span<const Element> part{reinterpret_cast<const Element*>(rest_.data()),
                                        static_cast<std::size_t>(count)};
    const std::size_t filled = (part.size_bytes() + 7) / 8 * 8;
    if (filled > rest_.size()) return std::nullopt;
    rest_ = rest_.subspan(filled);
    return part;
  }

 private:
  std::span<const std::byte> rest_;
};

}  // namespace mirvane
