#pragma once

#include <QString>
#include <optional>
#include <string_view>

#include "platform/bundle.h"

namespace mirvane {

/// What a deployment of the study sets.
struct StudyConfiguration {
  QString contactAddress;  ///< e-mail address of the study team
};

/// Reads study.json from the resources and, over it, the one in the user's configuration folder or,
/// where there is none, in the system's (`/etc/xdg/mirvanetest`).
[[nodiscard]] StudyConfiguration loadStudyConfiguration(const Bundle& bundle);

/// The "contactAddress" of such a file; absent when it is damaged or names none.
[[nodiscard]] std::optional<QString> contactAddressIn(std::string_view json);

}  // namespace mirvane
