#pragma once

#include <QWidget>
#include <functional>

#include "platform/clock.h"
#include "platform/file_system.h"
#include "platform/save_panel.h"
#include "session/session_snapshot.h"

namespace mirvane {

class MirvanePrimaryButton;

/// Thanks the participant and saves the results report wherever they choose.
class ResultsView : public QWidget {
  Q_OBJECT

 public:
  struct Inputs {
    SessionSnapshot snap1;
    SessionSnapshot snap2;
    QString contactAddress;  ///< of the study team
    SavePanel& savePanel;
    FileSystem& files;
    const Clock& clock;
    std::function<void()> onSaved = {};  ///< may be empty
  };

  explicit ResultsView(Inputs inputs, QWidget* parent = nullptr);

 private:
  [[nodiscard]] QWidget* makeCompletionCard();
  void save();
  void showSaveError(const QString& message);
  void showSaved();

  Inputs inputs_;
  MirvanePrimaryButton* saveButton_;
};

}  // namespace mirvane
