// SPDX-License-Identifier: MIT
// The tests run in a Qt application, as the workbench does, on no display.
#include <gtest/gtest.h>

#include <QApplication>
#include <QStandardPaths>

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QStandardPaths::setTestModeEnabled(true);
  const QApplication application(argc, argv);
  return RUN_ALL_TESTS();
}
