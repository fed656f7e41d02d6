#include "platform/linux/atspi/focus_watch.h"

#include <array>
#include <string_view>

#include "platform/linux/atspi/application_name.h"
#include "platform/linux/field_text.h"

namespace mirvane {
namespace {

constexpr std::chrono::milliseconds longestEffect{150};
/// How long the caret may stay behind a change that was announced.
constexpr std::chrono::milliseconds longestLag{30};
constexpr std::chrono::milliseconds lookAgain{4};
/// The effect of a key that an application which answers has not shown by then does not come.
constexpr std::chrono::milliseconds longestDelay{500};
/// An application that shows no effect of so many keys is not waited for until it shows one.
constexpr int patience = 2;

constexpr std::array eventTypes{"object:text-changed:insert", "object:text-changed:delete",
                                "object:state-changed:focused"};

bool startsWith(const gchar* text, std::string_view prefix) {
  return text != nullptr && std::string_view(text).substr(0, prefix.size()) == prefix;
}

/// Whether the text before the caret is what a key has typed; always for keys that delete.
bool endsWith(const FieldContent& content, const std::string& typed) {
  return typed == "\x7F" || content.hasBeforeCaret(asInFields(typed));
}

/// Whether the text is known to be as the key has left it: a later key's work fits another word.
/// Behind a line end an editor may have put something itself.
bool isWorkOf(const AwaitedKey& key, bool hasEffect, const FieldContent& content) {
  if (!key.text || (hasEffect && key.endsWord)) return true;
  return endsWith(content, *key.text);
}

bool movesFocus(const AwaitedKey& key) {
  return !key.text || key.text == "\r";
}

}  // namespace

FocusWatch::FocusWatch(AccessibilityThread& thread) : thread_(thread), finder_(thread) {}

void FocusWatch::start() {
  if (!thread_.hasBus()) return;
  listener_ = atspi_event_listener_new(&FocusWatch::onEvent, this, nullptr);
  for (const char* const type : eventTypes) {
    atspi_event_listener_register(listener_, type, nullptr);
  }
}

void FocusWatch::stop() {
  setListening(false);
  finder_.clear();
}

void FocusWatch::setListening(bool isListening) {
  if (isListening == (listener_ != nullptr)) return;
  if (isListening) {
    start();
    return;
  }
  effects_.clear();
  for (const char* const type : eventTypes) {
    if (thread_.hasBus()) atspi_event_listener_deregister(listener_, type, nullptr);
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
  const auto* const application = applicationName(event.source);
  const gchar* const text =
      G_VALUE_HOLDS_STRING(&event.any_data) ? g_value_get_string(&event.any_data) : nullptr;
  if (application == inFront_) finder_.noteChanged(event.source);
  announcing_.insert(application);
  // Some announce the letters of a password as well.
  if (isSecure_) return;
  const bool isKeys =
      effects_.note(application, {isInsertion, text != nullptr ? text : ""}, Clock::now());
  if (isKeys) silence_.erase(application);
}

void FocusWatch::noteFocus(const AtspiEvent& event) {
  const bool hasGained = event.detail1 != 0;
  if (event.source == nullptr || !hasGained) return;
  finder_.noteFocused(event.source);
  // The others are not asked: this process among them, which may be waiting for this thread.
  if (applicationName(event.source) != inFront_) return;
  const auto role = atspi_accessible_get_role(event.source, nullptr);
  // Gone before it could be looked at, as a list of completions: the next key looks for the focus.
  if (role == ATSPI_ROLE_INVALID) {
    mayHaveMoved_ = true;
    return;
  }
  const bool isPassword = role == ATSPI_ROLE_PASSWORD_TEXT;
  setSecure(isPassword || finder_.isKnownPassword(event.source));
  // From now on no key makes anybody look at the field.
  if (isPassword) finder_.notePassword(event.source);
}

void FocusWatch::setSecure(bool isSecure) {
  if (isSecure_) lastSecure_ = Clock::now();
  if (isSecure) effects_.clear();
  isSecure_ = isSecure;
}

void FocusWatch::enter(KeyEffects::Application application) {
  // Nothing is known of the new one yet.
  if (application != inFront_) {
    setSecure(false);
    hasSeenFocus_ = false;
  }
  inFront_ = application;
}

std::shared_ptr<TextField> FocusWatch::focusedField(int processId) {
  enter(finder_.nameOf(processId));
  return lookAtFocus(processId);
}

std::shared_ptr<TextField> FocusWatch::lookAtFocus(int processId) {
  auto field = finder_.find(processId);
  // An application that does not answer may still have its password field in front.
  if (field) {
    field->lookAtRole();
    // What was typed into a line that nobody had looked at may be a password, which it shows now.
    if (!hasSeenFocus_ && hasUnseenKeys_ && field->isLine()) field->treatAsPassword();
    setSecure(field->isPassword() || field->isTerminal());
    if (field->isKnownPassword()) finder_.notePassword(field->accessible());
    hasSeenFocus_ = true;
  } else {
    lastUnanswered_ = Clock::now();
  }
  return field;
}

TextAtCaret FocusWatch::focusedText(int processId) {
  auto field = focusedField(processId);
  return field ? finder_.readAtCaret(std::move(field)) : TextAtCaret{};
}

KeyContext FocusWatch::contextOfKey(int processId, const AwaitedKey& key) {
  auto context = lookFor(processId, key);
  if (context.isSecure) return context;
  auto& content = context.text.content;
  // What would be corrected is the word that was there at the last key, not another one that the
  // caret stands behind by now.
  const bool isOtherWord = content && key.endsWord && !shown_.endsInWordOf(*content);
  if (content) {
    shown_.see(*content);
  } else {
    shown_.add(key.text);
  }
  if (isOtherWord) content.reset();
  return context;
}

KeyContext FocusWatch::lookFor(int processId, const AwaitedKey& key) {
  const auto* const application = finder_.nameOf(processId);
  const auto effect = expectEffect(application, key);
  enter(application);
  // A line that is looked at so late may show by now what it hid.
  const bool isLate = Clock::now() > key.deliveredAt + longestEffect;
  if (!hasSeenFocus_ && isLate && key.text) hasUnseenKeys_ = true;
  auto field = lookAtFocus(processId);
  // The last key of a password may have moved the focus on.
  if (wasSecure(key.pressedAt)) return {true, {}};
  if (!field) {
    return contextWithoutField(application != nullptr || finder_.isUnanswered(processId), key);
  }
  const bool hasEffect = !effect || awaitEffect(*effect, key.deliveredAt + longestEffect);
  // A key may have moved the focus, to a password field too.
  if (!field->isFocused()) field = lookAtFocus(processId);
  if (isSecure_) return {true, {}};
  if (!field) return {!hasEffect, {}};
  return contextIn(field, key, hasEffect);
}

/// What does not answer may have a password field in front, and what names no element too, as long
/// as it takes part in accessibility.
KeyContext FocusWatch::contextWithoutField(bool mayTakePart, const AwaitedKey& key) {
  if (mayTakePart && !hasSeenFocus_ && key.text) hasUnseenKeys_ = true;
  return {mayTakePart, {}};
}

KeyContext FocusWatch::contextIn(const std::shared_ptr<TextField>& field, const AwaitedKey& key,
                                 bool hasEffect) {
  // An application that is behind with its keys has an old text, which must not be corrected, and
  // may have the focus where it does not say yet.
  const bool isBehind = !hasEffect && isExpectedToAnnounce();
  if (isBehind) return {mayHaveMoved_, {}};
  mayHaveMoved_ = movesFocus(key);
  auto text = key.text ? readBehind(field, *key.text) : finder_.readAtCaret(field);
  if (text.content && !isWorkOf(key, hasEffect, *text.content)) text.content.reset();
  return {false, std::move(text)};
}

/// The text, once the caret has moved behind what was typed: some applications announce a change
/// before they show it themselves, or move the caret after that.
TextAtCaret FocusWatch::readBehind(const std::shared_ptr<TextField>& field,
                                   const std::string& typed) {
  // The same letter may stand there from the key before.
  const auto hasMoved = [&](const FieldContent& content) {
    return endsWith(content, typed) && !shown_.isStill(content);
  };
  const auto deadline = Clock::now() + longestLag;
  auto text = finder_.readAtCaret(field);
  while (text.content && !hasMoved(*text.content) && Clock::now() < deadline) {
    thread_.waitUntil([] { return false; }, Clock::now() + lookAgain);
    text = finder_.readAtCaret(field);
  }
  return text;
}

std::optional<KeyEffects::Id> FocusWatch::expectEffect(KeyEffects::Application application,
                                                       const AwaitedKey& key) {
  if (!key.text) return std::nullopt;
  // A key without effect must not stand for a later one for ever, nor for long.
  if (lastUnanswered_ + longestDelay < Clock::now()) {
    effects_.giveUp(application, key.deliveredAt - longestDelay);
  }
  return effects_.expect(application, *key.text, key.deliveredAt);
}

/// One of which nothing is known yet gets the benefit of the doubt for a few keys, where more than
/// a correction is at stake.
bool FocusWatch::isExpectedToAnnounce() {
  return announcing_.contains(inFront_) || (mayHaveMoved_ && silence_[inFront_] < patience);
}

bool FocusWatch::awaitEffect(KeyEffects::Id id, Clock::time_point deadline) {
  const auto isShown = [&] { return effects_.isShown(id); };
  if (silence_[inFront_] >= patience || Clock::now() >= deadline) return isShown();
  if (thread_.waitUntil(isShown, deadline)) return true;
  ++silence_[inFront_];
  return false;
}

}  // namespace mirvane
