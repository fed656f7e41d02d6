#pragma once

#include <filesystem>
#include <functional>

#include "platform/save_panel.h"

namespace mirvane {

/// The desktop's own panel for saving, where it has one.
class NativeSavePanel {
 public:
  enum class Outcome { chosen, cancelled, lost };
  struct Answer {
    Outcome outcome = Outcome::lost;  ///< lost: the panel did not come, or went without an answer
    std::filesystem::path path = {};  ///< when one was chosen
  };

  NativeSavePanel() = default;
  NativeSavePanel(const NativeSavePanel&) = delete;
  NativeSavePanel& operator=(const NativeSavePanel&) = delete;
  virtual ~NativeSavePanel() = default;

  /// Asks the desktop to show its panel and returns at once; false where there is none. Else
  /// `onAnswer` is called once, later, unless the panel is closed before.
  virtual bool open(const SavePanel::Options& options, std::function<void(Answer)> onAnswer) = 0;

  /// Takes the panel away; nothing is answered any more.
  virtual void close() = 0;
};

}  // namespace mirvane
