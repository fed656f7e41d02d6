#include <nuspell/dictionary.hxx>

#include "peer.h"

namespace mirvane {

namespace {

class NuspellPeer : public Peer {
 public:
  NuspellPeer() { checker_.load_aff_dic("/usr/share/hunspell/en_US.aff"); }
  [[nodiscard]] std::string name() const override { return "nuspell"; }
  bool isCorrect(const std::string& word) override { return checker_.spell(word); }
  std::vector<std::string> guesses(const std::string& word) override {
    std::vector<std::string> words;
    checker_.suggest(word, words);
    return words;
  }

 private:
  nuspell::Dictionary checker_;
};

}  // namespace

std::unique_ptr<Peer> makeNuspellPeer() {
  return std::make_unique<NuspellPeer>();
}

}  // namespace mirvane
