#pragma once

#include <functional>

#include "platform/native_save_panel.h"

namespace mirvane {

/// The desktop's own panel over the active window where there is one; without it, or when it is
/// lost or left by the participant, the study's. Both give plain-text files only.
class StudySavePanel : public SavePanel {
 public:
  /// `native` must outlive this. `folder` is where the study's own panel begins.
  StudySavePanel(NativeSavePanel& native, std::filesystem::path folder);

  [[nodiscard]] std::optional<std::filesystem::path> run(const Options& options) override;

 private:
  [[nodiscard]] NativeSavePanel::Answer askDesktop(const Options& options);
  [[nodiscard]] std::optional<std::filesystem::path> askHere(const Options& options) const;

  NativeSavePanel& native_;
  std::filesystem::path folder_;
};

}  // namespace mirvane
