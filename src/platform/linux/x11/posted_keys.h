#pragma once

#include <chrono>
#include <cstdint>
#include <deque>
#include <mutex>
#include <optional>

namespace mirvane {

/// Which keys the XTEST keyboard will send back to us because this process posted them. What other
/// programs post there, an on-screen keyboard for one, comes in between and is theirs.
///
/// Used by two threads.
class PostedKeys {
 public:
  using Clock = std::chrono::steady_clock;

  enum class Origin {
    own,     ///< typed by this system
    user,    ///< a key of the participant, given back after it was held
    silent,  ///< completes a key given back; nobody is to hear of it
  };

  struct Key {
    std::uint32_t scanCode = 0;
    bool isDown = true;
    Origin origin = Origin::own;
    double timestamp = 0;  ///< seconds; when the participant pressed it

    bool operator==(const Key&) const = default;
  };

  /// Before the key is posted.
  void expect(const Key& key, Clock::time_point now = Clock::now());

  /// The key that came back, forgotten with this answer. Absent when the event is not ours. Keys
  /// come back nearly in the order in which they were posted: two threads post, and the server says
  /// nothing of a press of what is down already.
  /// `time` is when the server dealt with it.
  [[nodiscard]] std::optional<Key> take(std::uint32_t scanCode, bool isDown,
                                        Clock::time_point time = Clock::now());

 private:
  struct Expected {
    Key key;
    Clock::time_point since;
  };

  std::mutex mutex_;
  std::deque<Expected> keys_;
};

}  // namespace mirvane
