// SPDX-License-Identifier: MIT
// The stores of the data manager, each by itself: edges, and how long texts live.
#include <gtest/gtest.h>

#include <climits>

#include "data/drop_down_lists.h"
#include "data/text_ids.h"

namespace VELLOMAR_CONTROLBAR {
namespace {

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

// While it is asked about A the host takes B out, puts B in again and gives A's avatar.
TEST(ParticipantStore, QuestionsComeOnceAndOneAfterTheOther) {
  const ParticipantList::Item a{{"a", "x", -1}, "A", "", "face", "", true};
  const ParticipantList one({a}), both({a, {{"b", "x", 2}, "B", "", "", "listed", true}});
  std::string asked;
  ParticipantStore participants([&](const std::string& user_id) {
    asked += '(' + user_id;
    if (user_id == "a") {
      participants.Update(one);
      participants.Update(both);
      participants.SetAvatarPath("face", "answer");
    }
    asked += ')';
    return ParticipantStore::kNoAvatar;
  });
  participants.Update(both);
  EXPECT_EQ(asked, "(a)(b)");
  EXPECT_EQ(participants.Find("ax-1")->avatar_path, "answer");
  EXPECT_EQ(participants.Find("bx2")->avatar_path, "") << "the host has none";
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
  for (int i = 0; i < 2; ++i) {
    texts.Replace({}, {});
  }
  lists.CloseAll();
  EXPECT_FALSE(cameras.expired() || words.expired()) << "a window is still closing";
  EXPECT_STREQ(rows[1].valueText, "cam-1");
  lists.DropClosed();
  EXPECT_TRUE(cameras.expired() && words.expired());
}

}  // namespace
}  // namespace VELLOMAR_CONTROLBAR
