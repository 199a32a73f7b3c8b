#include <gmock/gmock.h>

#include <QGuiApplication>

int main(int argc, char** argv) {
  ::testing::InitGoogleMock(&argc, argv);
  // Tests without a window need no display; those with one say so through CTest.
  if (!qEnvironmentVariableIsSet("VANTOR_TEST_WINDOW")) qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication application(argc, argv);
  return RUN_ALL_TESTS();
}
