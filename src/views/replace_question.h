#pragma once

#include <filesystem>
#include <functional>

class QWidget;

namespace mirvane {

class StudyDialog;

/// The question whether the file of this name may be replaced; the safe answer keeps it. To be
/// opened by the caller.
[[nodiscard]] StudyDialog* makeReplaceQuestion(const std::filesystem::path& path, QWidget* asker,
                                               std::function<void()> onReplace,
                                               std::function<void()> onKeep = {});

}  // namespace mirvane
