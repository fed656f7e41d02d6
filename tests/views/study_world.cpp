#include "tests/views/study_world.h"

#include <QLabel>
#include <QTimer>

#include "views/press_guard.h"

namespace mirvane {

std::unique_ptr<AppFlowView> StudyWorld::openFlow(std::shared_ptr<JournalFile> journal) {
  auto flow = std::make_unique<AppFlowView>(AppFlowView::Services{services(),
                                                                  services(practiceSettings),
                                                                  desktop.accessibility(),
                                                                  desktop.workspace(),
                                                                  desktop.monitors(),
                                                                  desktop.tasks(),
                                                                  desktop.clock(),
                                                                  savePanel,
                                                                  files,
                                                                  study,
                                                                  OtherPrograms::leftAlone,
                                                                  {},
                                                                  {},
                                                                  std::move(journal)});
  flow->show();
  return flow;
}

void endPressGuards(const QWidget& screen) {
  for (auto* const timer : screen.findChildren<QTimer*>(QLatin1String(pressGuardTimer))) {
    if (timer->isActive()) timer->start(0);
  }
  QCoreApplication::processEvents();
}

QStringList shownTexts(const QWidget& screen) {
  QStringList texts;
  for (const auto* label : screen.findChildren<QLabel*>()) {
    if (label->isVisibleTo(&screen)) texts << label->text();
  }
  return texts;
}

}  // namespace mirvane
