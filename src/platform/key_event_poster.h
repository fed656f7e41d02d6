#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace mirvane {

/// A key event to be typed on the user's behalf.
struct SynthesizedKey {
  std::uint16_t keyCode = 0;
  bool isDown = true;
  std::uint64_t modifierFlags = 0;
  /// Text the key carries, whatever its key code would type; empty for none.
  std::string text;
};

/// Posts key events that carry its user data, so that whoever posted them recognises them again.
class KeyEventSource {
 public:
  KeyEventSource() = default;
  KeyEventSource(const KeyEventSource&) = delete;
  KeyEventSource& operator=(const KeyEventSource&) = delete;
  virtual ~KeyEventSource() = default;

  virtual void setUserData(std::int64_t userData) = 0;

  /// Posts to whatever has the keyboard focus when the event arrives, after all events posted
  /// before. An event that cannot be created is skipped.
  virtual void post(const SynthesizedKey& key) = 0;
};

class KeyEventPoster {
 public:
  KeyEventPoster() = default;
  KeyEventPoster(const KeyEventPoster&) = delete;
  KeyEventPoster& operator=(const KeyEventPoster&) = delete;
  virtual ~KeyEventPoster() = default;

  /// True while a password is being entered somewhere: no keys may be typed or watched then.
  [[nodiscard]] virtual bool isSecureInputEnabled() const = 0;

  /// `textBeforeCaret` is what the caller believes to stand before the caret and is about to
  /// delete. Null when the platform does not let this process post keys, or sees that something
  /// else stands there.
  [[nodiscard]] virtual std::unique_ptr<KeyEventSource> createSource(
      std::string_view textBeforeCaret) = 0;
};

}  // namespace mirvane
