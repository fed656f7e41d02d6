#include "tests/views/study_world.h"

#include <QLabel>

namespace mirvane {

std::unique_ptr<AppFlowView> StudyWorld::openFlow() {
  auto flow = std::make_unique<AppFlowView>(AppFlowView::Services{
      services(), services(practiceSettings), desktop.accessibility(), desktop.workspace(),
      desktop.monitors(), desktop.tasks(), desktop.clock(), savePanel, files, study});
  flow->show();
  return flow;
}

QStringList shownTexts(const QWidget& screen) {
  QStringList texts;
  for (const auto* label : screen.findChildren<QLabel*>()) {
    if (label->isVisibleTo(&screen)) texts << label->text();
  }
  return texts;
}

}  // namespace mirvane
