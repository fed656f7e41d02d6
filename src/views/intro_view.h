#pragma once

#include <QWidget>
#include <functional>

namespace mirvane {

/// Welcomes the participant, states the rules and shows the order of the study.
class IntroView : public QWidget {
  Q_OBJECT

 public:
  IntroView(std::function<void()> onNext, const QColor& deep, const QColor& sky,
            QWidget* parent = nullptr);

 private:
  [[nodiscard]] QWidget* makeWelcome(const QColor& deep);
  [[nodiscard]] QWidget* makeIntroduction(const QColor& deep);
  [[nodiscard]] QWidget* makeRules();
  [[nodiscard]] QWidget* makeSessionFlow(const QColor& sky);
};

}  // namespace mirvane
