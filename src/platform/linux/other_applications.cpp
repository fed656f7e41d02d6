#include "platform/linux/other_applications.h"

#include <atomic>
#include <chrono>
#include <string>
#include <utility>

#include "platform/key_codes.h"
#include "platform/linux/atspi/accessibility_link.h"
#include "platform/linux/atspi/field_writer.h"
#include "platform/linux/atspi/focus_watch.h"
#include "platform/linux/atspi/remote_text_element.h"
#include "platform/linux/delivery_queue.h"
#include "platform/linux/field_text.h"
#include "platform/linux/key_identity.h"
#include "platform/linux/x11/desktop_input.h"
#include "platform/linux/x11/key_typist.h"
#include "platform/linux/x11/server_clock.h"

namespace mirvane {
namespace {

/// How often, and how long after each other, a window that has just come to the front is searched
/// for its focused element.
constexpr int mostLooksAhead = 10;
constexpr std::chrono::milliseconds betweenLooks{400};

constexpr std::uint64_t commandModifiers = modifier::control | modifier::option | modifier::command;

InputEvent inputEventOf(const WatchedKey& key) {
  return {key.isDown ? EventMask::keyDown : EventMask::keyUp,
          virtualKeyCode(key.scanCode),
          key.text,
          key.modifierFlags,
          key.timestamp,
          0};
}

/// The text whose appearance shows that the application has dealt with the key; absent for keys
/// that need not type any.
std::optional<std::string> effectOf(const WatchedKey& key) {
  if (!key.isDown || !key.text || (key.modifierFlags & commandModifiers) != 0) return std::nullopt;
  const bool isControl = static_cast<unsigned char>(key.text->front()) < ' ';
  if (isControl && key.text != "\r") return std::nullopt;
  return key.text;
}

/// Gathers the keys of one replacement.
class RemoteKeySource : public KeyEventSource {
 public:
  using Type = std::function<void(std::int64_t deleteCount, const std::string& text)>;

  explicit RemoteKeySource(Type type) : type_(std::move(type)) {}
  RemoteKeySource(const RemoteKeySource&) = delete;
  RemoteKeySource& operator=(const RemoteKeySource&) = delete;
  ~RemoteKeySource() override {
    if (deleteCount_ > 0 || !text_.empty()) type_(deleteCount_, text_);
  }

  /// Of no use here: own keys are known when they come back, and not reported at all.
  void setUserData(std::int64_t /*userData*/) override {}

  void post(const SynthesizedKey& key) override {
    if (!key.isDown) return;
    if (key.keyCode == keycode::deleteKey) ++deleteCount_;
    text_ += key.text;
  }

 private:
  Type type_;
  std::int64_t deleteCount_ = 0;
  std::string text_;
};

/// Whether Backspaces may take this back without a look: in a chat it may have been sent, in a form
/// the focus may be elsewhere.
bool mayBeTakenBackBlindly(const std::u16string& text) {
  return !text.empty() && text.back() != u'\n' && text.back() != u'\t';
}

}  // namespace

class OtherApplications::Implementation {
 public:
  Implementation(QtTaskQueue& tasks, XDisplay display)
      : tasks_(tasks),
        link_(thread_),
        watch_(thread_),
        typist_(std::move(display), posted_),
        deliveries_(tasks) {}

  Implementation(const Implementation&) = delete;
  Implementation& operator=(const Implementation&) = delete;

  ~Implementation() {
    thread_.stop([this] { watch_.stop(); });
    input_.reset();
    // They hold fields, which the thread would have to let go of.
    tasks_.drop();
  }

