#pragma once

#include <QWidget>
#include <filesystem>

#include "platform/workspace.h"
#include "session/session_snapshot.h"
#include "views/report_saver.h"

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
    ReportSaver saver;
    Workspace& workspace;
  };

  explicit ResultsView(Inputs inputs, QWidget* parent = nullptr);

  /// Asks where to save the report, and shows what comes of it.
  void save();

 private:
  [[nodiscard]] QWidget* makeCompletionCard();
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
