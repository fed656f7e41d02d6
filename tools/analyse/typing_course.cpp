#include "analyse/typing_course.h"

namespace mirvane {
namespace {

class Follower {
 public:
  explicit Follower(const TypedSession& session) : session_(session) {
    course_.isErased.resize(session.keys.size());
    course_.typedAfter.resize(session.keys.size());
  }

  TypingCourse follow() {
    for (std::size_t number = 0; number < session_.keys.size(); ++number) {
      correctBefore(number);
      press(number);
    }
    correctBefore(session_.keys.size());
    course_.text = field_.text();
    course_.typed = field_.keys();
    return std::move(course_);
  }

 private:
  void correctBefore(std::size_t number) {
    while (course_.corrections.size() < session_.corrections.size() &&
           session_.corrections[course_.corrections.size()].keysBefore <= number) {
      const auto& correction = session_.corrections[course_.corrections.size()];
      auto word = field_.correct(correction.original, correction.corrected);
      waiting_.push_back({course_.corrections.size(), field_.size()});
      course_.corrections.push_back(
          {.word = word.value_or(TypedField::KeyNumbers{}), .keysThen = field_.keys()});
    }
  }

  void press(std::size_t number) {
    course_.typedAfter[number] = field_.lastKey();
    for (const auto erased : field_.press(session_.keys[number], number)) {
      course_.isErased[erased] = true;
    }
    if (session_.keys[number].effect != TypedKey::Effect::types) return;
    std::erase_if(waiting_, [&](const Waiting& waiting) {
      if (field_.size() <= waiting.size) return false;
      course_.corrections[waiting.correction].continuedBy = number;
      return true;
    });
  }

  /// A correction after which the participant has not gone on yet, and the text's size then.
  struct Waiting {
    std::size_t correction;
    std::size_t size;
  };

  const TypedSession& session_;
  TypingCourse course_;
  TypedField field_;
  std::vector<Waiting> waiting_;
};

}  // namespace

TypingCourse followTyping(const TypedSession& session) {
  return Follower(session).follow();
}

}  // namespace mirvane
