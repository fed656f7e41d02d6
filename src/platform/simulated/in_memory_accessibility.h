#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "platform/accessibility.h"
#include "platform/simulated/in_memory_workspace.h"

namespace mirvane::simulated {

/// Accessibility over the elements of the simulated desktop. Elements handed out stay valid
/// objects when the text element, or this object, is gone or trust is withdrawn: reads answer
/// nothing and writes do nothing then.
class InMemoryAccessibility : public Accessibility {
 public:
  explicit InMemoryAccessibility(const InMemoryWorkspace& workspace);
  ~InMemoryAccessibility() override;

  [[nodiscard]] bool isProcessTrusted() const override;
  void promptForTrust(TrustPrompt& prompt) override;
  [[nodiscard]] std::shared_ptr<AccessibilityElement> focusedElement() const override;

  /// Trusted at first.
  void setTrusted(bool trusted);
  /// Why trust can not be granted from now on.
  void setGrantFailure(std::string reason) { grantFailure_ = std::move(reason); }

  /// How much text has been read so far, in UTF-16 units: shows who reads whole documents.
  [[nodiscard]] std::int64_t unitsRead() const;

 private:
  class Handle;
  struct Connection {
    bool isTrusted = true;
    std::int64_t unitsRead = 0;
  };

  const InMemoryWorkspace& workspace_;
  std::shared_ptr<Connection> connection_;
  std::optional<std::string> grantFailure_;
};

}  // namespace mirvane::simulated
