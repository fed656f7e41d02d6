#include "views/suggestion_bar.h"

#include <QLinearGradient>
#include <QPainter>

#include "views/layouts.h"
#include "views/text_label.h"
#include "views/theme.h"

namespace mirvane {
namespace {

constexpr int barHeight = 44;

/// The current candidate of the cycler comes first, then the best candidate.
SuggestionChip::Emphasis emphasisOf(std::size_t index, std::int64_t cycleIndex) {
  if (static_cast<std::int64_t>(index) == cycleIndex) return SuggestionChip::Emphasis::current;
  return index == 0 ? SuggestionChip::Emphasis::best : SuggestionChip::Emphasis::other;
}

}  // namespace

SuggestionBar::SuggestionBar(const CorrectionEngine& engine, const QColor& accent,
                             Placement placement, QWidget* parent)
    : QWidget(parent),
      engine_(engine),
      accent_(accent),
      placement_(placement),
      dash_(new TextLabel(tr("—"), 14, QFont::Normal, theme::Tone::tertiary, this)) {
  setAccessibleName(tr("Suggestions"));
  dash_->setObjectName(QStringLiteral("noSuggestions"));
  dash_->setAccessibleName(tr("No suggestions"));
  dash_->setAlignment(Qt::AlignCenter);
  dash_->setFixedHeight(barHeight);
  makeChips();
  subscriptions_ = {engine_.suggestions().subscribe([this] { showSuggestions(); }),
                    engine_.cycleIndex().subscribe([this] { showSuggestions(); })};
  showSuggestions();
}

void SuggestionBar::makeChips() {
  auto* const row = makeRow(8, this);
  const int edge = placement_ == Placement::acrossScreen ? 24 : 8;
  row->setContentsMargins(edge, 8, edge, 8);
  row->addWidget(dash_, 1);
  for (std::size_t i = 0; i < chipCount; ++i) {
    auto* const chip = new SuggestionChip(accent_, this);
    chip->setObjectName(QStringLiteral("chip%1").arg(i));
    connect(chip, &QPushButton::clicked, this, [this, chip] { Q_EMIT chosen(chip->text()); });
    row->addWidget(chip, 1);
    chips_.at(i) = chip;
  }
}

void SuggestionBar::showSuggestions() {
  const auto& suggestions = *engine_.suggestions();
  dash_->setVisible(suggestions.empty());
  for (std::size_t i = 0; i < chipCount; ++i) {
    const bool isShown = i < suggestions.size();
    if (isShown) {
      chips_.at(i)->setSuggestion(QString::fromStdString(suggestions[i]),
                                  emphasisOf(i, *engine_.cycleIndex()));
    }
    chips_.at(i)->setVisible(isShown);
  }
}

void SuggestionBar::paintEvent(QPaintEvent* /*event*/) {
  QLinearGradient gradient(0, 0, width(), 0);
  gradient.setColorAt(0, theme::withOpacity(accent_, 0.10));
  gradient.setColorAt(1, theme::withOpacity(accent_, 0.03));
  const double cornerRadius = placement_ == Placement::acrossScreen ? 0 : 12;
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(gradient);
  painter.drawRoundedRect(rect(), cornerRadius, cornerRadius);
}

}  // namespace mirvane
