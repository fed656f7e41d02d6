#pragma once

#include <QWidget>

namespace mirvane {

/// One rule with its symbol.
class MirvaneRuleRow : public QWidget {
  Q_OBJECT

 public:
  MirvaneRuleRow(const QString& icon, const QString& text, QWidget* parent = nullptr);
};

}  // namespace mirvane
