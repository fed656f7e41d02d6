#include "views/information_strip.h"

#include <QEvent>
#include <QPainter>

#include "views/layouts.h"
#include "views/symbol.h"
#include "views/text_label.h"
#include "views/theme.h"

namespace mirvane {

InformationStrip::InformationStrip(const QString& title, const QStringList& lines,
                                   const QColor& accent, QWidget* parent)
    : QWidget(parent),
      accent_(accent),
      symbol_(new Symbol(QStringLiteral("info.circle.fill"), 14, theme::Tone::secondary, this)) {
  auto* const texts = makeColumn(2);
  texts->addWidget(new TextLabel(title, 12, QFont::Medium, theme::Tone::primary, this));
  for (const auto& line : lines) {
    texts->addWidget(new TextLabel(line, 11, QFont::Normal, theme::Tone::secondary, this));
  }
  symbol_->setColor(theme::readable(accent, palette()));

  auto* const row = makeRow(10, this);
  row->setContentsMargins(24, 10, 24, 10);
  row->addWidget(symbol_, 0, Qt::AlignTop);
  row->addLayout(texts, 1);
}

void InformationStrip::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) {
    symbol_->setColor(theme::readable(accent_, palette()));
  }
}

QList<QColor> InformationStrip::fills() const {
  return {theme::faintFill(accent_, 0.10, palette())};
}

void InformationStrip::paintEvent(QPaintEvent* /*event*/) {
  QPainter(this).fillRect(rect(), fills().first());
}

}  // namespace mirvane
