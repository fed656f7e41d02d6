#pragma once

#include <QDialog>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QListWidget>
#include <filesystem>

#include "platform/save_panel.h"

namespace mirvane {

class RoundedButton;
class TextLabel;

/// The study's own panel for saving: the folder, large rows of the folders to change into, the name
/// of the file, Save and Cancel. Only plain text: a name with another suffix gets ".txt" added.
/// Asks before a file is replaced.
class SavePanelDialog : public QDialog {
  Q_OBJECT

 public:
  SavePanelDialog(const SavePanel::Options& options, const std::filesystem::path& folder,
                  QWidget* parent = nullptr);

  /// The file that was chosen, once the dialog is accepted.
  [[nodiscard]] const std::filesystem::path& chosenPath() const { return chosen_; }

 protected:
  void showEvent(QShowEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  [[nodiscard]] QWidget* makeNameField(const QString& suggestion);
  [[nodiscard]] QLayout* makeButtons(const QString& prompt);
  void showFolder(const std::filesystem::path& folder);
  void addRow(const QString& text, const std::filesystem::path& folder);
  void enterClicked(const QListWidgetItem& row);
  void enter(const QListWidgetItem& row);
  void save();
  void choose(const std::filesystem::path& path);
  void askToReplace(const std::filesystem::path& path);

  std::filesystem::path folder_;
  std::filesystem::path chosen_;
  TextLabel* folderLabel_;
  QListWidget* folders_;
  QLineEdit* name_;
  RoundedButton* save_ = nullptr;
  QElapsedTimer sinceFolderChange_;
};

}  // namespace mirvane
