// SPDX-License-Identifier: MIT
// What a widget library does for a user and for the plug-in, without a word on how it looks. Runs
// against every library of ours, through the interface that the plug-in has and the driver.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <string>
#include <vector>

#include "vellomar/lorimel.h"
#include "vellomar_dev/lorimel_driver.h"

namespace {

using namespace VELLOMAR_LORIMEL;
using enum VELLOMAR_LORIMEL::EventKey;
using testing::ElementsAre;

constexpr auto kNoButton = EventKey{1016};

int Number(EventKey key) {
  return static_cast<int>(key);
}

// What a test is told when the key's event comes.
std::string Event(EventKey key) {
  return "event " + std::to_string(Number(key));
}

// Stands in for the plug-in: callbacks note what came and run what a test has put there.
class WidgetsTest : public testing::Test {
 protected:
  WidgetsTest() {
    current_ = this;
    for (std::size_t i = 0; i < records.size(); ++i) {
      records[i].key = EventKey{kFirstKey + static_cast<int>(i)};
      records[i].text = "text";
    }
    lorimel.SetControlbarEventCallback(
        [](BtnParams& params) { current_->Told(Event(params.key)); });
    lorimel.SetShowWindowCallback([](EventKey, int& count) {
      count = static_cast<int>(current_->rows.size());
      return current_->rows.data();
    });
  }
  ~WidgetsTest() override {
    lorimel.CloseSharedControlbar();
    lorimel.SetControlbarEventCallback(nullptr);
    lorimel.SetShowWindowCallback(nullptr);
  }

  bool Create(bool simplify = false) {
    return lorimel.CreateControlbar(
        "title", 0, 0, 1920, 1080,
        [](void* handle, int, int, int, int, bool main, std::uint64_t) {
          if (main) {
            current_->bar = handle;
          }
          current_->Told(main ? "created" : "popup created");
        },
        [](void* handle) { current_->Told(handle == current_->bar ? "closed" : "popup closed"); },
        false, records.data(), static_cast<int>(records.size()), 1, simplify);
  }
  void ShowBar(bool simplify = false) {
    ASSERT_TRUE(Create(simplify));
    ASSERT_TRUE(lorimel.ShowControlbar(bar, true));
    told.clear();
  }
  void Told(const std::string& what) {
    told.push_back(what);
    if (what == act_on) {
      act_on.clear();
      act();
    }
  }
  std::vector<std::string> TakeTold() { return std::exchange(told, {}); }
  BtnParams& Record(EventKey key) {
    return records[static_cast<std::size_t>(Number(key) - kFirstKey)];
  }
  bool Press(EventKey key) { return user.press(Number(key)); }
  int Open(EventKey key) { return user.open(Number(key)); }
  bool Pick(EventKey key, const char* value = nullptr) { return user.pick(Number(key), value); }
  int Status(EventKey key) {
    LorimelButton button{};
    EXPECT_TRUE(user.button(Number(key), &button)) << Number(key);
    return button.status;
  }
  bool IsShown(EventKey key) {
    int x = 0;
    return lorimel.GetPositionByEventKey(key, x, x, x, x);
  }
  void Ask() {
    ConfirmTipWindowInfo question = {};
    question.title = question.text = question.confirmText = "Leave?";
    EXPECT_TRUE(lorimel.ShowControlbarButtonConfirmTipByInfo(EventKey::Leave, question));
  }
  // One row of each key.
  void SetRows(std::initializer_list<EventKey> keys) {
    rows.assign(keys.size(), {});
    std::size_t i = 0;
    for (const EventKey key : keys) {
      rows[i].key = key;
      rows[i++].text = "row";
    }
  }

  Lorimel& lorimel = *Lorimel::GetInstance();
  const LorimelDriver& user = *LorimelGetDriver();
  std::array<BtnParams, kKeyCount> records = {};
  std::vector<BtnParams> rows;
  void* bar = nullptr;
  std::vector<std::string> told;
  std::string act_on;  // when told this, does `act` once
  std::function<void()> act;

