#include "platform/linux/accessibility_status.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusReply>
#include <QDBusVariant>

namespace mirvane {
namespace {

constexpr int timeoutMilliseconds = 300;

QDBusMessage propertyCall(const char* method, const QVariantList& value = {}) {
  auto call = QDBusMessage::createMethodCall(
      QStringLiteral("org.a11y.Bus"), QStringLiteral("/org/a11y/bus"),
      QStringLiteral("org.freedesktop.DBus.Properties"), QString::fromLatin1(method));
  call.setArguments(QVariantList{QStringLiteral("org.a11y.Status"), QStringLiteral("IsEnabled")} +
                    value);
  return call;
}

}  // namespace

std::optional<bool> AccessibilityStatus::isEnabled() const {
  const auto bus = QDBusConnection::sessionBus();
  if (!bus.isConnected()) return std::nullopt;
  const QDBusReply<QDBusVariant> reply =
      bus.call(propertyCall("Get"), QDBus::Block, timeoutMilliseconds);
  if (!reply.isValid()) return std::nullopt;
  return reply.value().variant().toBool();
}

std::optional<std::string> AccessibilityStatus::enable() const {
  const auto bus = QDBusConnection::sessionBus();
  if (!bus.isConnected()) return "This desktop session has no message bus.";
  const auto on = QVariant::fromValue(QDBusVariant(true));
  const auto reply = bus.call(propertyCall("Set", {on}), QDBus::Block, timeoutMilliseconds);
  if (reply.type() != QDBusMessage::ErrorMessage) return std::nullopt;
  return reply.errorMessage().toStdString();
}

}  // namespace mirvane
