#include "platform/linux/atspi/password_fields.h"

#include <algorithm>
#include <cstddef>

#include "platform/linux/atspi/accessible_state.h"
#include "platform/linux/atspi/application_name.h"

namespace mirvane {
namespace {

/// Pages with more of them are rare.
constexpr std::size_t mostFields = 16;

GObjectPointer<AtspiAccessible> parentOf(AtspiAccessible* accessible) {
  return GObjectPointer<AtspiAccessible>(atspi_accessible_get_parent(accessible, nullptr));
}

/// libatspi says so as well of what does not answer.
bool isGone(AtspiAccessible* accessible) {
  return hasState(accessible, ATSPI_STATE_DEFUNCT);
}

}  // namespace

void PasswordFields::note(AtspiAccessible* field) {
  const bool isLatest = !known_.empty() && known_.back().field.get() == field;
  if (isLatest && known_.back().parent) return;
  std::erase_if(known_, [field](const Known& known) { return known.field.get() == field; });
  known_.push_back({newReference(field), parentOf(field)});
  if (known_.size() > mostFields) known_.pop_front();
}

bool PasswordFields::areIn(const char* application) const {
  return std::any_of(known_.begin(), known_.end(), [&](const Known& known) {
    return applicationName(known.field.get()) == application;
  });
}

bool PasswordFields::include(const TextField& field) const {
  const auto isSame = [&](const Known& known) { return field.accessible() == known.field.get(); };
  if (std::any_of(known_.begin(), known_.end(), isSame)) return true;
  const auto* const application = applicationName(field.accessible());
  if (!field.isLine() || !areIn(application)) return false;
  const auto parent = parentOf(field.accessible());
  return std::any_of(known_.begin(), known_.end(), [&](const Known& known) {
    const bool isBeside = !parent || !known.parent || parent == known.parent;
    return isBeside && applicationName(known.field.get()) == application &&
           isGone(known.field.get());
  });
}

}  // namespace mirvane
