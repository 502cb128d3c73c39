// SPDX-License-Identifier: MIT
// How long the rows of the drop-down windows stay; what they say is in plugin/streams.
#include <gtest/gtest.h>

#include "support/bar_test.h"
#include "vellomar/controlbar.h"

namespace {

using ListsTest = BarTest;

TEST_F(ListsTest, RowsOutliveWhatTheyWereMadeFrom) {
  InstallTexts();
  ShowBar();
  const std::string long_name(100, 'n');
  const Json devices = {{{"id", std::string(50, 'i')}, {"name", long_name}}};
  Send("setCameraInfo", {{"cameras", devices}, {"currentCameraId", ""}});
  UpdateParticipants({Person("a", {{"displayName", long_name}, {"avatarKey", "k"}})});
  const auto set_tag = [this](const char* tag) {
    Send("setItemValue", {{"key", 1023},
                          {"hasExpend", false},
                          {"itemName", ""},
                          {"itemText", ""},
                          {"tag", tag},
                          {"sta", 0}});
  };
  // The button's own record has the tag as well: both are of one length.
  set_tag(long_name.c_str());
  for (const std::int32_t window : {1020, 1006, 1065, 1008}) Rows(window);
  const std::size_t before = Library().ReadEveryText();
  VellomarAvatarResponse response{"k", "/another/path.png"};
  ExportedOnReceive(VELLOMAR_RESPONSE_AVATAR, 0, &response);
  Send("setCameraInfo", {{"cameras", Json::array()}, {"currentCameraId", ""}});
  UpdateParticipants({Person("a", {{"displayName", "short"}, {"avatarKey", "k"}})});
  set_tag(std::string(100, 'm').c_str());
  EXPECT_EQ(Library().ReadEveryText(), before);
}

}  // namespace
