#pragma once

#include <QBrush>
#include <QPushButton>

namespace mirvane {

/// A button on a rounded rectangle, with a hover, a pressed and a focus look. Return presses it as
/// Space does, when it is let go: a key held too long does nothing more. Of a double click only the
/// first press counts: the second was not meant for what has come to stand there since. Only the
/// keyboard gives it the focus, so that a click leaves the focus in the text field.
class RoundedButton : public QPushButton {
  Q_OBJECT

 public:
  RoundedButton(const QString& text, const QFont& font, QWidget* parent);

  /// A symbol behind the text; an empty name takes it away.
  void setSymbol(const QString& name, int pointSize);

  /// A button that is not ready is paler, takes no press by pointer, key or assistive technology,
  /// and is told to assistive technology as disabled. Unlike a disabled one it keeps the focus.
  void setReady(bool isReady);
  [[nodiscard]] bool isReady() const { return isReady_; }

  /// What assistive technology adds to the description, while the button has the focus say.
  void setKeyboardHint(const QString& hint) { keyboardHint_ = hint; }
  [[nodiscard]] const QString& keyboardHint() const { return keyboardHint_; }

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  struct Look {
    QColor fill;
    QColor shade;    ///< laid thinly over the fill under the pointer, and thicker while pressed
    QColor outline;  ///< transparent for none
    QColor content;  ///< moved as far as it must be to be read in every state
    double cornerRadius = 8;
    double opacity = 1;
  };

  [[nodiscard]] virtual Look look() const = 0;

  /// A shade for filled buttons, which makes their text easier to read rather than harder.
  [[nodiscard]] static QColor shadeBehind(const QColor& text);

  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void keyReleaseEvent(QKeyEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  bool event(QEvent* event) override;

 private:
  [[nodiscard]] Look readableLook() const;
  void drawSurface(QPainter& painter, const Look& look) const;
  void drawContent(QPainter& painter, const Look& look) const;
  void drawFocusRing(QPainter& painter, const Look& look) const;
  [[nodiscard]] int shownSymbolSide() const;
  [[nodiscard]] bool canBePressed() const { return isReady_ && isEnabled(); }

  bool isReady_ = true;
  QString keyboardHint_;
  QString symbol_;
  int symbolPointSize_ = 0;
};

}  // namespace mirvane
