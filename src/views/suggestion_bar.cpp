#include "views/suggestion_bar.h"

#include <QGridLayout>
#include <QPainter>

#include "views/accessible_parts.h"
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

/// Also while it is hidden: nothing may move under a pointer that is on its way to a chip.
void keepPlace(QWidget& chip) {
  auto policy = chip.sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  chip.setSizePolicy(policy);
}

}  // namespace

SuggestionBar::SuggestionBar(const CorrectionEngine& engine, const QColor& accent,
                             Placement placement, QWidget* parent)
    : QWidget(parent),
      engine_(engine),
      accent_(accent),
      placement_(placement),
      dash_(new TextLabel(tr("—"), 14, QFont::Normal, theme::Tone::tertiary, this)) {
  setAccessibleRole(*this, QAccessible::Grouping);
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
  auto* const places = new QGridLayout(this);
  const int edge = placement_ == Placement::acrossScreen ? 24 : 8;
  places->setContentsMargins(edge, 8, edge, 8);
  places->setSpacing(8);
  places->addWidget(dash_, 0, 0, 1, static_cast<int>(chipCount));
  for (std::size_t i = 0; i < chipCount; ++i) {
    auto* const chip = new SuggestionChip(accent_, this);
    chip->setObjectName(QStringLiteral("chip%1").arg(i));
    connect(chip, &QPushButton::clicked, this, [this, chip] { Q_EMIT chosen(chip->text()); });
    const int column = static_cast<int>(i);
    places->addWidget(chip, 0, column);
    places->setColumnStretch(column, 1);
    keepPlace(*chip);
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

QList<QColor> SuggestionBar::fills() const {
  return {theme::faintFill(accent_, 0.10, palette()), theme::faintFill(accent_, 0.03, palette())};
}

void SuggestionBar::paintEvent(QPaintEvent* /*event*/) {
  const double cornerRadius = placement_ == Placement::acrossScreen ? 0 : 12;
  const auto shown = laidOver(surfacesBehind(*this).mid(0, 1), fills());
  QPainter painter(this);
  gradient_.draw(painter, rect(), {shown.first(), shown.last(), Qt::TopRightCorner, cornerRadius});
}

}  // namespace mirvane
