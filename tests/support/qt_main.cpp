#include <gmock/gmock.h>

#include <QApplication>
#include <QStandardPaths>

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QStandardPaths::setTestModeEnabled(true);
  ::testing::InitGoogleMock(&argc, argv);
  const QApplication application(argc, argv);
  QApplication::setStyle(QStringLiteral("Fusion"));
  return RUN_ALL_TESTS();
}
