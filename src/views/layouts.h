#pragma once

#include <QBoxLayout>

namespace mirvane {

/// A layout without margins, with this many pixels between its parts.
[[nodiscard]] QVBoxLayout* makeColumn(int spacing, QWidget* parent = nullptr);
[[nodiscard]] QHBoxLayout* makeRow(int spacing, QWidget* parent = nullptr);

}  // namespace mirvane
