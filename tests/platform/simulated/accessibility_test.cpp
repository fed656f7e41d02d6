#include <gtest/gtest.h>

#include "platform/simulated/desktop.h"

namespace mirvane::simulated {
namespace {

std::string documentOf(std::size_t length) {
  std::string document;
  document.resize(length, 'x');
  return document;
}

class SimulatedAccessibility : public testing::Test {
 protected:
  std::shared_ptr<AccessibilityElement> handle() {
    return desktop.accessibility().focusedElement();
  }

  Desktop desktop;
};

TEST_F(SimulatedAccessibility, ReadsOnlyWhatIsAskedForOfALongDocument) {
  auto& element = desktop.openElement(ElementKind::multiLine, documentOf(10'000'000));
  element.placeCaret(5'000'000);
  desktop.type("a\b😀");
  ASSERT_EQ(handle()->textLength(), 10'000'002);
  EXPECT_EQ(handle()->selectedTextRange(), (Utf16Range{5'000'002, 0}));
  EXPECT_EQ(handle()->text({4'999'999, 4}), u"x😀x");
  EXPECT_EQ(desktop.accessibility().unitsRead(), 4);
}

TEST_F(SimulatedAccessibility, ClampsSelectionsToTheText) {
  desktop.openElement(ElementKind::multiLine, "hello");
  handle()->setSelectedTextRange({3, 100});
  EXPECT_EQ(handle()->selectedTextRange(), (Utf16Range{3, 2}));
  handle()->setSelectedTextRange({-4, 2});
  EXPECT_EQ(handle()->selectedTextRange(), (Utf16Range{0, 2}));
}

TEST_F(SimulatedAccessibility, SingleLineElementsDropLineBreaks) {
  const auto& element = desktop.openElement(ElementKind::singleLine);
  handle()->setSelectedText("one\r\ntwo\n");
  EXPECT_EQ(element.text(), "onetwo");
}

TEST_F(SimulatedAccessibility, ElementsThatTakeNoWritesCanStillBeRead) {
  for (const auto kind : {ElementKind::ignoresAccessibilityWrites, ElementKind::readOnly}) {
    const auto& element = desktop.openElement(kind, "helo");
    handle()->setSelectedTextRange({0, 4});
    handle()->setSelectedText("hello");
    EXPECT_EQ(handle()->text({0, 4}), u"helo");
    EXPECT_EQ(element.selection(), (Utf16Range{4, 0}));
  }
}

TEST_F(SimulatedAccessibility, HasNoElementWithoutFocusTrustOrAccessibility) {
  EXPECT_EQ(handle(), nullptr);
  auto& application = desktop.openApplication();
  EXPECT_EQ(handle(), nullptr);
  application.addElement(ElementKind::multiLine);
  EXPECT_NE(handle(), nullptr);
  desktop.accessibility().setTrusted(false);
  EXPECT_FALSE(desktop.accessibility().isProcessTrusted());
  EXPECT_EQ(handle(), nullptr);
  desktop.accessibility().setTrusted(true);
  application.addElement(ElementKind::withoutAccessibility);
  EXPECT_EQ(handle(), nullptr);
}

void expectDead(AccessibilityElement& handle) {
  EXPECT_EQ(handle.textLength(), std::nullopt);
  EXPECT_EQ(handle.text({0, 1}), std::nullopt);
  EXPECT_EQ(handle.selectedTextRange(), std::nullopt);
  handle.setSelectedTextRange({0, 1});
  handle.setSelectedText("x");
}

TEST_F(SimulatedAccessibility, HandlesOutliveTheirElement) {
  auto& application = desktop.openApplication();
  auto& element = application.addElement(ElementKind::multiLine, "hello");
  const auto closed = handle();
  application.closeElement(element);
  expectDead(*closed);
  EXPECT_EQ(handle(), nullptr);

  application.addElement(ElementKind::multiLine, "hello");
  const auto quit = handle();
  desktop.workspace().quit(application);
  expectDead(*quit);
}

TEST_F(SimulatedAccessibility, HandlesAreSilentWhileTrustIsWithdrawn) {
  const auto& element = desktop.openElement(ElementKind::multiLine, "hello");
  const auto kept = handle();
  desktop.accessibility().setTrusted(false);
  expectDead(*kept);
  EXPECT_EQ(element.text(), "hello");
  desktop.accessibility().setTrusted(true);
  EXPECT_EQ(kept->textLength(), 5);
}

}  // namespace
}  // namespace mirvane::simulated
