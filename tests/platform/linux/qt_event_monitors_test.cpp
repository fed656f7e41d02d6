#include "platform/linux/qt_event_monitors.h"

#include <gmock/gmock.h>

#include <QApplication>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "platform/key_codes.h"
#include "platform/linux/system_clock.h"
#include "platform/simulated/virtual_clock.h"
#include "tests/platform/linux/hardware_keys.h"

namespace mirvane {
namespace {

using ::testing::ElementsAre;

class QtEventMonitorsTest : public ::testing::Test {
 protected:
  QtEventMonitorsTest() {
    auto* const column = new QVBoxLayout(&window);
    column->addWidget(field);
    column->addWidget(button);
    window.show();
    window.activateWindow();
    field->setFocus();
    QCoreApplication::processEvents();
  }

  void watch(EventMask kind) {
    handle = monitors.addLocalMonitor(kind, [this](const InputEvent& event) {
      seen.push_back(event.kind == EventMask::flagsChanged
                         ? "flags " + std::to_string(event.keyCode) + " " +
                               std::to_string(event.modifierFlags)
                         : event.characters.value_or("none") + " " + std::to_string(event.keyCode));
    });
  }

  SystemClock clock;
  QtTaskQueue tasks;
  QtEventMonitors monitors{tasks, clock};
  QWidget window;
  QLineEdit* field = new QLineEdit(&window);
  QPushButton* button = new QPushButton(&window);
  std::optional<MonitorHandle> handle;
  std::vector<std::string> seen;
};

TEST_F(QtEventMonitorsTest, ReportsEachPressOnceAndLetsItThrough) {
  watch(EventMask::keyDown);
  press(window, keyA);
  release(window, keyA);
  EXPECT_THAT(seen, ElementsAre("a 0"));
  EXPECT_EQ(field->text(), QStringLiteral("a"));
}

// The windowing system keeps 32 bits of its milliseconds; other applications' keys, composed
// letters and the engine's own keys come with times that go on.
TEST_F(QtEventMonitorsTest, ReportsTheTimeOfTheEventInSecondsOfTheOneClock) {
  constexpr double turn = 4294967.296;  // seconds
  struct Row {
    double now, reported;
  };
  for (const auto& [now, reported] :
       {Row{2, 1.5}, Row{turn + 2, turn + 1.5}, Row{turn + 1, turn + 1.5},
        Row{turn - 1, turn + 1.5}, Row{3 * turn + 9, 3 * turn + 1.5}}) {
    simulated::VirtualClock steadyClock({}, now);
    QtEventMonitors timed(tasks, steadyClock);
    double timestamp = 0;
    (void)timed.addLocalMonitor(EventMask::keyDown,
                                [&](const InputEvent& event) { timestamp = event.timestamp; });
    press(window, keyA);
    EXPECT_DOUBLE_EQ(timestamp, reported) << now;
  }
}

TEST_F(QtEventMonitorsTest, ReportsAHeldKeyAsRepeatedPressesAndOneRelease) {
  int presses = 0;
  int releases = 0;
  (void)monitors.addLocalMonitor(EventMask::keyDown, [&](const InputEvent&) { ++presses; });
  (void)monitors.addLocalMonitor(EventMask::keyUp, [&](const InputEvent&) { ++releases; });
  press(window, keyA);
  for (int repeat = 0; repeat < 3; ++repeat) {
    send(window, QEvent::KeyRelease, keyA, true);
    send(window, QEvent::KeyPress, keyA, true);
  }
  release(window, keyA);
  EXPECT_EQ(presses, 4);
  EXPECT_EQ(releases, 1);
}

/// As a server that tells strokes from repeats sends a hold: presses, and one release.
class QtKeyStrokesTest : public QtEventMonitorsTest {
 protected:
  void hold(QWidget& at, const HardwareKey& key, int repeats) {
    for (int time = 0; time <= repeats; ++time) press(at, key);
  }
};

TEST_F(QtKeyStrokesTest, MarksWhatAHeldKeyRepeats) {
  watch(EventMask::keyDown);
  button->setFocus();
  int pressed = 0;
  QObject::connect(button, &QPushButton::pressed, [&] { ++pressed; });
  hold(window, keySpace, 3);
  EXPECT_EQ(pressed, 1) << "the button takes no repeat for a press";
  release(window, keySpace);
  press(window, keySpace);
  EXPECT_EQ(pressed, 2) << "a new stroke";
  release(window, keySpace);
  field->setFocus();
  hold(window, keyA, 3);
  EXPECT_EQ(field->text(), QStringLiteral("aaaa"));
  EXPECT_EQ(seen.size(), 4U);
}

TEST_F(QtKeyStrokesTest, DropsTheRepeatsOfAKeyWhoseControlIsGone) {
  watch(EventMask::keyDown);
  int releases = 0;
  (void)monitors.addLocalMonitor(EventMask::keyUp, [&](const InputEvent&) { ++releases; });
  button->setFocus();
  press(window, keySpace);
  button->hide();
  field->setFocus();
  hold(window, keySpace, 3);
  EXPECT_TRUE(seen.empty());
  press(window, keyA);
  release(window, keyA);
  release(window, keySpace);
  EXPECT_EQ(field->text(), QStringLiteral("a")) << "another key types";
  EXPECT_EQ(releases, 2);
}

TEST_F(QtKeyStrokesTest, DropsTheRestOfAHoldForGoodAndTakesTheNextStroke) {
  hold(window, keyA, 1);
  field->hide();
  press(window, keyA);
  field->show();
  field->setFocus();
  hold(window, keyA, 2);
  EXPECT_EQ(field->text(), QStringLiteral("aa"));
  release(window, keyA);
  press(window, keyA);
  EXPECT_EQ(field->text(), QStringLiteral("aaa"));
}

TEST_F(QtKeyStrokesTest, DropsRepeatsThatComeToAnotherWindow) {
  QLineEdit dialog;
  dialog.show();
  press(window, keyA);
  dialog.activateWindow();
  QCoreApplication::processEvents();
  hold(dialog, keyA, 2);
  EXPECT_EQ(dialog.text(), QString());
  release(dialog, keyA);
  press(dialog, keyA);
  EXPECT_EQ(dialog.text(), QStringLiteral("a"));
}

TEST_F(QtKeyStrokesTest, KeepsTheTimeOfARepeat) {
  double timestamp = 0;
  press(window, keyA);
  (void)monitors.addLocalMonitor(EventMask::keyDown,
                                 [&](const InputEvent& event) { timestamp = event.timestamp; });
  press(window, keyA);
  EXPECT_DOUBLE_EQ(timestamp, 1.5);
}

TEST_F(QtEventMonitorsTest, ReportsComposedLetters) {
  watch(EventMask::keyDown);
  QInputMethodEvent composing(QStringLiteral("´"), {});
  QCoreApplication::sendEvent(field, &composing);
  QInputMethodEvent commit;
  commit.setCommitString(QStringLiteral("é"));
  QCoreApplication::sendEvent(field, &commit);
  EXPECT_THAT(seen, ElementsAre("é 0"));
}

TEST_F(QtEventMonitorsTest, TellsTheAltKeysApart) {
  watch(EventMask::flagsChanged);
  press(window, keyLeftAlt);
  press(window, keyRightAlt);
  release(window, keyRightAlt);
  release(window, keyLeftAlt);
  press(window, keyRightAlt);
  release(window, keyRightAlt);
  EXPECT_THAT(seen, ElementsAre("flags 58 524288", "flags 61 524288", "flags 61 524288",
                                "flags 58 0", "flags 61 524288", "flags 61 0"));
}

TEST_F(QtEventMonitorsTest, CarriesHeldModifiersOnKeys) {
  std::uint64_t flags = 0;
  (void)monitors.addLocalMonitor(EventMask::keyDown,
                                 [&](const InputEvent& event) { flags = event.modifierFlags; });
  auto capital = keyA;
  capital.modifiers = Qt::ShiftModifier | Qt::ControlModifier;
  press(window, capital);
  EXPECT_EQ(flags, modifier::shift | modifier::control);
  press(window, keyRightAlt);
  press(window, keyA);
  EXPECT_EQ(flags, modifier::option);
}

TEST_F(QtEventMonitorsTest, DoesNotTakeKeysThatWorkControlsForTyping) {
  watch(EventMask::keyDown);
  press(window, keyTab);
  ASSERT_TRUE(button->hasFocus());
  press(window, keySpace);
  release(window, keySpace);
  EXPECT_TRUE(seen.empty());
  field->setFocus();
  press(window, keySpace);
  EXPECT_THAT(seen, ElementsAre("  49"));
  press(window, keyReturn);
  EXPECT_EQ(seen.size(), 1U);
}

TEST_F(QtEventMonitorsTest, RunsTheTasksOfOneKeyBeforeTheFieldSeesTheNext) {
  std::vector<QString> found;
  (void)monitors.addLocalMonitor(EventMask::keyDown, [&](const InputEvent&) {
    tasks.post([&] { found.push_back(field->text()); });
  });
  press(window, keyA);
  press(window, keyA);
  press(window, keyA);
  QCoreApplication::processEvents();
  EXPECT_THAT(found, ElementsAre(QStringLiteral("a"), QStringLiteral("aa"), QStringLiteral("aaa")));
}

TEST_F(QtEventMonitorsTest, StopsReportingToARemovedMonitor) {
  watch(EventMask::keyDown);
  monitors.removeMonitor(*handle);
  monitors.removeMonitor(MonitorHandle{999});
  press(window, keyA);
  EXPECT_TRUE(seen.empty());
}

TEST_F(QtEventMonitorsTest, RefusesToWatchOtherApplications) {
  EXPECT_EQ(monitors.addGlobalMonitor(EventMask::keyDown, [](const InputEvent&) {}), std::nullopt);
}

}  // namespace
}  // namespace mirvane
