#include "platform/linux/other_applications.h"

#include <string>
#include <utility>

#include "platform/linux/atspi/accessibility_link.h"
#include "platform/linux/atspi/application_keys.h"
#include "platform/linux/atspi/field_writer.h"
#include "platform/linux/atspi/remote_text_element.h"
#include "platform/linux/delivery_queue.h"
#include "platform/linux/field_text.h"
#include "platform/linux/key_identity.h"
#include "platform/linux/remote_key_source.h"
#include "platform/linux/x11/desktop_input.h"
#include "platform/linux/x11/key_typist.h"

namespace mirvane {
namespace {

InputEvent inputEventOf(const WatchedKey& key) {
  return {key.isDown ? EventMask::keyDown : EventMask::keyUp,
          virtualKeyCode(key.scanCode),
          key.text,
          key.modifierFlags,
          key.timestamp,
          0};
}

}  // namespace

class OtherApplications::Implementation {
 public:
  Implementation(QtTaskQueue& tasks, XDisplay display)
      : tasks_(tasks),
        link_(thread_),
        keys_(thread_),
        typist_(std::move(display), posted_),
        deliveries_(tasks) {}

  Implementation(const Implementation&) = delete;
  Implementation& operator=(const Implementation&) = delete;

  ~Implementation() {
    thread_.stop([this] { keys_.stop(); });
    input_.reset();
    // They hold fields, which the thread would have to let go of.
    tasks_.drop();
  }

  bool connect() {
    input_ = DesktopInput::start(
        posted_, {[this](const DesktopKey& key) { thread_.post([this, key] { handle(key); }); },
                  [this] { thread_.post([this] { keys_.noteMissedKey(); }); },
                  [this](double timestamp) {
                    thread_.post([this, timestamp] { handlePointer(timestamp); });
                  },
                  [this](const DesktopWindow& window) {
                    thread_.post([this, window] { handleActivation(window); });
                  }});
    if (input_ == nullptr) return false;
    writer_.emplace(thread_, *input_, typist_);
    return true;
  }

  void setInputHandler(std::function<void(const InputEvent&)> handler) {
    onInput_ = std::move(handler);
    const bool isWatching = onInput_ != nullptr;
    input_->setWatching(isWatching);
    thread_.post([this, isWatching] { keys_.setListening(isWatching); });
  }

  void setActivationHandler(std::function<void()> handler) { onActivation_ = std::move(handler); }

  [[nodiscard]] bool isDelivering() const { return isInKey_; }

  [[nodiscard]] const std::optional<DesktopWindow>& frontmostWindow() const { return window_; }

  [[nodiscard]] std::shared_ptr<AccessibilityElement> focusedElement() {
    if (!window_ || window_->isOwn || window_->isTerminal) return nullptr;
    if (isInKey_ && (element_ == nullptr || element_->isFresh())) return element_;
    auto text = link_.ask<TextAtCaret>(
        [this, processId = window_->processId] { return keys_.look(processId); });
    auto element = text ? elementFor(std::move(*text)) : nullptr;
    if (isInKey_) element_ = element;
    return element;
  }

  [[nodiscard]] bool isSecureInputEnabled() const {
    return window_ && !window_->isOwn && (window_->isTerminal || keys_.isSecure());
  }

  [[nodiscard]] std::unique_ptr<KeyEventSource> createSource(std::string_view textBeforeCaret) {
    if (!window_ || window_->isOwn || !mayType_ || !input_->isHolding(hold_)) return nullptr;
    const auto mayType = [this, processId = window_->processId,
                          expected = asInFields(textBeforeCaret)] {
      return typist_.canType() && keys_.mayStandBeforeCaret(processId, expected);
    };
    if (!link_.ask<bool>(mayType).value_or(false)) return nullptr;
    return std::make_unique<RemoteKeySource>(
        [this, place = place(), mayType](std::int64_t deleteCount, const std::string& text) {
          thread_.post([this, place, mayType, deleteCount, text] {
            writer_->type(place, deleteCount, text, mayType);
          });
        });
  }

 private:
  // On the accessibility thread.

  void handle(const DesktopKey& key) {
    auto reportable = keys_.take(key, *input_);
    if (!reportable) {
      input_->giveBack(key.hold);
      return;
    }
    // std::function wants what it holds to be copyable.
    auto shared = std::make_shared<ReportableKey>(std::move(*reportable));
    deliver([this, shared] { begin(std::move(*shared)); }, [this, hold = key.hold] { end(hold); });
  }

