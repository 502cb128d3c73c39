// SPDX-License-Identifier: MIT
// What the streams cannot say of the bar's windows: memory, and operations that no command reaches.
#include <gmock/gmock.h>

#include "support/bar_test.h"

namespace {

using WindowsTest = BarTest;

TEST_F(WindowsTest, ASwitchToTheSameSubTypeIsRefused) {
  ShowBar();
  Manager().SwitchSubType(1, 1);
  EXPECT_TRUE(Logged("switch form subtype:1 to 1"));
  EXPECT_TRUE(Logged("invalid switch,subtype:1"));
  EXPECT_EQ(Library().CallCount("CloseSharedControlbar"), 0u);
}

TEST_F(WindowsTest, TextsOfTheOpenBarCanBeReadAfterANewTextMap) {
  InstallTexts();
  ShowBar();
  InstallTexts({{10001, "Ton"}});
  EXPECT_EQ(Library().Button(VELLOMAR_LORIMEL::EventKey::MuteAudio)->text, "Ton");
  EXPECT_GT(Library().ReadEveryText(), 0u);
}

}  // namespace
