#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>

#include "analyse/typed_session.h"
#include "recording/recorded_event.h"

namespace mirvane {

/// Gathers a session from its recorded events: the keys that type or erase, with their times, from
/// the last Reset to Done.
class KeyCollector {
 public:
  explicit KeyCollector(TypedSession& session);

  void add(const RecordedEvent& event);
  /// A correction that the latest event caused.
  void add(LoggedCorrection correction);

 private:
  void press(const RecordedEvent& event);
  void release(const RecordedEvent& event);
  void append(TypedKey key, const RecordedEvent& event);
  void reset();

  struct Down {
    double t = 0;
    std::optional<std::size_t> key = {};  // absent when it typed nothing
  };

  TypedSession& session_;
  std::map<std::uint16_t, Down> down_;  // by key code
  std::optional<std::uint16_t> latestCode_;
  std::optional<double> latestPress_;  // seconds; of keys that count, held repeats aside
  bool isDone_ = false;
};

}  // namespace mirvane
