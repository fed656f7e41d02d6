#pragma once

#include <QWidget>
#include <array>

#include "views/app_step.h"
#include "views/bar.h"

namespace mirvane {

class StepRow;

/// Where the participant is in the study, and a tip.
class MirvaneStepSidebar : public Bar {
  Q_OBJECT

 public:
  MirvaneStepSidebar(AppStep currentStep, const QColor& deep, QWidget* parent = nullptr);

  void setCurrentStep(AppStep step);

 private:
  [[nodiscard]] QWidget* makeTip();

  std::array<StepRow*, appSteps.size()> rows_{};
};

}  // namespace mirvane
