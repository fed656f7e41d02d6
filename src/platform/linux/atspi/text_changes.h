#pragma once

#include <cstdint>
#include <deque>
#include <string>
#include <string_view>

namespace mirvane {

/// The changes of text that applications announce, and which of them a key has brought about. The
/// announcements of one application come in the order of its keys.
class TextChanges {
 public:
  /// Names an application; the value has no other meaning.
  using Application = const void*;

  struct Change {
    Application application = nullptr;
    bool isInsertion = true;
    std::string text;
  };

  /// Keeps a bounded number: nobody may ask for them.
  void add(Change change);

  /// Whether the application has announced what a key that types `text` does: an insertion of just
  /// that text (a longer one has another cause), or for U+007F a deletion. Forgets that change and
  /// all before it.
  [[nodiscard]] bool takeChangeOf(Application application, std::string_view text);

  /// Forgets all.
  void clear() { changes_.clear(); }

 private:
  std::deque<Change> changes_;
};

}  // namespace mirvane
