#pragma once

#include <chrono>
#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <string_view>

namespace mirvane {

/// Which keys an application has dealt with already, told by the changes of text that it announces.
/// An application that is behind announces the effects of earlier keys first: a change belongs to
/// the earliest key that it fits.
class KeyEffects {
 public:
  using Clock = std::chrono::steady_clock;
  /// Names an application (see `applicationName`): the pointer is compared, not what it points to.
  using Application = const char*;
  enum class Id : std::uint64_t {};

  struct Change {
    bool isInsertion = true;
    std::string text;
  };

  /// A key has typed `text`, and the application got it at `deliveredAt`: its effect is an
  /// insertion of just that text, alone or together with that of the next keys (one that begins
  /// with other text has another cause), or for U+007F a deletion. It may have been announced
  /// since. Rich texts announce no-break spaces for spaces, which are written anew before the next
  /// letter, and a new paragraph as an embedded element.
  [[nodiscard]] Id expect(Application application, std::string_view text,
                          Clock::time_point deliveredAt);

  /// The application has announced a change, at `time`. The keys before the one it belongs to are
  /// given up. False when it belongs to none so far.
  bool note(Application application, Change change, Clock::time_point time);

  /// Whether the effect of the key, or of a later one, was announced.
  [[nodiscard]] bool isShown(Id id) const;

  /// Gives up the application's keys from before `time`: they have had no effect.
  void giveUp(Application application, Clock::time_point time);

  /// Forgets what was announced, and every key.
  void clear();

 private:
  struct Key {
    Id id{};
    Application application = nullptr;
    std::string text;
    Clock::time_point deliveredAt{};
  };

  struct EarlyChange {
    Application application = nullptr;
    Change change;
    Clock::time_point time{};
  };

  [[nodiscard]] bool takeEarlyChange(const Key& key);
  [[nodiscard]] std::optional<Id> lastTyped(Application application, const Change& change) const;
  [[nodiscard]] std::optional<Id> lastTypedFrom(const std::deque<Key>::const_iterator& first,
                                                std::string_view text) const;

  std::deque<Key> pending_;
  std::deque<EarlyChange> early_;  ///< changes that fitted no key
  std::uint64_t lastId_ = 0;
};

}  // namespace mirvane
