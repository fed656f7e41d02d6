#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/journal_file.h"

namespace mirvane::simulated {

/// A disk with one journal on it. It outlives the programs that use it.
struct JournalDisk {
  std::optional<std::string> file = {};    ///< what a program reads; absent when there is no file
  std::optional<std::string> synced = {};  ///< what a power cut would leave
  std::vector<std::string> setAside = {};
  bool isClaimed = false;
};

/// The journal as one program sees it. Any call can be made to fail.
class InMemoryJournalFile : public JournalFile {
 public:
  explicit InMemoryJournalFile(JournalDisk& disk) : disk_(disk) {}
  ~InMemoryJournalFile() override;

  /// Call number `first`, counted from 0, fails, and every one up to `last`, which does not. A
  /// failing append leaves half of its bytes.
  void failCalls(std::size_t first, std::size_t last);
  [[nodiscard]] std::size_t calls() const { return calls_; }

  [[nodiscard]] Claim claim() override;
  [[nodiscard]] std::optional<std::string> contents() override;
  [[nodiscard]] bool append(std::string_view bytes) override;
  [[nodiscard]] bool cutTo(std::uint64_t size) override;
  [[nodiscard]] bool sync() override;
  [[nodiscard]] bool remove() override;
  [[nodiscard]] bool setAside() override;

 private:
  [[nodiscard]] bool fails();

  JournalDisk& disk_;
  bool isMine_ = false;
  std::size_t calls_ = 0, firstFailing_ = 0, lastFailing_ = 0;
};

}  // namespace mirvane::simulated