 private:
  inline static WidgetsTest* current_ = nullptr;
};

TEST_F(WidgetsTest, WhatAUserCouldPressCanBePressed) {
  Record(MuteCamera).status = kStatusHidden;
  Record(Leave).status = kStatusDisabled;
  Record(Reaction).text = nullptr;
  EXPECT_FALSE(Press(Chat)) << "no bar";
  ShowBar();
  // Hidden, disabled, without a label, on the closed sketch bar, no button of a bar, no question.
  for (const EventKey key : {MuteCamera, Leave, Reaction, SketchSelect, kNoButton, LeaveSubRoom}) {
    EXPECT_FALSE(Press(key)) << Number(key);
  }
  EXPECT_TRUE(Press(Chat));
  EXPECT_THAT(TakeTold(), ElementsAre(Event(Chat)));
  EXPECT_TRUE(Press(ControlbarSwitch));
  EXPECT_FALSE(Press(Chat)) << "the bar is collapsed";
  EXPECT_FALSE(IsShown(Chat));
  EXPECT_TRUE(IsShown(StopSharing));
  lorimel.CloseSharedControlbar();
  ShowBar(true);
  EXPECT_FALSE(Press(Chat)) << "the bar is simplified";
}

TEST_F(WidgetsTest, ThePartsOfTheInfoLineComeAndGoWithTheirRecords) {
  Record(NetworkStrength).status = 0;  // a strength, of which 2 hides nothing
  Record(SubRoomName).text = nullptr;
  Record(RecordIndicator).status = kStatusHidden;
  ShowBar();
  for (const EventKey key : {NetworkStrength, SubRoomName, RecordIndicator}) {
    EXPECT_FALSE(IsShown(key)) << Number(key);
  }
  Record(NetworkStrength).status = 2;
  Record(RecordIndicator).status = 0;
  for (const EventKey key : {NetworkStrength, RecordIndicator}) {
    EXPECT_TRUE(lorimel.SetEventKey(Record(key)));
    EXPECT_TRUE(IsShown(key)) << Number(key);
  }
  EXPECT_TRUE(IsShown(InfoText));
}

TEST_F(WidgetsTest, TheSketchBarIsHiddenShownAndClosed) {
  ShowBar();
  EXPECT_FALSE(lorimel.ShowSketchControlbar(false)) << "there is none";
  EXPECT_TRUE(lorimel.ShowSketchControlbar(true));
  EXPECT_TRUE(Press(SketchSelect));
  SetRows({SketchPen1});
  EXPECT_EQ(Open(SketchPen), 1);
  EXPECT_TRUE(lorimel.ShowSketchControlbar(false));
  EXPECT_EQ(user.rowCount(), 0) << "its list goes with it";
  EXPECT_FALSE(Press(SketchSelect));
  EXPECT_TRUE(lorimel.CloseSketchControlbar());
  EXPECT_FALSE(lorimel.CloseSketchControlbar());
}

TEST_F(WidgetsTest, AQuestionIsAnsweredOnceOrGoesWithWhatIsShown) {
  ShowBar();
  Ask();
  for (const bool asks : {true, false}) {
    EXPECT_EQ(Press(LeaveSubRoom), asks);
  }
  Ask();
  lorimel.ShowControlbarButtonTip(EventKey::Chat, "hint", false, 0, false);
  EXPECT_FALSE(Press(LeaveSubRoom)) << "one bubble at a time";
  Ask();
  lorimel.ShowControlbar(bar, false);
  lorimel.ShowControlbar(bar, true);
  EXPECT_FALSE(Press(LeaveSubRoom)) << "the bar was hidden";
  Ask();
  Record(Leave).status = kStatusHidden;
  lorimel.SetEventKey(Record(Leave));
  EXPECT_FALSE(Press(LeaveSubRoom)) << "its button went";
}

TEST_F(WidgetsTest, ListsCloseOnAPickAndOnAClickElsewhere) {
  Record(MuteAudio).hasExpand = true;
  SetRows({MicrophoneItem, MicrophoneItem});
  rows[1].valueText = "usb";
  ShowBar();
  EXPECT_EQ(Open(MuteCamera), -1) << "has no expand part";
  EXPECT_EQ(Open(AudioDevices), 2) << "the window's own key";
  EXPECT_FALSE(Pick(MicrophoneItem, "other"));
  EXPECT_TRUE(Pick(MicrophoneItem, "usb"));
  EXPECT_THAT(TakeTold(), ElementsAre("popup created", "popup closed", Event(MicrophoneItem)));
  EXPECT_TRUE(Press(More));
  EXPECT_TRUE(Press(Participants));
  EXPECT_EQ(Status(More), 0) << "it was on while its window was open";
  EXPECT_THAT(TakeTold(),
              ElementsAre(Event(More), "popup created", "popup closed", Event(Participants)));
}

// Settings are changed together; what starts or ends something is done with one click.
TEST_F(WidgetsTest, ListsOfSettingsStayOpenAfterAPick) {
  for (const auto& [key, stays] : {std::pair(MuteOrigin, true),
                                   {ShareAudio, true},
                                   {JoinPermission, true},
                                   {Subtitles, false},
                                   {LiveStream, false},
                                   {MuteAll, false},
                                   {TestSpeakMic, false}}) {
    SetRows({key});
    ShowBar();
    ASSERT_TRUE(Press(More));
    EXPECT_TRUE(Pick(key)) << Number(key);
    EXPECT_EQ(user.rowCount() > 0, stays) << Number(key);
    lorimel.CloseSharedControlbar();
  }
}

TEST_F(WidgetsTest, AnOpenListFollowsItsButton) {
  SetRows({TestSpeakMic});
  ShowBar();
  ASSERT_TRUE(Press(More));
  SetRows({TestSpeakMic, Settings});
  Record(More).text = "other";
  lorimel.SetEventKey(Record(More));
  user.pump(0);
  EXPECT_EQ(user.rowCount(), 2) << "its rows may speak the new language";
  Record(More).status = kStatusHidden;
  lorimel.SetEventKey(Record(More));
  user.pump(0);
  EXPECT_EQ(user.rowCount(), 0);
}

TEST_F(WidgetsTest, AMemberFailsWhileItIsRefused) {
  user.refuse("CreateControlbar", true);
  EXPECT_FALSE(Create());
  user.refuse("CreateControlbar", false);
  ShowBar();
  user.refuse("SetEventKey", true);
  Record(EventKey::Chat).status = kStatusHidden;
  EXPECT_FALSE(lorimel.SetEventKey(Record(EventKey::Chat)));
  EXPECT_TRUE(IsShown(EventKey::Chat));
  user.refuse("SetEventKey", false);
}

TEST_F(WidgetsTest, CallbacksMayCloseTheBarThatTheyComeFrom) {
  SetRows({MicrophoneItem});
  act = [this] { EXPECT_TRUE(lorimel.CloseSharedControlbar()); };
  for (const std::string& moment : {Event(More), std::string("popup created"),
                                    std::string("popup closed"), Event(MicrophoneItem)}) {
    ShowBar();
    act_on = moment;
    EXPECT_TRUE(Press(More)) << moment;  // opens its window, too
    Pick(MicrophoneItem);
    EXPECT_EQ(act_on, "") << moment;
    EXPECT_EQ(told.back(), "closed") << moment << ": nothing comes after";
    EXPECT_EQ(user.rowCount(), 0) << moment;
  }
  ShowBar();
  EXPECT_FALSE(Create()) << "one bar at a time";
  act_on = "closed";
  act = [this] { EXPECT_TRUE(Create()); };
  EXPECT_TRUE(lorimel.CloseSharedControlbar());
  EXPECT_THAT(told, ElementsAre("closed", "created"));
}

}  // namespace
