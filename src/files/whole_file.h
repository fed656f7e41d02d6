#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <system_error>

#include "platform/file_system.h"

namespace mirvane {

/// Writes a file as a whole or not at all, replacing one of that name. The answer is false once the
/// file would outlast a power cut, else the system's error, whose `message()` is in the user's
/// words.
///
/// After a failure the old file is whole, and nothing else stands beside it. Only where the very
/// last step fails, making the new name outlast a power cut, is the new file already there, whole.
///
/// A new file is for its owner alone; one that exists keeps its permissions. A link stays a link:
/// what it leads to is written. What may not be written, and what is no regular file, is left
/// alone.
///
/// What a program killed while writing left in the folder goes at the next write there.
[[nodiscard]] std::error_code writeWholeFile(FileSystem& files, const FileSystem::Path& path,
                                             std::string_view content);

/// The content of a regular file, or of the one that a link leads to; absent with an error
/// otherwise. Never waits for what a pipe or a device may bring.
[[nodiscard]] std::optional<std::string> readWholeFile(FileSystem& files,
                                                       const FileSystem::Path& path,
                                                       std::error_code& error);

/// Removes what programs killed in `writeWholeFile` left in a folder; not what one that is running
/// is just writing.
void removeUnfinishedFiles(FileSystem& files, const FileSystem::Path& folder);

}  // namespace mirvane
