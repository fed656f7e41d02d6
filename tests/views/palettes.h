#pragma once

#include <QPalette>

namespace mirvane {

/// The desktop's colours that the screens are tried with.
struct NamedPalette {
  const char* name;
  QPalette palette;
};

inline QPalette darkPalette() {
  QPalette palette(QColor(0x31, 0x36, 0x3B), QColor(0x23, 0x26, 0x29));
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    palette.setColor(role, QColor(0xFC, 0xFC, 0xFC));
  }
  palette.setColor(QPalette::Base, QColor(0x1B, 0x1E, 0x20));
  return palette;
}

/// White and yellow on black.
inline QPalette highContrastPalette() {
  QPalette palette(Qt::black, Qt::black);
  for (const auto role :
       {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::PlaceholderText}) {
    palette.setColor(role, Qt::white);
  }
  palette.setColor(QPalette::Base, Qt::black);
  palette.setColor(QPalette::Highlight, Qt::yellow);
  palette.setColor(QPalette::HighlightedText, Qt::black);
  return palette;
}

inline QList<NamedPalette> palettes() {
  return {{"light", QPalette(QColor(0xEF, 0xEF, 0xEF))},
          {"dark", darkPalette()},
          {"high contrast", highContrastPalette()}};
}

}  // namespace mirvane
