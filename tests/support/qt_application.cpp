// SPDX-License-Identifier: MIT
#include "support/qt_application.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <array>
#include <memory>
#include <string>

namespace {

std::unique_ptr<QApplication> g_application;

class Application : public testing::Environment {
  void TearDown() override { g_application.reset(); }
};
const testing::Environment* const kEnd = testing::AddGlobalTestEnvironment(new Application);

}  // namespace

void BringApplication() {
  if (g_application == nullptr) {
    static std::string name = "qt-test";
    static std::array<char*, 2> argv = {name.data(), nullptr};
    static int argc = 1;
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
      qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    g_application = std::make_unique<QApplication>(argc, argv.data());
  }
}
