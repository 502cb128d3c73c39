// SPDX-License-Identifier: MIT
// The store of the button records where no command reaches it.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <climits>
#include <string>

#include "data/control_bar_data_manager.h"
#include "support/recording_log.h"

namespace VELLOMAR_CONTROLBAR {
namespace {

using testing::Contains;
using testing::IsEmpty;

constexpr std::uint64_t kNoText = ControlBarDataManager::kNoText;

EventKey Key(std::int32_t number) {
  return static_cast<EventKey>(number);
}

class ButtonRecordsTest : public testing::Test {
 protected:
  ButtonRecordsTest() {
    data.InitTextMapping({10001, 10006, 10084, 10089, 10092},
                         {"Audio", "Share", "Tip", "Tip 2", "Leave"});
    recording_log::Clear();
  }

  const BtnParams& Record(std::int32_t key) { return *data.GetEventKeyParams(Key(key)); }

  ControlBarDataManager data;
};

TEST_F(ButtonRecordsTest, KeysFrom1092AreRefusedWithALogLine) {
  for (const std::int32_t key : {1092, INT_MAX}) {
    recording_log::Clear();
    EXPECT_EQ(data.GetEventKeyStatus(Key(key)), -1);
    EXPECT_THAT(recording_log::Texts(4), Contains("[Controlbar Data] key out of range!"));
    EXPECT_EQ(data.GetEventKeyParams(Key(key)), nullptr);
    data.SetEventKeyParams(Key(key), 1);
    data.SetEventKeyParams(Key(key), "text", 0);
    data.SetEventKeyParams(Key(key), 10001, 1, 10001, true, 0);
  }
  EXPECT_EQ(data.GetEventKeyStatus(Key(1091)), 0);
}

TEST_F(ButtonRecordsTest, KeysBelow1000ShareASpareRecordOutsideTheStore) {
  int count = 0;
  const BtnParams* const all = data.GetAllParams(&count);
  for (const std::int32_t key : {999, -1, INT_MIN}) {
    data.SetEventKeyParams(Key(key), 10001, 6, kNoText, true, 0);
    const BtnParams& spare = Record(key);
    EXPECT_FALSE(&spare >= all && &spare < all + count) << key;
    EXPECT_FALSE(data.IsShown(spare));
    EXPECT_EQ(spare.status, 6);
  }
  EXPECT_TRUE(data.IsShown(Record(1000)));
  EXPECT_THAT(recording_log::Texts(4), IsEmpty());
}

TEST_F(ButtonRecordsTest, SettersTellNoTextFromNoTipAndFromANullText) {
  data.SetEventKeyParams(Key(1005), kNoText, 3, kNoText, true, 0);
  EXPECT_EQ(Record(1005).text, nullptr);
  EXPECT_STREQ(Record(1005).toolTip, "");
  EXPECT_STREQ(Record(1005).valueText, "");
  EXPECT_EQ(Record(1005).status, 3);
  EXPECT_TRUE(Record(1005).hasExpand);
  data.SetEventKeyParams(Key(1005), 10001, 0, 10084, false, 0);
  data.SetEventKeyParams(Key(1005), nullptr, 99);
  EXPECT_STREQ(Record(1005).text, "Audio");
  EXPECT_STREQ(Record(1005).toolTip, "Tip");
  EXPECT_EQ(Record(1005).status, 0) << "the last argument is not read";
  EXPECT_FALSE(Record(1005).hasExpand);
}

TEST_F(ButtonRecordsTest, SettersByNameIgnoreTheirKey) {
  static constexpr char kPath[] = "some.icon", kLabel[] = "7";
  data.SetButtonContent(Key(1001), 10092);
  data.SetButtonIconPath(Key(1001), kPath);
  data.SetButtonSubLabelText(Key(1001), kLabel);
  EXPECT_STREQ(Record(1001).text, "Audio");
  EXPECT_STREQ(Record(1014).text, "Leave");
  EXPECT_EQ(Record(1014).iconPath, kPath);
  EXPECT_EQ(Record(1007).subLabel, kLabel);
  EXPECT_TRUE(recording_log::Contains("SetButtonIconPath 1014 some.icon"));
}

TEST_F(ButtonRecordsTest, LookUpTellsNoTextFromAnUnknownOne) {
  EXPECT_EQ(data.GetNativeText(kNoText), nullptr);
  EXPECT_EQ(data.GetNativeText(5), nullptr);
  EXPECT_THAT(recording_log::Texts(3), Contains("Invalid textid: 18446744073709551615."));
  EXPECT_THAT(recording_log::Texts(4), Contains("Invalid textId: 5."));
}

// The widget library still holds the old records while it is given the new ones.
TEST_F(ButtonRecordsTest, LabelsSurviveTheTextMapThatTheyCameFrom) {
  const BtnParams old = Record(1001);
  data.SetMeetingSubType((std::int64_t{1} << 32) | 1);
  data.SetParticipantRole((std::int64_t{1} << 32) | 2);
  data.InitTextMapping({10001, 10006}, {"Ton", "Teilen"});
  EXPECT_STREQ(old.text, "Audio");
  EXPECT_STREQ(Record(1012).text, "Teilen") << "codes are compared as whole numbers";
  EXPECT_EQ(Record(1015).status, 0);
}

}  // namespace
}  // namespace VELLOMAR_CONTROLBAR
