#include <hunspell.hxx>

#include "peer.h"

namespace mirvane {

namespace {

class HunspellPeer : public Peer {
 public:
  [[nodiscard]] std::string name() const override { return "hunspell"; }
  bool isCorrect(const std::string& word) override { return checker_.spell(word); }
  std::vector<std::string> guesses(const std::string& word) override {
    return checker_.suggest(word);
  }

 private:
  Hunspell checker_{"/usr/share/hunspell/en_US.aff", "/usr/share/hunspell/en_US.dic"};
};

}  // namespace

std::unique_ptr<Peer> makeHunspellPeer() {
  return std::make_unique<HunspellPeer>();
}

}  // namespace mirvane
