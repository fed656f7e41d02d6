#include "platform/simulated/in_memory_accessibility.h"

#include <utility>

namespace mirvane::simulated {

/// Holds the element weakly, so that it notices when the application closes it.
class InMemoryAccessibility::Handle : public AccessibilityElement {
 public:
  Handle(std::shared_ptr<Connection> connection, const std::shared_ptr<TextElement>& element)
      : connection_(std::move(connection)), element_(element) {}

  [[nodiscard]] std::optional<std::int64_t> textLength() const override {
    const auto element = readable();
    if (!element) return std::nullopt;
    return element->length();
  }

  [[nodiscard]] std::optional<std::u16string> text(Utf16Range range) const override {
    const auto element = readable();
    if (!element) return std::nullopt;
    auto slice = element->slice(range);
    connection_->unitsRead += static_cast<std::int64_t>(slice.size());
    return slice;
  }

  [[nodiscard]] std::optional<Utf16Range> selectedTextRange() const override {
    const auto element = reachable();
    if (!element) return std::nullopt;
    return element->selection();
  }

  void setSelectedTextRange(Utf16Range range) override {
    if (const auto element = writable()) element->select(range);
  }

  void setSelectedText(std::string_view text) override {
    if (const auto element = writable()) element->insert(text);
  }

 private:
  [[nodiscard]] std::shared_ptr<TextElement> reachable() const {
    return connection_->isTrusted ? element_.lock() : nullptr;
  }

  [[nodiscard]] std::shared_ptr<TextElement> readable() const {
    auto element = reachable();
    return element && element->kind() != ElementKind::password ? element : nullptr;
  }

  [[nodiscard]] std::shared_ptr<TextElement> writable() const {
    auto element = reachable();
    const bool ignoresWrites =
        element && (element->kind() == ElementKind::ignoresAccessibilityWrites ||
                    element->kind() == ElementKind::readOnly);
    return ignoresWrites ? nullptr : element;
  }

  std::shared_ptr<Connection> connection_;
  std::weak_ptr<TextElement> element_;
};

InMemoryAccessibility::InMemoryAccessibility(const InMemoryWorkspace& workspace)
    : workspace_(workspace), connection_(std::make_shared<Connection>()) {}

InMemoryAccessibility::~InMemoryAccessibility() {
  connection_->isTrusted = false;
}

bool InMemoryAccessibility::isProcessTrusted() const {
  return connection_->isTrusted;
}

void InMemoryAccessibility::promptForTrust(TrustPrompt& prompt) {
  prompt.ask([this] {
    connection_->isTrusted = !grantFailure_.has_value();
    return grantFailure_;
  });
}

std::shared_ptr<AccessibilityElement> InMemoryAccessibility::focusedElement() const {
  const auto element = workspace_.focusedElement();
  const bool isVisible =
      connection_->isTrusted && element && element->kind() != ElementKind::withoutAccessibility;
  return isVisible ? std::make_shared<Handle>(connection_, element) : nullptr;
}

void InMemoryAccessibility::setTrusted(bool trusted) {
  connection_->isTrusted = trusted;
}

std::int64_t InMemoryAccessibility::unitsRead() const {
  return connection_->unitsRead;
}

}  // namespace mirvane::simulated
