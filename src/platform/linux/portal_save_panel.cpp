#include "platform/linux/portal_save_panel.h"

#include <QApplication>
#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QStandardPaths>
#include <QUrl>
#include <QWidget>
#include <utility>

namespace mirvane {
namespace {

constexpr const char* service = "org.freedesktop.portal.Desktop";
constexpr const char* requestInterface = "org.freedesktop.portal.Request";
/// Until the portal says that it has understood; it may have to be started first.
constexpr int callTimeoutMilliseconds = 5000;

struct FilterRule {
  uint kind = 0;  ///< 0: a file name pattern
  QString pattern;
};

struct Filter {
  QString name;
  QList<FilterRule> rules;
};

QDBusArgument& operator<<(QDBusArgument& argument, const FilterRule& rule) {
  argument.beginStructure();
  argument << rule.kind << rule.pattern;
  argument.endStructure();
  return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, FilterRule& rule) {
  argument.beginStructure();
  argument >> rule.kind >> rule.pattern;
  argument.endStructure();
  return argument;
}

QDBusArgument& operator<<(QDBusArgument& argument, const Filter& filter) {
  argument.beginStructure();
  argument << filter.name << filter.rules;
  argument.endStructure();
  return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, Filter& filter) {
  argument.beginStructure();
  argument >> filter.name >> filter.rules;
  argument.endStructure();
  return argument;
}

void registerTypes() {
  qDBusRegisterMetaType<FilterRule>();
  qDBusRegisterMetaType<QList<FilterRule>>();
  qDBusRegisterMetaType<Filter>();
  qDBusRegisterMetaType<QList<Filter>>();
}

/// The portal names windows so; one of Wayland would have to be exported first.
QString handleOfActiveWindow() {
  const auto* const window = QApplication::activeWindow();
  if (window == nullptr || QGuiApplication::platformName() != QLatin1String("xcb")) return {};
  return QStringLiteral("x11:%1").arg(window->winId(), 0, 16);
}

bool isOffered(const QDBusConnection& bus) {
  if (!bus.isConnected()) return false;
  const auto name = QLatin1String(service);
  return bus.interface()->isServiceRegistered(name).value() ||
         bus.interface()->activatableServiceNames().value().contains(name);
}

/// Where portals keep the request of this call.
QString expectedRequest(const QDBusConnection& bus, const QString& token) {
  const QString sender = bus.baseService().mid(1).replace(u'.', u'_');
  return QStringLiteral("/org/freedesktop/portal/desktop/request/%1/%2").arg(sender, token);
}

NativeSavePanel::Answer answerIn(uint response, const QVariantMap& results) {
  using Outcome = NativeSavePanel::Outcome;
  constexpr uint success = 0;
  constexpr uint cancelled = 1;
  if (response == cancelled) return {Outcome::cancelled};
  const auto uris = results.value(QStringLiteral("uris")).toStringList();
  if (response != success || uris.isEmpty()) return {Outcome::lost};
  const QString path = QUrl(uris.constFirst()).toLocalFile();
  if (path.isEmpty()) return {Outcome::lost};
  return {Outcome::chosen, path.toStdString()};
}

}  // namespace

PortalSavePanel::PortalSavePanel()
    : watcher_(QLatin1String(service), QDBusConnection::sessionBus(),
               QDBusServiceWatcher::WatchForUnregistration) {
  registerTypes();
  connect(&watcher_, &QDBusServiceWatcher::serviceUnregistered, this,
          [this] { answer({Outcome::lost}); });
}

bool PortalSavePanel::open(const SavePanel::Options& options,
                           std::function<void(Answer)> onAnswer) {
  auto bus = QDBusConnection::sessionBus();
  if (!isOffered(bus)) return false;
  const int number = ++opened_;
  const auto token = QStringLiteral("mirvanetest_save%1").arg(number);
  onAnswer_ = std::move(onAnswer);
  // The answer may come before that to the call.
  listenTo(expectedRequest(bus, token));
  auto* const call = new QDBusPendingCallWatcher(
      bus.asyncCall(makeCall(options, token), callTimeoutMilliseconds), this);
  connect(call, &QDBusPendingCallWatcher::finished, this, [this, number, call] {
    call->deleteLater();
    if (number != opened_ || !onAnswer_) return;
    const QDBusPendingReply<QDBusObjectPath> reply = *call;
    if (reply.isError()) return answer({Outcome::lost});
    if (reply.value().path() != request_) listenTo(reply.value().path());
  });
  return true;
}

QDBusMessage PortalSavePanel::makeCall(const SavePanel::Options& options, const QString& token) {
  auto call = QDBusMessage::createMethodCall(
      QLatin1String(service), QStringLiteral("/org/freedesktop/portal/desktop"),
      QStringLiteral("org.freedesktop.portal.FileChooser"), QStringLiteral("SaveFile"));
  const auto documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
  const QList<Filter> filters{{tr("Plain text"), {{0, QStringLiteral("*.txt")}}}};
  call << handleOfActiveWindow() << QString::fromStdString(options.message)
       << QVariantMap{
              {QStringLiteral("handle_token"), token},
              {QStringLiteral("modal"), true},
              {QStringLiteral("accept_label"), QString::fromStdString(options.prompt)},
              {QStringLiteral("current_name"), QString::fromStdString(options.suggestedFileName)},
              {QStringLiteral("current_folder"), documents.toUtf8() + '\0'},
              {QStringLiteral("filters"), QVariant::fromValue(filters)}};
  return call;
}

void PortalSavePanel::listenTo(const QString& request) {
  stopListening();
  request_ = request;
  QDBusConnection::sessionBus().connect(QLatin1String(service), request_,
                                        QLatin1String(requestInterface), QStringLiteral("Response"),
                                        this, SLOT(respond(uint, QVariantMap)));
}

void PortalSavePanel::stopListening() {
  if (request_.isEmpty()) return;
  QDBusConnection::sessionBus().disconnect(
      QLatin1String(service), request_, QLatin1String(requestInterface), QStringLiteral("Response"),
      this, SLOT(respond(uint, QVariantMap)));
  request_.clear();
}

void PortalSavePanel::respond(uint response, const QVariantMap& results) {
  answer(answerIn(response, results));
}

void PortalSavePanel::answer(const Answer& answer) {
  stopListening();
  const auto onAnswer = std::exchange(onAnswer_, {});
  if (onAnswer) onAnswer(answer);
}

void PortalSavePanel::close() {
  onAnswer_ = {};
  if (request_.isEmpty()) return;
  QDBusConnection::sessionBus().asyncCall(QDBusMessage::createMethodCall(
      QLatin1String(service), request_, QLatin1String(requestInterface), QStringLiteral("Close")));
  stopListening();
}

}  // namespace mirvane
