#pragma once

#include <optional>
#include <string>

#include "platform/linux/atspi/text_field.h"

namespace mirvane {

/// What the keys that were told of so far have left before the caret of another application, as far
/// as that was seen.
class ShownText {
 public:
  /// A key has led to this.
  void see(const FieldContent& content) { beforeCaret_ = content.beforeCaret(); }

  /// A key has typed this, which was not seen. Absent when it need not have typed anything: it may
  /// have moved the caret.
  void add(const std::optional<std::string>& typed);

  void forget() { beforeCaret_.reset(); }

  /// Whether nothing has changed before the caret since.
  [[nodiscard]] bool isStill(const FieldContent& content) const {
    return beforeCaret_ && content.beforeCaret() == beforeCaret_;
  }

  /// Whether the last word before the caret is still the same; what ends words may follow it.
  [[nodiscard]] bool endsInWordOf(const FieldContent& content) const;

 private:
  std::optional<std::u16string> beforeCaret_;
};

}  // namespace mirvane
