#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace mirvane {

/// The one file of this user in which a study is kept that is not saved yet. No operation throws;
/// each says whether it worked, and after a failure the file may hold anything between before and
/// after. Calls may come from any thread, one at a time.
class JournalFile {
 public:
  enum class Claim {
    mine,        ///< no other study writes until this object is gone
    others,      ///< another study that is running has it
    impossible,  ///< there is no place for it now: no space, no permission, not ours
  };

  JournalFile() = default;
  JournalFile(const JournalFile&) = delete;
  JournalFile& operator=(const JournalFile&) = delete;
  virtual ~JournalFile() = default;

  /// To be called first. Makes the place for the file, not the file.
  [[nodiscard]] virtual Claim claim() = 0;

  /// Its contents; empty when there is no such file. Absent when it cannot be read.
  [[nodiscard]] virtual std::optional<std::string> contents() = 0;

  /// Adds to its end, and makes it when it is not there. A failure may leave a part behind.
  [[nodiscard]] virtual bool append(std::string_view bytes) = 0;

  /// Cuts it to its first `size` bytes. One that is not there has 0.
  [[nodiscard]] virtual bool cutTo(std::uint64_t size) = 0;

  /// Returns once what was written outlives a power cut.
  [[nodiscard]] virtual bool sync() = 0;

  [[nodiscard]] virtual bool remove() = 0;

  /// Gives it another name, for somebody to look at.
  [[nodiscard]] virtual bool setAside() = 0;
};

}  // namespace mirvane
