// SPDX-License-Identifier: MIT
// The store of the button records, and what a text map makes of it.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <climits>
#include <filesystem>
#include <string>
#include <vector>

#include "data/control_bar_data_manager.h"
#include "support/recording_log.h"

namespace VELLOMAR_CONTROLBAR {
namespace {

using testing::Contains;
using testing::StrEq;

constexpr std::uint64_t kNoText = ControlBarDataManager::kNoText;

EventKey Key(std::int32_t number) {
  return static_cast<EventKey>(number);
}

class ButtonRecordsTest : public testing::Test {
 protected:
  void SetUp() override { recording_log::Clear(); }

  // A text for every id in use: its number.
  void InstallTexts() {
    std::vector<std::uint64_t> ids;
    std::vector<std::string> texts;
    for (std::uint64_t id = 10001; id <= 10096; ++id) {
      ids.push_back(id);
      texts.push_back(std::to_string(id));
    }
    data.InitTextMapping(ids, texts);
  }

  const BtnParams& Record(std::int32_t key) { return *data.GetEventKeyParams(Key(key)); }
  std::string Text(std::int32_t key) {
    const char* const text = Record(key).text;
    return text != nullptr ? text : "(null)";
  }

  ControlBarDataManager data;
};

bool LoggedFault(const std::string& text) {
  for (const recording_log::Line& line : recording_log::Lines()) {
    if (line.level == 4 && line.text == text) return true;
  }
  return false;
}

TEST_F(ButtonRecordsTest, KeysFrom1092AreRefusedWithALogLine) {
  for (const std::int32_t key : {1092, 1093, INT_MAX}) {
    recording_log::Clear();
    EXPECT_EQ(data.GetEventKeyStatus(Key(key)), -1);
    EXPECT_TRUE(LoggedFault("[Controlbar Data] key out of range!"));
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
  for (const std::int32_t key : {999, 0, -1, INT_MIN}) {
    recording_log::Clear();
    data.SetEventKeyParams(Key(key), 5);
    data.SetEventKeyParams(Key(key), 10001, 6, kNoText, true, 0);
    const BtnParams* const spare = data.GetEventKeyParams(Key(key));
    ASSERT_NE(spare, nullptr);
    EXPECT_FALSE(spare >= all && spare < all + count) << key;
    EXPECT_FALSE(data.IsShown(*spare));
    EXPECT_EQ(spare->status, 6);
    EXPECT_FALSE(recording_log::Contains("[Controlbar Data] key out of range!"));
  }
  EXPECT_TRUE(data.IsShown(Record(1000)));
}

TEST_F(ButtonRecordsTest, TheFullSetterDistinguishesNoTextFromNoTip) {
  InstallTexts();
  data.SetEventKeyParams(Key(1005), kNoText, 3, kNoText, true, 0);
  EXPECT_EQ(Record(1005).text, nullptr);
  EXPECT_STREQ(Record(1005).toolTip, "");
  EXPECT_STREQ(Record(1005).valueText, "");
  EXPECT_EQ(Record(1005).status, 3);
  EXPECT_TRUE(Record(1005).hasExpand);
  data.SetEventKeyParams(Key(1005), 10001, 0, 10084, false, 0);
  EXPECT_STREQ(Record(1005).text, "10001");
  EXPECT_STREQ(Record(1005).toolTip, "10084");
  EXPECT_FALSE(Record(1005).hasExpand);
}

TEST_F(ButtonRecordsTest, ANullTextLeavesTheLabel) {
  InstallTexts();
  data.SetEventKeyParams(Key(1001), nullptr, 99);
  EXPECT_STREQ(Record(1001).text, "10001");
  data.SetEventKeyParams(Key(1001), "new", 99);
  EXPECT_STREQ(Record(1001).text, "new");
  EXPECT_EQ(Record(1001).status, 0) << "the last argument is not read";
}

TEST_F(ButtonRecordsTest, SettersByNameIgnoreTheirKey) {
  InstallTexts();
  static constexpr char kPath[] = "some.icon";
  static constexpr char kLabel[] = "7";
  data.SetButtonContent(Key(1001), 10092);
  data.SetButtonIconPath(Key(1001), kPath);
  data.SetButtonSubLabelText(Key(1001), kLabel);
  data.SetButtonTooltip();
  EXPECT_EQ(Text(1001), "10001");
  EXPECT_EQ(Text(1014), "10092");
  EXPECT_EQ(Record(1014).iconPath, kPath);
  EXPECT_EQ(Record(1007).subLabel, kLabel);
  EXPECT_STREQ(Record(1070).toolTip, "10084");
  EXPECT_STREQ(Record(1070).secondToolTip, "10089");
  EXPECT_TRUE(recording_log::Contains("SetButtonIconPath 1014 some.icon"));
}

TEST_F(ButtonRecordsTest, LookUpTellsNoTextFromAnUnknownOne) {
  EXPECT_EQ(data.GetNativeText(kNoText), nullptr);
  EXPECT_EQ(data.GetNativeText(5), nullptr);
  EXPECT_THAT(recording_log::Texts(3), Contains(StrEq("Invalid textid: 18446744073709551615.")));
  EXPECT_THAT(recording_log::Texts(4), Contains(StrEq("Invalid textId: 5.")));
}

TEST_F(ButtonRecordsTest, CodesAreComparedAsWholeNumbers) {
  data.SetMeetingSubType((std::int64_t{1} << 32) | 1);
  data.SetParticipantRole((std::int64_t{1} << 32) | 2);
  InstallTexts();
  EXPECT_EQ(Text(1012), "10006");
  EXPECT_EQ(Record(1015).status, 0);
}

TEST_F(ButtonRecordsTest, TheResourcePathLiesBesideTheLibrary) {
  InstallTexts();
  const std::string& path = data.ResourcePath();
  const std::filesystem::path resources(path);
  EXPECT_EQ(resources.filename(), "res");
  EXPECT_TRUE(std::filesystem::exists(resources.parent_path())) << path;
  EXPECT_TRUE(
      recording_log::Contains("Init controlbar res path len: " + std::to_string(path.size())));
}

TEST_F(ButtonRecordsTest, LabelsSurviveTheTextMapThatTheyCameFrom) {
  // The widget library still holds the old records while it is given the new ones.
  InstallTexts();
  const BtnParams old = Record(1002);
  data.InitTextMapping({10001}, {"Ton"});
  EXPECT_STREQ(old.text, "10002");
}

}  // namespace
}  // namespace VELLOMAR_CONTROLBAR
