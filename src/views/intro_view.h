#pragma once

#include <QStringList>
#include <QWidget>
#include <functional>

namespace mirvane {

class Announcer;

/// Welcomes the participant, states the rules and shows the order of the study. Above all that
/// stand the warnings that the study team should read before a participant begins, if any.
class IntroView : public QWidget {
  Q_OBJECT

 public:
  IntroView(std::function<void()> onNext, const QColor& deep, const QColor& sky,
            const QStringList& warnings = {}, QWidget* parent = nullptr);

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  [[nodiscard]] QWidget* makeWelcome(const QColor& deep);
  [[nodiscard]] QWidget* makeIntroduction(const QColor& deep);
  [[nodiscard]] QWidget* makeRules();
  [[nodiscard]] QWidget* makeSessionFlow(const QColor& sky);

  Announcer* announcer_;
  QString rules_;
};

}  // namespace mirvane
