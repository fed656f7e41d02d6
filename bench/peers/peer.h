#pragma once

#include <memory>
#include <string>
#include <vector>

namespace mirvane {

/// A spell checker to compare with.
class Peer {
 public:
  Peer() = default;
  Peer(const Peer&) = delete;
  Peer& operator=(const Peer&) = delete;
  virtual ~Peer() = default;

  [[nodiscard]] virtual std::string name() const = 0;
  virtual bool isCorrect(const std::string& word) = 0;
  virtual std::vector<std::string> guesses(const std::string& word) = 0;
};

std::unique_ptr<Peer> makeOwnPeer();
std::unique_ptr<Peer> makeHunspellPeer();
std::unique_ptr<Peer> makeNuspellPeer();
std::unique_ptr<Peer> makeAspellPeer();

}  // namespace mirvane
