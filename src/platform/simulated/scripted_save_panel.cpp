#include "platform/simulated/scripted_save_panel.h"

#include <utility>

namespace mirvane::simulated {

std::optional<std::filesystem::path> ScriptedSavePanel::run(const Options& options) {
  shown_.push_back(options);
  if (answers_.empty()) return std::nullopt;
  auto answer = std::move(answers_.front());
  answers_.pop_front();
  return answer;
}

}  // namespace mirvane::simulated
