#include "platform/linux/qt_key_event_poster.h"

#include <gmock/gmock.h>

#include <QApplication>
#include <QLineEdit>

#include "platform/key_codes.h"
#include "platform/linux/qt_event_monitors.h"
#include "platform/linux/system_clock.h"
#include "tests/platform/linux/hardware_keys.h"

namespace mirvane {
namespace {

class QtKeyEventPosterTest : public ::testing::Test {
 protected:
  QtKeyEventPosterTest() {
    field.show();
    field.activateWindow();
    field.setFocus();
    QCoreApplication::processEvents();
  }

  void postStroke(KeyEventSource& source, std::uint16_t keyCode, const std::string& text = {}) {
    source.post({keyCode, true, 0, text});
    source.post({keyCode, false, 0, text});
  }

  SystemClock clock;
  QtTaskQueue tasks;
  QtEventMonitors monitors{tasks, clock};
  QtKeyEventPoster poster{tasks};
  QLineEdit field;
};

TEST_F(QtKeyEventPosterTest, DeletesAndTypesAWholeTextLaterAndInOrder) {
  field.setText(QStringLiteral("say helo "));
  const auto source = poster.createSource({});
  for (int i = 0; i < 5; ++i) postStroke(*source, keycode::deleteKey);
  postStroke(*source, keycode::text, "hello 😀 ");
  EXPECT_EQ(field.text(), QStringLiteral("say helo "));
  QCoreApplication::processEvents();
  EXPECT_EQ(field.text(), QStringLiteral("say hello 😀 "));
}

TEST_F(QtKeyEventPosterTest, ComesBackThroughTheMonitorsWithItsUserData) {
  std::vector<std::optional<std::int64_t>> userData;
  (void)monitors.addLocalMonitor(EventMask::keyDown, [&](const InputEvent& event) {
    EXPECT_EQ(event.keyCode, keycode::text);
    userData.push_back(event.sourceUserData);
  });
  auto source = poster.createSource({});
  source->setUserData(0x6D69);
  postStroke(*source, keycode::text, "hello");
  source.reset();
  QCoreApplication::processEvents();
  EXPECT_THAT(userData, ::testing::ElementsAre(0x6D69));
}

// A correction typed by keys must not be torn apart by fast typing.
TEST_F(QtKeyEventPosterTest, ArrivesBeforeTheNextKeyOfTheKeyboard) {
  field.setText(QStringLiteral("helo "));
  const auto source = poster.createSource({});
  for (int i = 0; i < 5; ++i) postStroke(*source, keycode::deleteKey);
  postStroke(*source, keycode::text, "hello ");
  press(field, keyA);
  EXPECT_EQ(field.text(), QStringLiteral("hello a"));
}

TEST_F(QtKeyEventPosterTest, NoticesPasswordEntry) {
  EXPECT_FALSE(poster.isSecureInputEnabled());
  field.setEchoMode(QLineEdit::Password);
  EXPECT_TRUE(poster.isSecureInputEnabled());
  field.clearFocus();
  EXPECT_FALSE(poster.isSecureInputEnabled());
}

}  // namespace
}  // namespace mirvane
