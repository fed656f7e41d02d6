#include "platform/linux/accessibility_status.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusReply>
#include <QDBusVariant>

namespace mirvane {
namespace {

constexpr int timeoutMilliseconds = 300;
/// For what is asked each second while a participant types.
constexpr int shortTimeoutMilliseconds = 50;

QDBusMessage propertyCall(const char* method, const QVariantList& value = {}) {
  auto call = QDBusMessage::createMethodCall(
      QStringLiteral("org.a11y.Bus"), QStringLiteral("/org/a11y/bus"),
      QStringLiteral("org.freedesktop.DBus.Properties"), QString::fromLatin1(method));
  call.setArguments(QVariantList{QStringLiteral("org.a11y.Status"), QStringLiteral("IsEnabled")} +
                    value);
  return call;
}

QDBusReply<QDBusVariant> askWhetherEnabled(int timeout) {
  return QDBusConnection::sessionBus().call(propertyCall("Get"), QDBus::Block, timeout);
}

}  // namespace

AccessibilityStatus::AccessibilityStatus() {
  note(askWhetherEnabled(timeoutMilliseconds));
}

std::optional<bool> AccessibilityStatus::isEnabled() const {
  note(askWhetherEnabled(shortTimeoutMilliseconds));
  return *known_;
}

void AccessibilityStatus::note(const QDBusReply<QDBusVariant>& reply) const {
  // A service that is busy for a moment has not changed its mind.
  if (reply.error().type() == QDBusError::NoReply) return;
  *known_ = reply.isValid() ? std::optional(reply.value().variant().toBool()) : std::nullopt;
}

std::optional<std::string> AccessibilityStatus::enable() const {
  const auto bus = QDBusConnection::sessionBus();
  if (!bus.isConnected()) return "This desktop session has no message bus.";
  const auto on = QVariant::fromValue(QDBusVariant(true));
  const auto reply = bus.call(propertyCall("Set", {on}), QDBus::Block, timeoutMilliseconds);
  if (reply.type() != QDBusMessage::ErrorMessage) {
    *known_ = true;
    return std::nullopt;
  }
  return reply.errorMessage().toStdString();
}

}  // namespace mirvane
