#include "model/user_settings.h"

#include <algorithm>
#include <optional>

#include "text/canonical.h"
#include "text/letter_case.h"
#include "text/scalars.h"

namespace mirvane {
namespace {

constexpr std::string_view allowListKey = "allowList";
constexpr std::string_view disabledAppsKey = "disabledAppBundleIDs";

const std::vector<std::string>& defaultDisabledApps() {
  static const std::vector<std::string> list{"com.apple.dt.Xcode"};
  return list;
}

DefaultsValue toDefaults(const std::vector<std::string>& strings) {
  std::vector<DefaultsValue> values;
  values.reserve(strings.size());
  for (const auto& string : strings) values.push_back({string});
  return {std::move(values)};
}

/// A text is true when, behind spaces, a sign and zeros, it starts with Y, T or a digit from 1.
bool textAsBoolean(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(" \t\n\r"), text.size()));
  if (text.starts_with('+') || text.starts_with('-')) text.remove_prefix(1);
  text.remove_prefix(std::min(text.find_first_not_of('0'), text.size()));
  constexpr std::string_view trueStarts = "YyTt123456789";
  return !text.empty() && trueStarts.find(text.front()) != std::string_view::npos;
}

bool asBoolean(const DefaultsValue& stored) {
  if (const auto* boolean = std::get_if<bool>(&stored.value)) return *boolean;
  if (const auto* number = std::get_if<double>(&stored.value)) return *number != 0;
  if (const auto* string = std::get_if<std::string>(&stored.value)) return textAsBoolean(*string);
  return false;
}

/// Absent unless the value is an array of nothing but strings.
std::optional<std::vector<std::string>> asStrings(const std::optional<DefaultsValue>& stored) {
  const auto* array = stored ? std::get_if<std::vector<DefaultsValue>>(&stored->value) : nullptr;
  if (array == nullptr) return std::nullopt;
  std::vector<std::string> strings;
  for (const auto& entry : *array) {
    const auto* string = std::get_if<std::string>(&entry.value);
    if (string == nullptr) return std::nullopt;
    strings.push_back(*string);
  }
  return strings;
}

/// The same for all texts that are equal but for letter case.
std::string formIgnoringCase(std::string_view word) {
  auto lower = text::lowercased(word);
  return text::isAscii(lower) ? lower : text::canonicalForm(lower);
}

}  // namespace

UserSettings::UserSettings(UserDefaults& defaults, const Workspace& workspace)
    : defaults_(defaults), workspace_(workspace) {
  if (!defaults_.object(autoCorrectionKey)) defaults_.set(autoCorrectionKey, {true});
  const auto enabled = defaults_.object(autoCorrectionKey);
  isAutoCorrectionEnabled_.set(enabled && asBoolean(*enabled));

  keepAllowList(asStrings(defaults_.object(allowListKey)).value_or(std::vector<std::string>{}));

  if (!defaults_.object(disabledAppsKey)) {
    defaults_.set(disabledAppsKey, toDefaults(defaultDisabledApps()));
  }
  disabledAppBundleIDs_.set(
      asStrings(defaults_.object(disabledAppsKey)).value_or(defaultDisabledApps()));
}

void UserSettings::setIsAutoCorrectionEnabled(bool enabled) {
  defaults_.set(autoCorrectionKey, {enabled});
  isAutoCorrectionEnabled_.set(enabled);
}

void UserSettings::setAllowList(std::vector<std::string> words) {
  defaults_.set(allowListKey, toDefaults(words));
  keepAllowList(std::move(words));
}

void UserSettings::keepAllowList(std::vector<std::string> words) {
  allowedForms_.clear();
  for (const auto& word : words) allowedForms_.insert(formIgnoringCase(word));
  allowList_.set(std::move(words));
}

void UserSettings::setDisabledAppBundleIDs(std::vector<std::string> identifiers) {
  defaults_.set(disabledAppsKey, toDefaults(identifiers));
  disabledAppBundleIDs_.set(std::move(identifiers));
}

bool UserSettings::isAllowListed(std::string_view word) const {
  return !allowedForms_.empty() && allowedForms_.count(formIgnoringCase(word)) > 0;
}

bool UserSettings::isFrontmostAppDisabled() const {
  if (disabledAppBundleIDs_->empty()) return false;
  const auto application = workspace_.frontmostApplication();
  if (!application || !application->bundleIdentifier) return false;
  const auto& identifier = *application->bundleIdentifier;
  return std::any_of(
      disabledAppBundleIDs_->begin(), disabledAppBundleIDs_->end(),
      [&](const std::string& entry) { return text::canonicallyEqual(entry, identifier); });
}

}  // namespace mirvane
