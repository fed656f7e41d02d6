#include <aspell.h>

#include <stdexcept>

#include "peer.h"

namespace mirvane {

namespace {

struct Deleter {
  void operator()(AspellConfig* config) const { delete_aspell_config(config); }
  void operator()(AspellSpeller* speller) const { delete_aspell_speller(speller); }
  void operator()(AspellStringEnumeration* words) const { delete_aspell_string_enumeration(words); }
};

class AspellPeer : public Peer {
 public:
  AspellPeer() {
    const std::unique_ptr<AspellConfig, Deleter> config(new_aspell_config());
    aspell_config_replace(config.get(), "lang", "en_US");
    aspell_config_replace(config.get(), "sug-mode", "normal");
    AspellCanHaveError* made = new_aspell_speller(config.get());
    if (aspell_error_number(made) != 0) {
      const std::string reason = aspell_error_message(made);
      delete_aspell_can_have_error(made);
      throw std::runtime_error("aspell: " + reason);
    }
    checker_.reset(to_aspell_speller(made));
  }
  [[nodiscard]] std::string name() const override { return "aspell (normal)"; }
  bool isCorrect(const std::string& word) override {
    return aspell_speller_check(checker_.get(), word.data(), static_cast<int>(word.size())) == 1;
  }
  std::vector<std::string> guesses(const std::string& word) override {
    const AspellWordList* list =
        aspell_speller_suggest(checker_.get(), word.data(), static_cast<int>(word.size()));
    const std::unique_ptr<AspellStringEnumeration, Deleter> elements(
        aspell_word_list_elements(list));
    std::vector<std::string> words;
    while (const char* guess = aspell_string_enumeration_next(elements.get())) {
      words.emplace_back(guess);
    }
    return words;
  }

 private:
  std::unique_ptr<AspellSpeller, Deleter> checker_;
};

}  // namespace

std::unique_ptr<Peer> makeAspellPeer() {
  return std::make_unique<AspellPeer>();
}

}  // namespace mirvane
