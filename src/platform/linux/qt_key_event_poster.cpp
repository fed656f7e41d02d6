#include "platform/linux/qt_key_event_poster.h"

#include <QApplication>
#include <QLineEdit>
#include <QString>
#include <QWindow>

#include "platform/linux/active_application.h"
#include "platform/linux/field_text.h"
#include "platform/linux/key_identity.h"
#include "platform/linux/qt_text_element.h"
#include "platform/linux/synthesized_key_event.h"

namespace mirvane {
namespace {

void deliver(const SynthesizedKey& key, std::int64_t userData) {
  auto* const window = QGuiApplication::focusWindow();
  if (window == nullptr) return;
  SynthesizedKeyEvent event(key.isDown ? QEvent::KeyPress : QEvent::KeyRelease,
                            qtKeyOf(key.keyCode), QString::fromStdString(key.text), key.keyCode,
                            key.modifierFlags, userData);
  QCoreApplication::sendEvent(window, &event);
}

bool standsBeforeCaret(const AccessibilityElement& element, const std::u16string& expected) {
  const auto selection = element.selectedTextRange();
  if (!selection || selection->length > 0) return false;
  const auto length = static_cast<std::int64_t>(expected.size());
  return length == 0 || element.text({selection->location - length, length}) == expected;
}

class QtKeyEventSource : public KeyEventSource {
 public:
  explicit QtKeyEventSource(QtTaskQueue& queue) : queue_(queue) {}

  void setUserData(std::int64_t userData) override { userData_ = userData; }

  void post(const SynthesizedKey& key) override {
    queue_.post([key, userData = userData_] { deliver(key, userData); });
  }

 private:
  QtTaskQueue& queue_;
  std::int64_t userData_ = 0;
};

}  // namespace

bool QtKeyEventPoster::isSecureInputEnabled() const {
  if (isOtherActive(others_)) return others_->isSecureInputEnabled();
  const auto* const line = qobject_cast<QLineEdit*>(QApplication::focusWidget());
  return line != nullptr && line->echoMode() != QLineEdit::Normal;
}

std::unique_ptr<KeyEventSource> QtKeyEventPoster::createSource(std::string_view textBeforeCaret) {
  if (isOtherActive(others_)) return others_->createSource(textBeforeCaret);
  const auto element = makeQtTextElement(QApplication::focusWidget());
  if (element != nullptr && !standsBeforeCaret(*element, asInFields(textBeforeCaret))) {
    return nullptr;
  }
  return std::make_unique<QtKeyEventSource>(queue_);
}

}  // namespace mirvane
