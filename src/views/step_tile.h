#pragma once

#include "views/rounded_card.h"

namespace mirvane {

/// One of the steps that follow: a badge of one character, a name and a short description.
class StepTile : public RoundedCard {
  Q_OBJECT

 public:
  StepTile(const QString& badge, const QString& name, const QString& description,
           QWidget* parent = nullptr);
};

}  // namespace mirvane
