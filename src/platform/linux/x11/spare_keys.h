#pragma once

#include <cstdint>
#include <map>
#include <vector>

#include "platform/linux/x11/x_display.h"

namespace mirvane {

/// Finds keys that type given symbols just then: with the layout and Caps Lock as they are, with
/// the held modifiers and without them, and keys that nobody is holding down. Where there is none,
/// a key that the layout leaves unused is bound to the symbol, whatever the modifiers.
///
/// Bindings stay until others need the keys, as applications read them late, and are taken back in
/// the end; those of a run that crashed are used again. Which keys are unused is read from the
/// server each time: the layout may have changed.
class SpareKeys {
 public:
  /// `display` outlives this object.
  explicit SpareKeys(_XDisplay* display) : display_(display) {}
  ~SpareKeys();
  SpareKeys(const SpareKeys&) = delete;
  SpareKeys& operator=(const SpareKeys&) = delete;

  /// The scan codes in order; fewer when the keyboard has no key left. Where `consecutiveDiffer`,
  /// no key comes twice in a row. New bindings need a moment until applications have read them,
  /// which this waits for.
  [[nodiscard]] std::vector<std::uint32_t> keysFor(const std::vector<unsigned long>& symbols,
                                                   bool consecutiveDiffer);

 private:
  class Keyboard;

  struct Binding {
    std::uint32_t key = 0;
    unsigned long symbol = 0;
  };

  /// Those that may be bound for a text of these symbols, in the order in which to take them.
  [[nodiscard]] std::vector<std::uint32_t> sparesFor(
      const Keyboard& keyboard, const std::vector<unsigned long>& symbols) const;
  /// All in one request: every program reads the whole keyboard anew after each.
  void bind(const std::vector<Binding>& bindings);
  void bindOn(unsigned device, const std::vector<Binding>& bindings);

  _XDisplay* display_;
  std::map<std::uint32_t, std::uint64_t> lastUses_;  ///< of the keys bound here
  std::uint64_t uses_ = 0;
};

}  // namespace mirvane
