#pragma once

#include <QString>
#include <filesystem>
#include <functional>
#include <optional>

#include "platform/clock.h"
#include "platform/file_system.h"
#include "platform/save_panel.h"
#include "session/session_snapshot.h"

class QWidget;

namespace mirvane {

/// Asks where the results report goes and writes it there.
class ReportSaver {
 public:
  struct Services {
    QString contactAddress;  ///< of the study team
    SavePanel& savePanel;
    FileSystem& files;
    const Clock& clock;
    std::function<void()> onSaved = {};  ///< called after each report that has been written
  };

  explicit ReportSaver(Services services) : services_(std::move(services)) {}

  [[nodiscard]] const QString& contactAddress() const { return services_.contactAddress; }

  /// Where the report has been written; absent when the participant cancelled, and when writing
  /// failed, which a message over `window` tells.
  std::optional<std::filesystem::path> save(const SessionSnapshot& session1,
                                            const SessionSnapshot& session2, QWidget& window) const;

 private:
  Services services_;
};

}  // namespace mirvane
