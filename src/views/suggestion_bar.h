#pragma once

#include <QWidget>
#include <array>
#include <string>
#include <vector>

#include "session/correction_engine.h"
#include "views/smooth_gradient.h"
#include "views/suggestion_chip.h"
#include "views/surface.h"

namespace mirvane {

class TextLabel;

/// The engine's suggestions as chips, each rank in a place of its own; a dash while there are none.
class SuggestionBar : public QWidget, public Surface {
  Q_OBJECT

 public:
  enum class Placement { acrossScreen, inColumn };

  /// The engine must outlive the bar.
  SuggestionBar(const CorrectionEngine& engine, const QColor& accent, Placement placement,
                QWidget* parent = nullptr);

  [[nodiscard]] QList<QColor> fills() const override;

 Q_SIGNALS:
  /// A chip was tapped.
  void chosen(const QString& suggestion);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  static constexpr std::size_t chipCount = 3;

  void makeChips();
  void showSuggestions();

  const CorrectionEngine& engine_;
  QColor accent_;
  Placement placement_;
  TextLabel* dash_;
  std::array<SuggestionChip*, chipCount> chips_{};
  std::array<Subscription, 2> subscriptions_;
  SmoothGradient gradient_;
};

}  // namespace mirvane
