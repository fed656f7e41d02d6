#pragma once

#include "views/rounded_button.h"

namespace mirvane {

/// One suggestion, a button that applies it.
class SuggestionChip : public RoundedButton {
  Q_OBJECT

 public:
  enum class Emphasis { current, best, other };

  explicit SuggestionChip(const QColor& accent, QWidget* parent = nullptr);

  void setSuggestion(const QString& suggestion, Emphasis emphasis);
  [[nodiscard]] Emphasis emphasis() const { return emphasis_; }

 protected:
  [[nodiscard]] Look look() const override;

 private:
  QColor accent_;
  Emphasis emphasis_ = Emphasis::other;
};

}  // namespace mirvane
