#pragma once

#include <QLabel>

#include "views/theme.h"

namespace mirvane {

/// A text of the screens: wraps, and keeps its tone when the desktop changes its colours.
class TextLabel : public QLabel {
  Q_OBJECT

 public:
  TextLabel(const QString& text, int pixelSize, QFont::Weight weight, theme::Tone tone,
            QWidget* parent = nullptr);

  void setTone(theme::Tone tone);
  /// Assistive technology tells a heading from other texts, and goes from one to the next.
  void setHeading();
  /// Draws in `accent`, made readable where it stands, instead of the tone's colour.
  void setAccent(const QColor& accent);
  /// Draws in exactly this colour, for texts on a surface of their own; an invalid one ends that.
  void setFixedColor(const QColor& color);

 protected:
  bool event(QEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void applyColor();
  [[nodiscard]] QColor currentColor() const;

  theme::Tone tone_;
  QColor accent_;
  QColor fixedColor_;
};

}  // namespace mirvane
