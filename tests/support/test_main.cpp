#include <gmock/gmock.h>

#include <QGuiApplication>

int main(int argc, char** argv) {
  ::testing::InitGoogleMock(&argc, argv);
  // Tests without a window need no display.
  if (!qEnvironmentVariableIsSet("DISPLAY")) qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication application(argc, argv);
  return RUN_ALL_TESTS();
}
