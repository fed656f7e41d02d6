#pragma once

#include "platform/simulated/in_memory_workspace.h"

namespace mirvane::simulated {

/// Whether a password is being entered somewhere.
class SecureInput {
 public:
  explicit SecureInput(const InMemoryWorkspace& workspace) : workspace_(workspace) {}

  /// True while a password element has the focus or another program holds secure input.
  [[nodiscard]] bool isEnabled() const;
  /// Another program, without any window here, turns secure input on or off.
  void setHeldElsewhere(bool held) { isHeldElsewhere_ = held; }

 private:
  const InMemoryWorkspace& workspace_;
  bool isHeldElsewhere_ = false;
};

}  // namespace mirvane::simulated
