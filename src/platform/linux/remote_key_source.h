#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <utility>

#include "platform/key_codes.h"
#include "platform/key_event_poster.h"

namespace mirvane {

/// Gathers the keys of one replacement in another application, which are typed together when it is
/// let go of.
class RemoteKeySource : public KeyEventSource {
 public:
  using Type = std::function<void(std::int64_t deleteCount, const std::string& text)>;

  explicit RemoteKeySource(Type type) : type_(std::move(type)) {}
  RemoteKeySource(const RemoteKeySource&) = delete;
  RemoteKeySource& operator=(const RemoteKeySource&) = delete;
  ~RemoteKeySource() override {
    if (deleteCount_ > 0 || !text_.empty()) type_(deleteCount_, text_);
  }

  /// Of no use here: own keys are known when they come back, and not reported at all.
  void setUserData(std::int64_t /*userData*/) override {}

  void post(const SynthesizedKey& key) override {
    if (!key.isDown) return;
    if (key.keyCode == keycode::deleteKey) ++deleteCount_;
    text_ += key.text;
  }

 private:
  Type type_;
  std::int64_t deleteCount_ = 0;
  std::string text_;
};

}  // namespace mirvane
