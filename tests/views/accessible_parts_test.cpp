#include "views/accessible_parts.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAccessible>
#include <QTest>

#include "tests/views/study_world.h"

namespace mirvane {
namespace {

/// The study as assistive technology sees it, step by step.
class Parts : public ::testing::Test {
 protected:
  static void SetUpTestSuite() { installAccessibleParts(); }

  void open(AppStep step) {
    flow = world.openFlow();
    while (flow->step() != step) flow->advance();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    flow->activateWindow();
    QCoreApplication::processEvents();
    visit(*QAccessible::queryAccessibleInterface(flow.get()));
  }

  /// Notes each part that is shown, and checks that it lies where it says.
  void visit(QAccessibleInterface& part) {
    if (part.state().invisible) return;
    const QString name = part.text(QAccessible::Name);
    if (part.role() == QAccessible::Heading) headings << name;
    if (part.role() == QAccessible::List) lists << name;
    if (part.role() == QAccessible::ListItem) items << name;
    if (part.role() == QAccessible::Window) ++windows;
    if (part.state().focused) focused << name;
    const auto* const own = dynamic_cast<AccessiblePart*>(&part);
    if (own == nullptr) return;
    EXPECT_FALSE(name.isEmpty() && part.role() == QAccessible::Grouping)
        << part.object()->metaObject()->className();
    EXPECT_NE(part.role(), QAccessible::Client);
    for (int i = 0; i < part.childCount(); ++i) {
      auto* const child = part.child(i);
      ASSERT_NE(child, nullptr);
      EXPECT_EQ(child->parent(), &part) << child->text(QAccessible::Name).toStdString();
      EXPECT_EQ(part.indexOfChild(child), i);
      visit(*child);
    }
  }

  StudyWorld world;
  std::unique_ptr<AppFlowView> flow;
  QStringList headings, lists, items, focused;
  int windows = 0;
};

TEST_F(Parts, OfTheIntro) {
  open(AppStep::intro);
  EXPECT_EQ(windows, 1);
  EXPECT_EQ(headings, (QStringList{"Tip", "Thanks for helping us test Mirvane", "Introduction",
                                   "Important rules", "Session flow"}));
  EXPECT_EQ(lists, (QStringList{"Steps of the study", "Important rules", "Session flow"}));
  EXPECT_EQ(items,
            (QStringList{"Intro, current step", "Practice", "Session 1", "Session 2", "Results",
                         "Do NOT use Backspace.", "Let Mirvane handle corrections.",
                         "Type at your natural speed.", "Do not slow down intentionally.",
                         "Practice: Try controls", "Session 1: Auto-correct",
                         "Session 2: Cycle key ⌥", "Results: Save & send"}));
  EXPECT_EQ(focused, QStringList{"Start"});
}

TEST_F(Parts, OfThePractice) {
  open(AppStep::practice);
  EXPECT_TRUE(lists.contains("Checklist"));
  EXPECT_TRUE(items.contains("Press Space, open"));
  EXPECT_TRUE(headings.contains("Practice: Cycle Key"));
  EXPECT_EQ(focused, QStringList{"Type a single word"});
}

TEST_F(Parts, OfASession) {
  open(AppStep::session2);
  EXPECT_TRUE(headings.contains("Session 2"));
  EXPECT_TRUE(headings.contains("Sentence to type"));
  EXPECT_EQ(focused, QStringList{"Type the sentence here"});
}

TEST_F(Parts, OfTheResults) {
  open(AppStep::results);
  EXPECT_TRUE(headings.contains("Results"));
  EXPECT_TRUE(headings.contains("Test Complete"));
  EXPECT_EQ(focused.size(), 1);
}

}  // namespace
}  // namespace mirvane
