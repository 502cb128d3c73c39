// SPDX-License-Identifier: MIT
// What the data manager adds to its stores, where no command reaches it.
#include "data/control_bar_data_manager.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/recording_log.h"

namespace VELLOMAR_CONTROLBAR {
namespace {

using testing::Contains;
constexpr std::uint64_t kNoText = ControlBarDataManager::kNoText;

class DataManagerTest : public testing::Test {
 protected:
  DataManagerTest() {
    data.InitTextMapping({text_id::kMuteAudio, text_id::kLeaveRoom}, {"Audio", "Leave"});
  }

  const BtnParams& Record(EventKey key) { return *data.GetEventKeyParams(key); }

  ControlBarDataManager data;
};

TEST_F(DataManagerTest, AKeyOutOfRangeIsRefusedWithALogLine) {
  EXPECT_EQ(data.GetEventKeyStatus(EventKey::LeaveSubRoom), -1);
  EXPECT_THAT(recording_log::Texts(4), Contains("[Controlbar Data] key out of range!"));
  data.SetEventKeyParams(EventKey::LeaveSubRoom, 1);
  data.SetEventKeyParams(EventKey::LeaveSubRoom, "text", 0);
  data.SetEventKeyParams(EventKey::LeaveSubRoom, text_id::kChat, 1, kNoText, true, 0);
}

TEST_F(DataManagerTest, SettersTellNoTextFromNoTipAndFromANullText) {
  constexpr EventKey kKey = EventKey::AnnotatePermission;
  data.SetEventKeyParams(kKey, kNoText, 3, kNoText, true, 0);
  EXPECT_EQ(Record(kKey).text, nullptr);
  EXPECT_STREQ(Record(kKey).toolTip, "");
  EXPECT_EQ(Record(kKey).status, 3);
  data.SetEventKeyParams(kKey, text_id::kMuteAudio, 0, kNoText, false, 0);
  data.SetEventKeyParams(kKey, nullptr, 99);
  EXPECT_STREQ(Record(kKey).text, "Audio");
  EXPECT_EQ(Record(kKey).status, 0) << "the last argument is not read";
}

TEST_F(DataManagerTest, SettersByNameIgnoreTheirKey) {
  static constexpr char kPath[] = "some.icon", kLabel[] = "7";
  data.SetButtonContent(EventKey::MuteAudio, text_id::kLeaveRoom);
  data.SetButtonIconPath(EventKey::MuteAudio, kPath);
  data.SetButtonSubLabelText(EventKey::MuteAudio, kLabel);
  EXPECT_STREQ(Record(EventKey::Leave).text, "Leave");
  EXPECT_EQ(Record(EventKey::Leave).iconPath, kPath);
  EXPECT_EQ(Record(EventKey::Chat).subLabel, kLabel);
  EXPECT_TRUE(recording_log::Contains("SetButtonIconPath 1014 some.icon"));
}

TEST_F(DataManagerTest, CodesAreComparedWhole) {
  constexpr std::int64_t kUpper = std::int64_t{1} << 32;
  data.SetMeetingSubType(kUpper | kSubTypeScreenShare);
  data.SetParticipantRole(kUpper | kRoleWithoutRecording);
  data.SetHostType(kUpper | kHostTypeHost);
  data.InitTextMapping({text_id::kShareNew}, {"Share"});
  EXPECT_STREQ(Record(EventKey::ShareNew).text, "Share");
  EXPECT_EQ(Record(EventKey::Record).status, 0);
  EXPECT_FALSE(data.HasLiveStreamPermission());
}

TEST_F(DataManagerTest, LookUpTellsNoTextFromAnUnknownOne) {
  EXPECT_EQ(data.GetNativeText(kNoText), nullptr);
  EXPECT_EQ(data.GetNativeText(5), nullptr);
  EXPECT_THAT(recording_log::Texts(3), Contains("Invalid textid: 18446744073709551615."));
  EXPECT_THAT(recording_log::Texts(4), Contains("Invalid textId: 5."));
}

}  // namespace
}  // namespace VELLOMAR_CONTROLBAR
