#include "views/layouts.h"

namespace mirvane {
namespace {

template <typename Layout>
Layout* make(int spacing, QWidget* parent) {
  auto* const layout = parent != nullptr ? new Layout(parent) : new Layout();
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(spacing);
  return layout;
}

}  // namespace

QVBoxLayout* makeColumn(int spacing, QWidget* parent) {
  return make<QVBoxLayout>(spacing, parent);
}

QHBoxLayout* makeRow(int spacing, QWidget* parent) {
  return make<QHBoxLayout>(spacing, parent);
}

}  // namespace mirvane
