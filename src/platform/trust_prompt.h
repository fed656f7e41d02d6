#pragma once

#include <functional>
#include <optional>
#include <string>

namespace mirvane {

/// The application's own question for the accessibility permission, on desktops that have none.
class TrustPrompt {
 public:
  /// Gives the permission. Answers why that failed; absent when it worked. May be called at any
  /// later time, or never.
  using Grant = std::function<std::optional<std::string>()>;

  TrustPrompt() = default;
  TrustPrompt(const TrustPrompt&) = delete;
  TrustPrompt& operator=(const TrustPrompt&) = delete;
  virtual ~TrustPrompt() = default;

  /// Asks the user and returns at once; a yes calls `grant`.
  virtual void ask(Grant grant) = 0;

  /// Tells the user why there is nothing to be granted; returns at once.
  virtual void explainFailure(const std::string& reason) = 0;
};

}  // namespace mirvane