  bool connect() {
    input_ = DesktopInput::start(
        posted_, {[this](const DesktopKey& key) { thread_.post([this, key] { handle(key); }); },
                  [this] { thread_.post([this] { noteMissedKey(); }); },
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
    thread_.post([this, isWatching] { watch_.setListening(isWatching); });
  }

  void setActivationHandler(std::function<void()> handler) { onActivation_ = std::move(handler); }

  [[nodiscard]] bool isDelivering() const { return isInKey_; }

  [[nodiscard]] const std::optional<DesktopWindow>& frontmostWindow() const { return window_; }

  [[nodiscard]] std::shared_ptr<AccessibilityElement> focusedElement() {
    if (!window_ || window_->isOwn || window_->isTerminal) return nullptr;
    if (isInKey_ && (element_ == nullptr || element_->isFresh())) return element_;
    auto text = link_.ask<TextAtCaret>(
        [this, processId = window_->processId] { return watch_.focusedText(processId); });
    auto element = text ? elementFor(std::move(*text)) : nullptr;
    if (isInKey_) element_ = element;
    return element;
  }

  [[nodiscard]] bool isSecureInputEnabled() const {
    return window_ && !window_->isOwn && (window_->isTerminal || isSecure_);
  }

  [[nodiscard]] std::unique_ptr<KeyEventSource> createSource(std::string_view textBeforeCaret) {
    if (!window_ || window_->isOwn || !mayType_ || !input_->isHolding(hold_)) return nullptr;
    const auto mayType = [this, processId = window_->processId,
                          expected = asInFields(textBeforeCaret)] {
      return typist_.canType() && mayStandBeforeCaret(processId, expected);
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
    auto context = contextOf(key);
    isSecure_ = watch_.isSecure();
    if (context.isSecure) {
      noteMissedKey();
      input_->giveBack(key.hold);
      return;
    }
    // How often a held key has been repeated is a guess.
    if (key.key.isRepeat) isWordUnsure_ = true;
    const bool mayType = !isWordUnsure_;
    if (key.hold != KeyHold::none) isWordUnsure_ = false;
    // What the engine has in mind belongs to the word before the missed keys, until it has heard of
    // the one that is being typed.
    if (hasMissedKeys_ && key.key.isDown) {
      hasMissedKeys_ = key.hold != KeyHold::none;
      if (hasMissedKeys_) context.text.content.reset();
    }
    // std::function wants what it holds to be copyable.
    auto shared = std::make_shared<KeyContext>(std::move(context));
    tasks_.post(lifetime_.guard([this, key, shared, mayType] {
      deliveries_.add({[this, key, shared, mayType] {
                         mayType_ = mayType;
                         begin(key, std::move(*shared));
                       },
                       [this, hold = key.hold] { end(hold); }});
    }));
  }

  void noteMissedKey() { hasMissedKeys_ = isWordUnsure_ = true; }

  [[nodiscard]] KeyContext contextOf(const DesktopKey& key) {
    constexpr double millisecondsPerSecond = 1000;
    const AwaitedKey awaited{effectOf(key.key),
                             timePoint(key.key.timestamp * millisecondsPerSecond),
                             timePoint(key.key.deliveredAt * millisecondsPerSecond)};
    KeyContext context;
    context.isSecure = key.window.isTerminal || watch_.wasSecure(awaited.pressedAt);
    // Releases change nothing that anybody asks about.
    if (context.isSecure || !key.key.isDown) return context;
    context = watch_.contextOfKey(key.window.processId, awaited);
    // What stands there may be the work of later keys, and theirs the word that would be corrected.
    if (key.hold != KeyHold::none && !input_->isHolding(key.hold)) context.text.content.reset();
    return context;
  }

  void handlePointer(double timestamp) {
    watch_.notePointer();
    InputEvent press;
    press.kind = EventMask::pointerDown;
    press.timestamp = timestamp;
    tasks_.post(lifetime_.guard([this, press] {
      deliveries_.add({[this, press] { report(press); }, [] {}});
    }));
  }

  void handleActivation(const DesktopWindow& window) {
    tasks_.post(lifetime_.guard([this, window] {
      deliveries_.add({[this, window] { activate(window); }, [] {}});
    }));
    windowInFront_ = window.id;
    if (window.isOwn || window.isTerminal) {
      watch_.leave();
    } else {
      lookAhead(window, mostLooksAhead);
    }
    isSecure_ = watch_.isSecure();
  }

  /// The first look at an application takes longest, above all while it is starting: before its
  /// first key.
  void lookAhead(const DesktopWindow& window, int looksLeft) {
    if (windowInFront_ != window.id) return;
    if (watch_.focusedField(window.processId) || looksLeft == 0) return;
    thread_.postLater([this, window, looksLeft] { lookAhead(window, looksLeft - 1); },
                      betweenLooks);
  }

  [[nodiscard]] bool mayStandBeforeCaret(int processId, const std::u16string& expected) {
    const auto content = watch_.focusedText(processId).content;
    isSecure_ = watch_.isSecure();
    if (isSecure_) return false;
    // Where nothing can be read anything may stand, unless the application takes no part.
    if (!content) return !watch_.takesPart(processId) && mayBeTakenBackBlindly(expected);
    return content->selection.length == 0 && content->hasBeforeCaret(expected);
  }

  // On the main thread.

  void begin(const DesktopKey& key, KeyContext context) {
    window_ = key.window;
    if (context.text.content) link_.unmute();
    hold_ = key.hold;
    element_ = elementFor(std::move(context.text));
    isInKey_ = true;
    link_.beginBudget();
    report(inputEventOf(key.key));
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
  FocusWatch watch_;
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
  std::atomic<bool> isSecure_ = false;
  /// Of the accessibility thread.
  std::uint64_t windowInFront_ = 0;
  /// Of the accessibility thread: keys were dropped, and no word has been begun since.
  bool hasMissedKeys_ = false;
  /// Of the accessibility thread: the word being typed is longer or shorter than what was reported.
  bool isWordUnsure_ = false;
  /// Of the main thread: Backspaces may follow the key at hand.
  bool mayType_ = true;
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
