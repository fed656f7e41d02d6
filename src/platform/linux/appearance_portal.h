#pragma once

#include <QDBusVariant>
#include <QObject>
#include <QString>
#include <functional>

#include "platform/appearance.h"

namespace mirvane {

/// The desktop's appearance, as its settings portal tells it: `color-scheme` and `contrast` of
/// org.freedesktop.appearance (org.freedesktop.portal.Settings). Waits for nothing: where there is
/// no portal, or it does not answer, nothing is ever reported.
class AppearancePortal : public QObject {
  Q_OBJECT

 public:
  /// `onChanged` is called from the event loop: with the first answer that differs from no
  /// preference at all, and with each change.
  explicit AppearancePortal(std::function<void(const Appearance&)> onChanged);

 private Q_SLOTS:
  void note(const QString& space, const QString& key, const QDBusVariant& value);

 private:
  void ask(const QString& key, const QString& method);

  std::function<void(const Appearance&)> onChanged_;
  Appearance appearance_;
};

}  // namespace mirvane
