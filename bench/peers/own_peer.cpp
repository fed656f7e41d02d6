#include "language/english_language.h"
#include "peer.h"
#include "platform/linux/resource_bundle.h"

namespace mirvane {

namespace {

class OwnPeer : public Peer {
 public:
  [[nodiscard]] std::string name() const override { return "own dictionary"; }
  bool isCorrect(const std::string& word) override {
    return english_.spellChecker->isCorrect(word);
  }
  std::vector<std::string> guesses(const std::string& word) override {
    return english_.spellChecker->guesses(word);
  }

 private:
  EnglishLanguage english_ = loadEnglishLanguage(ResourceBundle(standardResourceFolder()));
};

}  // namespace

std::unique_ptr<Peer> makeOwnPeer() {
  return std::make_unique<OwnPeer>();
}

}  // namespace mirvane
