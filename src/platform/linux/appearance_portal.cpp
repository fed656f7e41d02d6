#include "platform/linux/appearance_portal.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <utility>

namespace mirvane {
namespace {

const QString service = QStringLiteral("org.freedesktop.portal.Desktop");
const QString path = QStringLiteral("/org/freedesktop/portal/desktop");
const QString interface = QStringLiteral("org.freedesktop.portal.Settings");
const QString appearanceSpace = QStringLiteral("org.freedesktop.appearance");
const QString colorSchemeKey = QStringLiteral("color-scheme");
const QString contrastKey = QStringLiteral("contrast");

/// Read wraps the value once more than ReadOne and SettingChanged do.
uint number(const QDBusVariant& value) {
  QVariant inner = value.variant();
  while (inner.userType() == qMetaTypeId<QDBusVariant>()) {
    inner = inner.value<QDBusVariant>().variant();
  }
  return inner.toUInt();
}

Appearance::ColorScheme colorScheme(uint value) {
  switch (value) {
    case 1:
      return Appearance::ColorScheme::dark;
    case 2:
      return Appearance::ColorScheme::light;
    default:
      return Appearance::ColorScheme::noPreference;
  }
}

}  // namespace

AppearancePortal::AppearancePortal(std::function<void(const Appearance&)> onChanged)
    : onChanged_(std::move(onChanged)) {
  // The library does not know its own type before its first use, and refuses the slot.
  qDBusRegisterMetaType<QDBusVariant>();
  // From whomever owns the service by then: to name it would mean to wait for the bus.
  // clang-format off
  QDBusConnection::sessionBus().connect(
      QString(), path, interface, QStringLiteral("SettingChanged"), this,
      SLOT(note(QString,QString,QDBusVariant)));
  // clang-format on
  for (const auto& key : {colorSchemeKey, contrastKey}) ask(key, QStringLiteral("ReadOne"));
}

void AppearancePortal::ask(const QString& key, const QString& method) {
  auto call = QDBusMessage::createMethodCall(service, path, interface, method);
  call << appearanceSpace << key;
  auto* const watcher =
      new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(call), this);
  connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher, key, method] {
    watcher->deleteLater();
    const QDBusPendingReply<QDBusVariant> reply = *watcher;
    if (reply.isValid()) {
      note(appearanceSpace, key, reply.value());
    } else if (reply.error().type() == QDBusError::UnknownMethod &&
               method == QStringLiteral("ReadOne")) {
      ask(key, QStringLiteral("Read"));  // a portal of before 2023
    }
  });
}

void AppearancePortal::note(const QString& space, const QString& key, const QDBusVariant& value) {
  if (space != appearanceSpace) return;
  Appearance told = appearance_;
  if (key == colorSchemeKey) told.colorScheme = colorScheme(number(value));
  if (key == contrastKey) told.wantsHighContrast = number(value) == 1;
  if (told == appearance_) return;
  appearance_ = told;
  onChanged_(appearance_);
}

}  // namespace mirvane
