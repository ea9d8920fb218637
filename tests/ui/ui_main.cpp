// Runs the desktop tests inside one QApplication.
#include <gtest/gtest.h>

#include <QApplication>

int main(int argc, char** argv) {
  // Test discovery runs this binary outside the test environment; no test needs a screen.
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication app(argc, argv);
  ::testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
