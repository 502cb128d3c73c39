// SPDX-License-Identifier: MIT
// The stores of the data manager, each by itself: edges, and how long texts live.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <climits>

#include "data/drop_down_lists.h"
#include "data/text_ids.h"

namespace VELLOMAR_CONTROLBAR {
namespace {

using testing::ElementsAre;

TEST(TextTable, TextsOutliveOneTextMap) {
  TextTable texts;
  texts.Replace({1, 1}, {"first", "second"});
  const std::weak_ptr<const void> old = texts.Keep();
  EXPECT_STREQ(texts.Find(1), "first");
  texts.Replace({2}, {"other"});
  EXPECT_FALSE(old.expired()) << "the widget library still reads it";
  texts.Replace({}, {});
  EXPECT_TRUE(old.expired());
}

TEST(ButtonStore, KeysBelowTheFirstShareASpareRecord) {
  ButtonStore buttons;
  const BtnParams* const spare = buttons.Find(EventKey{INT_MIN});
  EXPECT_EQ(buttons.Find(EventKey{999}), spare);
  EXPECT_FALSE(buttons.IsShown(*spare));
  EXPECT_TRUE(buttons.IsShown(buttons.At(EventKey::MainWindow)));
  EXPECT_EQ(buttons.Find(EventKey{1091}), buttons.All() + ButtonStore::kKeyCount - 1);
  EXPECT_EQ(buttons.Find(EventKey{1092}), nullptr);
}

TEST(MeetingState, FlagsOutliveTheMeeting) {
  MeetingState meeting;
  meeting.only_host_can_share = true;
  meeting.window_title = "title";
  meeting.Forget();
  EXPECT_TRUE(meeting.only_host_can_share);
  EXPECT_EQ(meeting.window_title, std::nullopt);
}

// The host sends another list from inside its first answer, and an avatar from inside the last.
TEST(ParticipantStore, WhoIsNewIsAskedForOnce) {
  const ParticipantList both(
      {{{"a", "x", -1}, "A", "", "face", "old", true}, {{"b", "x", 2}, "B", "", "", "", true}});
  const ParticipantList one({{{"a", "x", -1}, "A", "", "face", "old", true}});
  std::vector<std::string> asked;
  ParticipantStore* store = nullptr;
  ParticipantStore participants([&](const std::string& user_id) {
    asked.push_back(user_id);
    if (asked.size() == 1) store->Update(one);
    if (asked.size() == 2) store->SetAvatarPath("face", "new");
    return ParticipantStore::kNoAvatar;
  });
  store = &participants;
  participants.Update(both);
  EXPECT_THAT(asked, ElementsAre("a"));
  EXPECT_EQ(participants.Find("ax-1")->avatar_path, "") << "the host has none";
  EXPECT_EQ(participants.Find("bx2"), nullptr);
  participants.Update(both);
  EXPECT_THAT(asked, ElementsAre("a", "b"));
  EXPECT_EQ(participants.Find("ax-1")->avatar_path, "new");
}

TEST(DropDownLists, RowsKeepWhatTheyShow) {
  ButtonStore buttons;
  MeetingState meeting;
  ParticipantStore participants([](const std::string&) { return 0; });
  TextTable texts;
  texts.Replace({text_id::kCameras}, {"Cameras"});
  DropDownLists lists({buttons, meeting, participants, texts,
                       [&texts](std::uint64_t id) { return texts.Find(id); }});
  meeting.cameras = std::make_shared<DeviceList>(DeviceList{{{"cam-1", "Front"}}, "cam-1"});
  const std::weak_ptr<const void> cameras = meeting.cameras, words = texts.Keep();
  int count = 0;
  const BtnParams* const rows = lists.Cameras(count);
  meeting.Forget();
  for (int i = 0; i < 2; ++i) texts.Replace({}, {});
  lists.CloseAll();
  EXPECT_FALSE(cameras.expired() || words.expired()) << "a window is still closing";
  EXPECT_STREQ(rows[1].valueText, "cam-1");
  lists.DropClosed();
  EXPECT_TRUE(cameras.expired() && words.expired());
}

}  // namespace
}  // namespace VELLOMAR_CONTROLBAR
