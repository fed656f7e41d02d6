#include "platform/linux/accessibility_status.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
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

QDBusPendingCall askWhetherEnabled() {
  return QDBusConnection::sessionBus().asyncCall(propertyCall("Get"), timeoutMilliseconds);
}

std::optional<bool> answerOf(const QDBusPendingReply<QDBusVariant>& reply) {
  if (reply.isError()) return std::nullopt;
  return reply.value().variant().toBool();
}

}  // namespace

AccessibilityStatus::AccessibilityStatus() {
  QDBusPendingReply<QDBusVariant> reply = askWhetherEnabled();
  reply.waitForFinished();
  known_->isEnabled = answerOf(reply);
}

std::optional<bool> AccessibilityStatus::isEnabled() const {
  if (!known_->isAsking) {
    known_->isAsking = true;
    auto* const watcher = new QDBusPendingCallWatcher(askWhetherEnabled());
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, watcher,
                     [known = known_](QDBusPendingCallWatcher* finished) {
                       *known = {answerOf(*finished), false};
                       finished->deleteLater();
                     });
  }
  return known_->isEnabled;
}

std::optional<std::string> AccessibilityStatus::enable() const {
  const auto bus = QDBusConnection::sessionBus();
  if (!bus.isConnected()) return "This desktop session has no message bus.";
  const auto on = QVariant::fromValue(QDBusVariant(true));
  const auto reply = bus.call(propertyCall("Set", {on}), QDBus::Block, timeoutMilliseconds);
  if (reply.type() != QDBusMessage::ErrorMessage) {
    known_->isEnabled = true;
    return std::nullopt;
  }
  return reply.errorMessage().toStdString();
}

}  // namespace mirvane
