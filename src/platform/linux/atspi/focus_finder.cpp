#include "platform/linux/atspi/focus_finder.h"

#include <chrono>
#include <optional>
#include <utility>

#include "platform/linux/atspi/accessible_state.h"
#include "platform/linux/atspi/application_name.h"

namespace mirvane {
namespace {

using Clock = std::chrono::steady_clock;
using Accessible = GObjectPointer<AtspiAccessible>;

/// A window with this many elements is searched in part; see the search by query below for those
/// that have more.
constexpr int mostElements = 2000;
/// A slow application is searched for longer while nobody waits.
constexpr std::chrono::milliseconds longestSearch{150};
constexpr std::chrono::milliseconds longestQuietSearch{2000};

constexpr std::chrono::milliseconds slowAnswer{180};
constexpr std::chrono::milliseconds pauseLength{300};
constexpr std::chrono::milliseconds trustInSurrounding{1000};

bool takesText(AtspiAccessible* accessible) {
  const GObjectPointer<AtspiText> text(atspi_accessible_get_text_iface(accessible));
  return text != nullptr;
}

bool isFocusedText(AtspiAccessible* accessible, const char* application) {
  return accessible != nullptr && applicationName(accessible) == application &&
         takesText(accessible) && hasState(accessible, ATSPI_STATE_FOCUSED);
}

/// The focused element below `root`, by one question; null when there is none, absent when the
/// toolkit does not answer such questions.
std::optional<Accessible> queryFocused(AtspiAccessible* root) {
  const GObjectPointer<AtspiCollection> collection(atspi_accessible_get_collection_iface(root));
  if (collection == nullptr) return std::nullopt;
  GObjectPointer<AtspiStateSet> states(atspi_state_set_new(nullptr));
  atspi_state_set_add(states.get(), ATSPI_STATE_FOCUSED);
  const GObjectPointer<AtspiMatchRule> rule(atspi_match_rule_new(
      states.get(), ATSPI_Collection_MATCH_ALL, nullptr, ATSPI_Collection_MATCH_ALL, nullptr,
      ATSPI_Collection_MATCH_ALL, nullptr, ATSPI_Collection_MATCH_ALL, FALSE));
  GArray* const matches = atspi_collection_get_matches(
      collection.get(), rule.get(), ATSPI_Collection_SORT_ORDER_CANONICAL, 1, TRUE, nullptr);
  if (matches == nullptr) return std::nullopt;
  Accessible found;
  for (guint i = 0; i < matches->len; ++i) {
    Accessible match(g_array_index(matches, AtspiAccessible*, i));
    if (found == nullptr) found = std::move(match);
  }
  g_array_free(matches, TRUE);
  return found;
}

/// The same by looking at the elements one after the other. Some toolkits say of what surrounds the
/// focused text, or of the current item of a list elsewhere, that it has the focus too: a text goes
/// before what is none.
class Walk {
 public:
  explicit Walk(const AccessibilityThread& thread) : thread_(thread) {}

  /// `root` itself is not looked at.
  Accessible focusedBelow(AtspiAccessible* root) {
    Accessible other;
    auto text = focusedText(root, other);
    return text != nullptr ? std::move(text) : std::move(other);
  }

 private:
  Accessible focusedText(AtspiAccessible* root, Accessible& other) {
    const int count = atspi_accessible_get_child_count(root, nullptr);
    for (int i = 0; i < count && mayGoOn(); ++i) {
      Accessible child(atspi_accessible_get_child_at_index(root, i, nullptr));
      if (child == nullptr) continue;
      const bool isFocused = hasState(child.get(), ATSPI_STATE_FOCUSED);
      if (isFocused && takesText(child.get())) return child;
      if (auto found = focusedText(child.get(), other)) return found;
      if (isFocused && other == nullptr) other = std::move(child);
    }
    return nullptr;
  }

  bool mayGoOn() {
    if (++elements_ >= mostElements) return false;
    const auto time = Clock::now() - start_;
    return time < longestSearch || (time < longestQuietSearch && !thread_.isWaitedFor());
  }