  void handlePointer(double timestamp) {
    keys_.notePointer();
    InputEvent press;
    press.kind = EventMask::pointerDown;
    press.timestamp = timestamp;
    deliver([this, press] { report(press); });
  }

  void handleActivation(const DesktopWindow& window) {
    deliver([this, window] { activate(window); });
    keys_.noteActivation(window);
  }

  /// Runs both on the main thread, one behind the other, with nothing of another delivery between.
  void deliver(
      std::function<void()> begin, std::function<void()> end = [] {}) {
    tasks_.post(lifetime_.guard([this, begin = std::move(begin), end = std::move(end)] {
      deliveries_.add({begin, end});
    }));
  }

  // On the main thread.

  void begin(ReportableKey key) {
    window_ = key.key.window;
    if (key.context.text.content) link_.unmute();
    hold_ = key.key.hold;
    mayType_ = key.mayType;
    element_ = elementFor(std::move(key.context.text));
    isInKey_ = true;
    link_.beginBudget();
    report(inputEventOf(key.key.key));
  }

  void end(KeyHold hold) {
    isInKey_ = false;
    link_.endBudget();
    hold_ = KeyHold::none;
    element_.reset();
    // Behind the keys that are to be typed first.
    if (hold != KeyHold::none) thread_.post([this, hold] { input_->giveBack(hold); });
  }

  void activate(const DesktopWindow& window) {
    window_ = window;
    if (!window.isOwn && onActivation_) onActivation_();
  }

  void report(const InputEvent& event) const {
    if (onInput_) onInput_(event);
  }

  [[nodiscard]] FieldWriter::Place place() const { return {window_->id, hold_}; }

  [[nodiscard]] std::shared_ptr<RemoteTextElement> elementFor(TextAtCaret text) {
    if (!text.field || !text.content) return nullptr;
    return std::make_shared<RemoteTextElement>(RemoteTextElement::Services{link_, *writer_},
                                               std::move(text.field), place(),
                                               std::move(*text.content));
  }

  QtTaskQueue& tasks_;
  PostedKeys posted_;
  AccessibilityThread thread_;
  AccessibilityLink link_;
  ApplicationKeys keys_;
  KeyTypist typist_;
  std::unique_ptr<DesktopInput> input_;
  std::optional<FieldWriter> writer_;
  std::function<void(const InputEvent&)> onInput_;
  std::function<void()> onActivation_;
  std::optional<DesktopWindow> window_;
  /// While the handlers of a key are at work, what the application looked like after it.
  bool isInKey_ = false;
  KeyHold hold_ = KeyHold::none;
  std::shared_ptr<RemoteTextElement> element_;
  bool mayType_ = true;  ///< Backspaces may follow the key at hand
  /// Goes before what its deliveries hold.
  DeliveryQueue deliveries_;
  Lifetime lifetime_;
};

std::unique_ptr<OtherApplications> OtherApplications::connect(QtTaskQueue& tasks) {
  auto display = openXDisplay();
  if (display == nullptr) return nullptr;
  auto implementation = std::make_unique<Implementation>(tasks, std::move(display));
  if (!implementation->connect()) return nullptr;
  return std::unique_ptr<OtherApplications>(new OtherApplications(std::move(implementation)));
}

OtherApplications::OtherApplications(std::unique_ptr<Implementation> implementation)
    : implementation_(std::move(implementation)) {}

OtherApplications::~OtherApplications() = default;

void OtherApplications::setInputHandler(std::function<void(const InputEvent&)> handler) {
  implementation_->setInputHandler(std::move(handler));
}

void OtherApplications::setActivationHandler(std::function<void()> handler) {
  implementation_->setActivationHandler(std::move(handler));
}

bool OtherApplications::isDelivering() const {
  return implementation_->isDelivering();
}

const std::optional<DesktopWindow>& OtherApplications::frontmostWindow() const {
  return implementation_->frontmostWindow();
}

std::shared_ptr<AccessibilityElement> OtherApplications::focusedElement() {
  return implementation_->focusedElement();
}

bool OtherApplications::isSecureInputEnabled() const {
  return implementation_->isSecureInputEnabled();
}

std::unique_ptr<KeyEventSource> OtherApplications::createSource(std::string_view textBeforeCaret) {
  return implementation_->createSource(textBeforeCaret);
}

}  // namespace mirvane
