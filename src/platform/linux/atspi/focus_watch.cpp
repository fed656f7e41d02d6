#include "platform/linux/atspi/focus_watch.h"

#include <unistd.h>

#include <array>
#include <string_view>

namespace mirvane {
namespace {

constexpr std::chrono::milliseconds longestEffect{150};
/// An application that shows no effect of so many keys is not waited for until it shows one.
constexpr int patience = 2;

constexpr std::array eventTypes{"object:text-changed:insert", "object:text-changed:delete",
                                "object:state-changed:focused"};

bool startsWith(const gchar* text, std::string_view prefix) {
  return text != nullptr && std::string_view(text).substr(0, prefix.size()) == prefix;
}

}  // namespace

FocusWatch::FocusWatch(AccessibilityThread& thread) : thread_(thread), finder_(thread) {}

void FocusWatch::start() {
  listener_ = atspi_event_listener_new(&FocusWatch::onEvent, this, nullptr);
  for (const char* const type : eventTypes) {
    atspi_event_listener_register(listener_, type, nullptr);
  }
}

void FocusWatch::stop() {
  for (const char* const type : eventTypes) {
    atspi_event_listener_deregister(listener_, type, nullptr);
  }
  g_object_unref(listener_);
  listener_ = nullptr;
}

void FocusWatch::onEvent(AtspiEvent* event, void* self) {
  auto& watch = *static_cast<FocusWatch*>(self);
  if (startsWith(event->type, "object:state-changed:focused")) {
    watch.noteFocus(*event);
  } else {
    watch.noteChange(*event, startsWith(event->type, "object:text-changed:insert"));
  }
  g_boxed_free(ATSPI_TYPE_EVENT, event);
}

void FocusWatch::noteChange(const AtspiEvent& event, bool isInsertion) {
  if (event.source == nullptr) return;
  const auto* const application = ATSPI_OBJECT(event.source)->app;
  const gchar* const text =
      G_VALUE_HOLDS_STRING(&event.any_data) ? g_value_get_string(&event.any_data) : nullptr;
  changes_.add({application, isInsertion, text != nullptr ? text : ""});
  silence_.erase(application);
}

void FocusWatch::noteFocus(const AtspiEvent& event) {
  const bool hasGained = event.detail1 != 0;
  if (event.source == nullptr || !hasGained || isOwn(event.source)) return;
  finder_.noteFocused(event.source);
  setSecure(atspi_accessible_get_role(event.source, nullptr) == ATSPI_ROLE_PASSWORD_TEXT);
}

bool FocusWatch::isOwn(AtspiAccessible* accessible) {
  const auto [known, isNew] = isOwn_.try_emplace(ATSPI_OBJECT(accessible)->app, false);
  if (isNew) {
    const auto processId = atspi_accessible_get_process_id(accessible, nullptr);
    known->second = static_cast<pid_t>(processId) == getpid();
  }
  return known->second;
}

void FocusWatch::setSecure(bool isSecure) {
  if (isSecure_) lastSecure_ = Clock::now();
  isSecure_ = isSecure;
  if (isSecure) changes_.clear();
}

std::shared_ptr<TextField> FocusWatch::focusedField(int processId) {
  auto field = finder_.find(processId);
  // An application that does not answer may still have its password field in front.
  if (field) setSecure(field->isPassword() || field->isTerminal());
  return field;
}

KeyContext FocusWatch::contextOfKey(int processId, const std::optional<std::string>& text,
                                    Clock::time_point pressedAt) {
  auto field = focusedField(processId);
  // The last key of a password may have moved the focus on.
  if (wasSecure(pressedAt)) return {true, nullptr, std::nullopt};
  if (!field) return {};
  if (text) waitForEffect(*field, *text, pressedAt);
  // A key may have moved the focus, to a password field too.
  if (!field->isFocused()) field = focusedField(processId);
  if (isSecure_) return {true, nullptr, std::nullopt};
  auto content = field ? field->read() : std::nullopt;
  return {false, std::move(field), std::move(content)};
}

void FocusWatch::waitForEffect(const TextField& field, const std::string& text,
                               Clock::time_point pressedAt) {
  const auto* const application = field.application();
  if (silence_[application] >= patience) return;
  const bool isShown = thread_.waitUntil([&] { return changes_.takeChangeOf(application, text); },
                                         pressedAt + longestEffect);
  if (!isShown) ++silence_[application];
}

}  // namespace mirvane
