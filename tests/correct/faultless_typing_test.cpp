#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "session/study_prompts.h"
#include "support/correcting_desktop.h"
#include "support/shipped_resources.h"

namespace mirvane {
namespace {

using simulated::ElementKind;

constexpr simulated::TypingRhythm rhythms[] = {
    {.gap = 0.18, .hold = 0.09},  // steady
    {.gap = 0.06, .hold = 0.05},  // so fast that doubled letters count as repeats
    {.gap = 0.35, .hold = 0.3},   // slow, with the longest holds
    {.gap = 1.4, .hold = 0.16},   // every key a hesitation
};

class FaultlessTyping : public testing::TestWithParam<const char*> {
 protected:
  /// Types the prompt and expects that nothing happens to it.
  void typeInto(ElementKind kind, simulated::TypingRhythm rhythm, double restAtSpaces = 0) {
    CorrectingDesktop session(shipped.language(), shipped.typingConfig());
    const auto& element = session.desktop.openElement(kind);
    for (const char character : std::string_view(GetParam())) {
      session.desktop.type(std::string(1, character), rhythm);
      if (character == ' ') session.desktop.advance(restAtSpaces);
    }
    EXPECT_EQ(element.text(), GetParam());
    EXPECT_THAT(session.log(), testing::IsEmpty());
  }

  ShippedResources shipped;
};

TEST_P(FaultlessTyping, StaysUntouchedWhateverTheTiming) {
  for (const auto& rhythm : rhythms) {
    typeInto(ElementKind::multiLine, rhythm);
    typeInto(ElementKind::withoutAccessibility, rhythm);
  }
  typeInto(ElementKind::multiLine, {.gap = 0.1, .hold = 0.1}, 2.5);
}

INSTANTIATE_TEST_SUITE_P(Prompts, FaultlessTyping, testing::Values(prompt1, prompt2));

}  // namespace
}  // namespace mirvane
