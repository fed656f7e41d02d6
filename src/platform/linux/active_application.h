#pragma once

#include <QGuiApplication>

#include "platform/linux/other_applications.h"

namespace mirvane {

/// Whether what the engine asks now is about another application than this one. `others` is null
/// where others are out of reach.
[[nodiscard]] inline bool isOtherActive(const OtherApplications* others) {
  if (others == nullptr) return false;
  return others->isDelivering() || QGuiApplication::applicationState() != Qt::ApplicationActive;
}

}  // namespace mirvane
