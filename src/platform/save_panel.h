#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace mirvane {

/// Asks the participant where to save a plain-text file.
class SavePanel {
 public:
  struct Options {
    std::string suggestedFileName;
    std::string prompt;   ///< text of the confirming button
    std::string message;  ///< explains what is being saved
  };

  SavePanel() = default;
  SavePanel(const SavePanel&) = delete;
  SavePanel& operator=(const SavePanel&) = delete;
  virtual ~SavePanel() = default;

  /// Runs the dialog; absent when it was cancelled.
  [[nodiscard]] virtual std::optional<std::filesystem::path> run(const Options& options) = 0;
};

}  // namespace mirvane
