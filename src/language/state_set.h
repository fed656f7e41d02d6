#pragma once

#include <cstdint>
#include <vector>

namespace mirvane {

/// A growing set of numbers below 2^32 - 1, for the states that a search has been in.
class StateSet {
 public:
  StateSet() : slots_(initialSlots, 0) {}

  /// False when the number is in the set already.
  bool insert(std::uint32_t number) {
    if (size_ * 2 >= slots_.size()) grow();
    return place(slots_, number + 1) && ++size_ > 0;
  }

 private:
  static constexpr std::size_t initialSlots = 1024;

  // Slots hold the number plus one; 0 is free. Multiplying by 2^32 over the golden ratio spreads
  // neighbouring numbers (Knuth, The Art of Computer Programming 3, section 6.4).
  static bool place(std::vector<std::uint32_t>& slots, std::uint32_t entry) {
    const std::size_t mask = slots.size() - 1;
    std::size_t i = (entry * 2654435769U >> 8) & mask;
    for (; slots[i] != 0; i = (i + 1) & mask) {
      if (slots[i] == entry) return false;
    }
    slots[i] = entry;
    return true;
  }

  void grow() {
    std::vector<std::uint32_t> larger(slots_.size() * 4, 0);
    for (const std::uint32_t entry : slots_) {
      if (entry != 0) place(larger, entry);
    }
    slots_ = std::move(larger);
  }

  std::vector<std::uint32_t> slots_;
  std::size_t size_ = 0;
};

}  // namespace mirvane
