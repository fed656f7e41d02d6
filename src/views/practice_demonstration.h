#pragma once

#include "views/mirvane_info_card.h"

namespace mirvane {

/// Shows in three pictures what the practice is about: a misspelled word, its candidates, and the
/// cycle key.
class PracticeDemonstration : public MirvaneInfoCard {
  Q_OBJECT

 public:
  PracticeDemonstration(const QString& misspelling, const QColor& deep, const QColor& sky,
                        QWidget* parent = nullptr);

 private:
  [[nodiscard]] QWidget* makePanel(const QString& title, const QList<QWidget*>& pictures);
  [[nodiscard]] QWidget* makeBox(const QString& text, double fillOpacity, bool isStrong);

  QColor accent_;
};

}  // namespace mirvane
