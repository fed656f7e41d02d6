#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <utility>

#include "platform/event_monitors.h"

namespace mirvane::simulated {

/// Entries by handle, in the order of installation. Entries may come and go while they are
/// visited: a removed one is not visited any more, a new one not yet.
template <typename Entry>
class MonitorList {
 public:
  MonitorHandle add(Entry entry) {
    const MonitorHandle handle{++lastHandle_};
    entries_.emplace(handle, std::make_shared<const Entry>(std::move(entry)));
    return handle;
  }

  void remove(MonitorHandle handle) { entries_.erase(handle); }

  [[nodiscard]] std::size_t size() const { return entries_.size(); }

  template <typename Visit>
  void forEach(Visit visit) const {
    const MonitorHandle newest{lastHandle_};
    auto next = entries_.begin();
    while (next != entries_.end() && next->first <= newest) {
      const auto [handle, entry] = *next;  // keeps the entry alive while it removes itself
      visit(*entry);
      next = entries_.upper_bound(handle);
    }
  }

 private:
  std::map<MonitorHandle, std::shared_ptr<const Entry>> entries_;
  std::uint64_t lastHandle_ = 0;
};

}  // namespace mirvane::simulated
