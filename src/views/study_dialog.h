#pragma once

#include <QDialog>
#include <functional>
#include <vector>

class QAbstractButton;
class QScrollArea;
class QVBoxLayout;

namespace mirvane {

/// A question or a message of the study, asked by a part of one of its windows: it is shown over
/// that window, and goes away, with nothing chosen, when that part is no longer shown. Its choices
/// stand one above the other, large and far enough apart for a hand that trembles. It is no larger
/// than the screen: a long text scrolls, and the choices stay. `open()` shows it over its parent;
/// closed, it deletes itself.
class StudyDialog : public QDialog {
  Q_OBJECT

 public:
  struct Content {
    QString symbol;  ///< name of a symbol, above the texts
    QString title;
    QString text;
  };

  enum class ChoiceRole {
    safe,  ///< has the focus at first; Escape and closing the dialog choose it as well
    other
  };

  StudyDialog(const Content& content, QWidget* asker);

  /// Adds a button below those there are; answers it, for its object name. `action` runs once the
  /// dialog is closed, and may be empty. One choice at most is the safe one.
  QAbstractButton* addChoice(const QString& text, ChoiceRole role,
                             std::function<void()> action = {});

  void reject() override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 protected:
  void showEvent(QShowEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  [[nodiscard]] QWidget* makeTexts(const Content& content);
  void fitTheScreen();
  void choose(const std::function<void()>& action);

  QScrollArea* texts_;
  QVBoxLayout* choices_;
  std::function<void()> safeAction_;
};

}  // namespace mirvane
