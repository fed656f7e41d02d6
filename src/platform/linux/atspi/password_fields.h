#pragma once

#include <deque>

#include "platform/linux/atspi/gobject_pointer.h"
#include "platform/linux/atspi/text_field.h"

namespace mirvane {

/// The fields of other applications that have taken a password: once one, always one, also while it
/// shows the password. Used on the accessibility thread alone.
class PasswordFields {
 public:
  void note(AtspiAccessible* field);

  /// Whether the field is one of them, or a line that has come in the place of one: to show a
  /// password, browsers make a new element, and some pages do too. True as well when that cannot be
  /// found out. Asks nothing where no password field has been seen in the application.
  [[nodiscard]] bool include(const TextField& field) const;

  /// Whether any has been seen in an application (see `applicationName`).
  [[nodiscard]] bool areIn(const char* application) const;

  void clear() { known_.clear(); }

 private:
  struct Known {
    GObjectPointer<AtspiAccessible> field;
    GObjectPointer<AtspiAccessible> parent;  ///< null when it was not to be found out
  };

  std::deque<Known> known_;  ///< the one noted last at the end
};

}  // namespace mirvane
