#pragma once

#include <QWidget>
#include <filesystem>
#include <functional>

#include "platform/clock.h"
#include "platform/file_system.h"
#include "platform/save_panel.h"
#include "platform/workspace.h"
#include "session/session_snapshot.h"

namespace mirvane {

class MirvanePrimaryButton;
class TextLabel;

/// Thanks the participant and saves the results report wherever they choose. Says
/// where it is, and opens that folder.
class ResultsView : public QWidget {
  Q_OBJECT

 public:
  struct Inputs {
    SessionSnapshot snap1;
    SessionSnapshot snap2;
    QString contactAddress;  ///< of the study team
    SavePanel& savePanel;
    Workspace& workspace;
    FileSystem& files;
    const Clock& clock;
    std::function<void()> onSaved = {};  ///< may be empty
  };

  explicit ResultsView(Inputs inputs, QWidget* parent = nullptr);

 private:
  [[nodiscard]] QWidget* makeCompletionCard();
  void save();
  void showSaveError(const QString& message);
  [[nodiscard]] QWidget* makeSavedPlace();
  void showSaved(const std::filesystem::path& path);
  void openFolder();

  Inputs inputs_;
  std::filesystem::path savedPath_;  ///< of the last report; empty before
  MirvanePrimaryButton* saveButton_;
  QWidget* savedPlace_ = nullptr;
  TextLabel* savedLabel_ = nullptr;
  TextLabel* openFailure_ = nullptr;
};

}  // namespace mirvane
