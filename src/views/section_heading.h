#pragma once

#include <QWidget>

#include "views/theme.h"

namespace mirvane {

/// A heading within a page, with a symbol in front where one is named.
class SectionHeading : public QWidget {
  Q_OBJECT

 public:
  struct Style {
    int pointSize = 13;
    theme::Tone symbolTone = theme::Tone::warning;
    theme::Tone textTone = theme::Tone::primary;
  };

  SectionHeading(const QString& text, const QString& symbol, const Style& style,
                 QWidget* parent = nullptr);
};

}  // namespace mirvane