  const AccessibilityThread& thread_;
  int elements_ = 0;
  Clock::time_point start_ = Clock::now();
};

}  // namespace

std::shared_ptr<TextField> FocusFinder::find(int processId) {
  if (isUnanswered(processId)) return nullptr;
  const auto askedAt = Clock::now();
  const auto isSlow = [askedAt] { return Clock::now() - askedAt >= slowAnswer; };
  const bool isKnown = last_ && lastProcessId_ == processId && last_->isFocused();
  if (isKnown && mayTrustLast()) return last_;
  last_ = isSlow() ? nullptr : findAnew(processId);
  lastProcessId_ = processId;
  // Whether there is a focused element could not be found out.
  if (!last_ && isSlow()) pause_ = {processId, Clock::now() + pauseLength};
  return last_;
}

std::shared_ptr<TextField> FocusFinder::findAnew(int processId) {
  auto* const application = applicationOf(processId);
  if (application == nullptr) return nullptr;
  searchedAt_ = Clock::now();
  for (auto* const hint : {&focused_, &changed_}) {
    if (isFocusedText(hint->get(), applicationName(application))) {
      return makeField(std::move(*hint));
    }
  }
  return search(application);
}

TextAtCaret FocusFinder::readAtCaret(std::shared_ptr<TextField> field, int levelsBelow) {
  auto content = field->read();
  const bool mayBeInside = content && content->hasEmbeddedAtCaret() && levelsBelow > 0;
  const auto embedded =
      mayBeInside
          ? share(field->embeddedAt(content->text.toApplication(content->selection.location)))
          : nullptr;
  auto inside = embedded ? readAtCaret(embedded, levelsBelow - 1) : TextAtCaret{};
  // What begins at the caret may say that it has it, while the caret is before it.
  if (inside.content && inside.content->selection.location > 0) {
    if (!embedded->isInline()) return inside;
    content.reset();
  }
  return {std::move(field), std::move(content)};
}

/// The text in a focused surrounding may come up only after it.
bool FocusFinder::mayTrustLast() const {
  return last_->hasText() || last_->isPassword() || Clock::now() < searchedAt_ + trustInSurrounding;
}

const char* FocusFinder::nameOf(int processId) {
  auto* const application = applicationOf(processId);
  return application != nullptr ? applicationName(application) : nullptr;
}

bool FocusFinder::isUnanswered(int processId) const {
  return pause_.processId == processId && Clock::now() < pause_.until;
}

void FocusFinder::clear() {
  last_.reset();
  passwords_.clear();
  focused_.reset();
  changed_.reset();
  applications_.clear();
}

void FocusFinder::noteFocused(AtspiAccessible* accessible) {
  focused_ = newReference(accessible);
}

void FocusFinder::noteChanged(AtspiAccessible* accessible) {
  pause_ = {};
  if (changed_.get() == accessible) return;
  changed_ = newReference(accessible);
}

void FocusFinder::notePassword(AtspiAccessible* accessible) {
  passwords_.note(accessible);
  if (last_ && last_->accessible() == accessible) last_->treatAsPassword();
}

bool FocusFinder::isKnownPassword(AtspiAccessible* accessible) const {
  return passwords_.areIn(applicationName(accessible)) &&
         passwords_.include(TextField(newReference(accessible)));
}

std::shared_ptr<TextField> FocusFinder::makeField(Accessible accessible) {
  auto field = share(std::make_unique<TextField>(std::move(accessible)));
  if (passwords_.include(*field)) field->treatAsPassword();
  return field;
}

std::shared_ptr<TextField> FocusFinder::share(std::unique_ptr<TextField> field) {
  if (field == nullptr) return nullptr;
  return {field.release(),
          [&thread = thread_](const TextField* last) { thread.post([last] { delete last; }); }};
}

AtspiAccessible* FocusFinder::applicationOf(int processId) {
  if (!thread_.hasBus()) {
    applications_.clear();
    pause_ = {processId, Clock::now() + pauseLength};
    return nullptr;
  }
  auto& known = applications_[processId];
  if (known != nullptr) return known.get();
  const Accessible desktop(atspi_get_desktop(0));
  const int count = atspi_accessible_get_child_count(desktop.get(), nullptr);
  bool isSure = count >= 0;
  for (int i = 0; i < count; ++i) {
    Accessible application(atspi_accessible_get_child_at_index(desktop.get(), i, nullptr));
    const auto owner = application != nullptr
                           ? atspi_accessible_get_process_id(application.get(), nullptr)
                           : guint{0};
    if (static_cast<int>(owner) == processId) {
      known = std::move(application);
      return known.get();
    }
    isSure = isSure && owner != 0;
  }
  if (!isSure) pause_ = {processId, Clock::now() + pauseLength};
  return nullptr;
}

std::shared_ptr<TextField> FocusFinder::search(AtspiAccessible* application) {
  const int count = atspi_accessible_get_child_count(application, nullptr);
  // It has gone, or has come back under another name.
  if (count < 0) applications_.clear();
  for (int i = 0; i < count; ++i) {
    const Accessible window(atspi_accessible_get_child_at_index(application, i, nullptr));
    if (window == nullptr || !hasState(window.get(), ATSPI_STATE_ACTIVE)) continue;
    auto found = queryFocused(window.get());
    if (!found) found = Walk(thread_).focusedBelow(window.get());
    if (*found != nullptr) return makeField(std::move(*found));
  }
  return nullptr;
}

}  // namespace mirvane
