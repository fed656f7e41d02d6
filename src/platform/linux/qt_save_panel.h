#pragma once

#include "platform/save_panel.h"

namespace mirvane {

/// The toolkit's own file dialog, over the active window.
class QtSavePanel : public SavePanel {
 public:
  [[nodiscard]] std::optional<std::filesystem::path> run(const Options& options) override;
};

}  // namespace mirvane
