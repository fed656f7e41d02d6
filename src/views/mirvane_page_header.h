#pragma once

#include <optional>

#include "views/bar.h"

namespace mirvane {

/// The bar on top of a page: the logo, the title and, where there is one, a subtitle.
class MirvanePageHeader : public Bar {
  Q_OBJECT

 public:
  explicit MirvanePageHeader(const QString& title, const std::optional<QString>& subtitle = {},
                             QWidget* parent = nullptr);
};

}  // namespace mirvane
