#pragma once

#include <QDBusMessage>
#include <QDBusServiceWatcher>
#include <QObject>
#include <QVariantMap>

#include "platform/native_save_panel.h"

namespace mirvane {

/// The desktop's panel behind org.freedesktop.portal.FileChooser on the session bus (XDG Desktop
/// Portal), over the active window.
class PortalSavePanel : public QObject, public NativeSavePanel {
  Q_OBJECT

 public:
  PortalSavePanel();

  bool open(const SavePanel::Options& options, std::function<void(Answer)> onAnswer) override;
  void close() override;

 private Q_SLOTS:
  /// The signal Response of org.freedesktop.portal.Request.
  void respond(uint response, const QVariantMap& results);

 private:
  [[nodiscard]] QDBusMessage makeCall(const SavePanel::Options& options, const QString& token);
  void listenTo(const QString& request);
  void stopListening();
  void answer(const Answer& answer);

  QDBusServiceWatcher watcher_;
  QString request_;  ///< object path of the panel that is open
  std::function<void(Answer)> onAnswer_;
  int opened_ = 0;  ///< panels so far: the answer to an earlier one's call is not of interest
};

}  // namespace mirvane
