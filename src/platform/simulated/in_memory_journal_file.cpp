#include "platform/simulated/in_memory_journal_file.h"

#include <algorithm>
#include <utility>

namespace mirvane::simulated {

InMemoryJournalFile::~InMemoryJournalFile() {
  if (isMine_) disk_.isClaimed = false;
}

void InMemoryJournalFile::failCalls(std::size_t first, std::size_t last) {
  firstFailing_ = first;
  lastFailing_ = last;
}

JournalFile::Claim InMemoryJournalFile::claim() {
  if (fails()) return Claim::impossible;
  if (disk_.isClaimed && !isMine_) return Claim::others;
  isMine_ = disk_.isClaimed = true;
  return Claim::mine;
}

std::optional<std::string> InMemoryJournalFile::contents() {
  if (fails()) return std::nullopt;
  return disk_.file.value_or(std::string());
}

bool InMemoryJournalFile::append(std::string_view bytes) {
  const bool isCutShort = fails();
  disk_.file = disk_.file.value_or(std::string()) +
               std::string(bytes.substr(0, isCutShort ? bytes.size() / 2 : bytes.size()));
  return !isCutShort;
}

bool InMemoryJournalFile::cutTo(std::uint64_t size) {
  if (fails()) return false;
  if (disk_.file) disk_.file->resize(std::min<std::size_t>(size, disk_.file->size()));
  return true;
}

bool InMemoryJournalFile::sync() {
  if (fails()) return false;
  disk_.synced = disk_.file;
  return true;
}

bool InMemoryJournalFile::remove() {
  if (fails()) return false;
  disk_.file.reset();
  disk_.synced.reset();
  return true;
}

bool InMemoryJournalFile::setAside() {
  if (fails()) return false;
  if (disk_.file) disk_.setAside.push_back(*std::exchange(disk_.file, std::nullopt));
  disk_.synced.reset();
  return true;
}

bool InMemoryJournalFile::fails() {
  const auto call = calls_++;
  return call >= firstFailing_ && call < lastFailing_;
}

}  // namespace mirvane::simulated
