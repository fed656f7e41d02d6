#pragma once

#include <fcntl.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fstream>
#include <functional>
#include <optional>
#include <string>

namespace mirvane {

/// Runs `test` in a process of its own that finds a file system of `size` (such as "16k") at
/// `folder`. Answers whether it answered true; absent where the system lets nobody mount one.
inline std::optional<bool> onTinyDisk(const std::string& folder, const std::string& size,
                                      const std::function<bool()>& test) {
  constexpr int refused = 77;
  const auto user = geteuid();
  const auto group = getegid();
  const auto child = fork();
  if (child == 0) {
    if (unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0) _exit(refused);
    std::ofstream("/proc/self/uid_map") << "0 " << user << " 1\n";
    std::ofstream("/proc/self/setgroups") << "deny";
    std::ofstream("/proc/self/gid_map") << "0 " << group << " 1\n";
    const auto options = "size=" + size;
    if (mount("tiny", folder.c_str(), "tmpfs", 0, options.c_str()) != 0) _exit(refused);
    _exit(test() ? 0 : 1);
  }
  int status = 0;
  if (child == -1 || waitpid(child, &status, 0) != child || !WIFEXITED(status)) return false;
  if (WEXITSTATUS(status) == refused) return std::nullopt;
  return WEXITSTATUS(status) == 0;
}

}  // namespace mirvane
