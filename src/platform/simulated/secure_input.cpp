#include "platform/simulated/secure_input.h"

namespace mirvane::simulated {

bool SecureInput::isEnabled() const {
  const auto element = workspace_.focusedElement();
  return isHeldElsewhere_ || (element && element->kind() == ElementKind::password);
}

}  // namespace mirvane::simulated
