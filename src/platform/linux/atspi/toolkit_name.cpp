#include "platform/linux/atspi/toolkit_name.h"

#include <atspi/atspi.h>
#include <dbus/dbus.h>

#include <memory>

namespace mirvane {
namespace {

constexpr int longestAnswer = 200;  // ms

struct MessageUnref {
  void operator()(DBusMessage* message) const { dbus_message_unref(message); }
};
using Message = std::unique_ptr<DBusMessage, MessageUnref>;

Message question(const char* application) {
  Message message(dbus_message_new_method_call(application, "/org/a11y/atspi/accessible/root",
                                               "org.freedesktop.DBus.Properties", "Get"));
  const char* const interface = "org.a11y.atspi.Application";
  const char* const property = "ToolkitName";
  dbus_message_append_args(message.get(), DBUS_TYPE_STRING, &interface, DBUS_TYPE_STRING, &property,
                           DBUS_TYPE_INVALID);
  return message;
}

std::string stringIn(DBusMessage* reply) {
  DBusMessageIter variant, value;
  if (!dbus_message_iter_init(reply, &variant) ||
      dbus_message_iter_get_arg_type(&variant) != DBUS_TYPE_VARIANT) {
    return {};
  }
  dbus_message_iter_recurse(&variant, &value);
  if (dbus_message_iter_get_arg_type(&value) != DBUS_TYPE_STRING) return {};
  const char* text = nullptr;
  dbus_message_iter_get_basic(&value, &text);
  return text;
}

}  // namespace

std::string toolkitName(const char* application) {
  auto* const bus = atspi_get_a11y_bus();
  if (bus == nullptr || application == nullptr) return {};
  const Message reply(dbus_connection_send_with_reply_and_block(bus, question(application).get(),
                                                                longestAnswer, nullptr));
  return reply != nullptr ? stringIn(reply.get()) : std::string();
}

}  // namespace mirvane
