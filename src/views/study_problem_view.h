#pragma once

#include <QStringList>
#include <QWidget>
#include <functional>

namespace mirvane {

/// Stands in the place of a study that cannot be run as its team has set it up, and says why.
class StudyProblemView : public QWidget {
  Q_OBJECT

 public:
  StudyProblemView(const QStringList& problems, std::function<void()> onClose,
                   QWidget* parent = nullptr);
};

}  // namespace mirvane
