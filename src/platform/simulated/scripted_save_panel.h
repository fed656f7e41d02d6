#pragma once

#include <deque>
#include <vector>

#include "platform/save_panel.h"

namespace mirvane::simulated {

/// A participant whose answers are known beforehand.
class ScriptedSavePanel : public SavePanel {
 public:
  /// Answers the next dialog that has no answer yet; absent cancels it.
  void answer(std::optional<std::filesystem::path> path) { answers_.push_back(std::move(path)); }

  /// A dialog without an answer is cancelled.
  [[nodiscard]] std::optional<std::filesystem::path> run(const Options& options) override;

  /// What the dialogs so far have shown.
  [[nodiscard]] const std::vector<Options>& shown() const { return shown_; }

 private:
  std::deque<std::optional<std::filesystem::path>> answers_;
  std::vector<Options> shown_;
};

}  // namespace mirvane::simulated
