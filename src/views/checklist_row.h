#pragma once

#include <QWidget>

namespace mirvane {

class Symbol;
class TextLabel;

/// One step of the practice that ticks itself off. It never goes back to open.
class ChecklistRow : public QWidget {
  Q_OBJECT

 public:
  explicit ChecklistRow(const QString& text, QWidget* parent = nullptr);

  void setDone();
  [[nodiscard]] bool isDone() const { return isDone_; }

 Q_SIGNALS:
  /// Once, with what the row says now.
  void becameDone(const QString& statement);

 private:
  QString text_;
  Symbol* symbol_;
  TextLabel* label_;
  bool isDone_ = false;
};

}  // namespace mirvane
