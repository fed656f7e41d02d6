#pragma once

#include <string>

namespace mirvane {

/// The name of the toolkit that the application of this `applicationName` is made with, "Qt" for
/// one; empty when it does not answer. libatspi's own question crashes when the application goes
/// away meanwhile.
[[nodiscard]] std::string toolkitName(const char* application);

}  // namespace mirvane
