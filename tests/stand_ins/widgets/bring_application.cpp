// SPDX-License-Identifier: MIT
// The library on Qt, in a host that has a Qt application.
#include <gtest/gtest.h>

#include "support/qt_application.h"

namespace {

class Host : public testing::Environment {
  void SetUp() override { BringApplication(); }
};
const testing::Environment* const kHost = testing::AddGlobalTestEnvironment(new Host);

}  // namespace
