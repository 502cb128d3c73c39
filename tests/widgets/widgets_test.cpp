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
using testing::ElementsAre;

// Stands in for the plug-in: callbacks note what came and run what a test has put there.
class WidgetsTest : public testing::Test {
 protected:
  WidgetsTest() {
    current_ = this;
    for (std::size_t i = 0; i < records.size(); ++i) {
      records[i].key = EventKey{1000 + static_cast<int>(i)};
      records[i].text = "text";
    }
    lorimel.SetControlbarEventCallback([](BtnParams& params) {
      current_->Told("event " + std::to_string(static_cast<int>(params.key)));
    });
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
          if (main) current_->bar = handle;
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
  BtnParams& Record(int key) { return records[static_cast<std::size_t>(key - 1000)]; }
  int Status(int key) {
    LorimelButton button{};
    EXPECT_TRUE(user.button(key, &button)) << key;
    return button.status;
  }
  bool IsShown(int key) {
    int x = 0;
    return lorimel.GetPositionByEventKey(EventKey{key}, x, x, x, x);
  }
  void Ask() {
    ConfirmTipWindowInfo question = {};
    question.title = question.text = question.confirmText = "Leave?";
    EXPECT_TRUE(lorimel.ShowControlbarButtonConfirmTipByInfo(EventKey::Leave, question));
  }
  // One row of each key.
  void SetRows(std::initializer_list<int> keys) {
    rows.assign(keys.size(), {});
    std::size_t i = 0;
    for (const int key : keys) {
      rows[i].key = EventKey{key};
      rows[i++].text = "row";
    }
  }

  Lorimel& lorimel = *Lorimel::GetInstance();
  const LorimelDriver& user = *LorimelGetDriver();
  std::array<BtnParams, 92> records = {};
  std::vector<BtnParams> rows;
  void* bar = nullptr;
  std::vector<std::string> told;
  std::string act_on;  // when told this, does `act` once
  std::function<void()> act;

 private:
  inline static WidgetsTest* current_ = nullptr;
};

TEST_F(WidgetsTest, WhatAUserCouldPressCanBePressed) {
  Record(1002).status = kStatusHidden;
  Record(1014).status = kStatusDisabled;
  Record(1010).text = nullptr;
  EXPECT_FALSE(user.press(1007)) << "no bar";
  ShowBar();
  // Hidden, disabled, without a label, on the closed sketch bar, no button of a bar, no question.
  for (const int key : {1002, 1014, 1010, 1043, 1016, 1092}) EXPECT_FALSE(user.press(key)) << key;
  EXPECT_TRUE(user.press(1007));
  EXPECT_THAT(TakeTold(), ElementsAre("event 1007"));
  EXPECT_TRUE(user.press(1041));
  EXPECT_FALSE(user.press(1007)) << "the bar is collapsed";
  EXPECT_FALSE(IsShown(1007));
  EXPECT_TRUE(IsShown(1013));
  lorimel.CloseSharedControlbar();
  ShowBar(true);
  EXPECT_FALSE(user.press(1007)) << "the bar is simplified";
}

TEST_F(WidgetsTest, ThePartsOfTheInfoLineComeAndGoWithTheirRecords) {
  Record(1067).status = 0;  // a strength, of which 2 hides nothing
  Record(1079).text = nullptr;
  Record(1069).status = kStatusHidden;
  ShowBar();
  for (const int key : {1067, 1079, 1069}) EXPECT_FALSE(IsShown(key)) << key;
  Record(1067).status = 2;
  Record(1069).status = 0;
  for (const int key : {1067, 1069}) {
    EXPECT_TRUE(lorimel.SetEventKey(Record(key)));
    EXPECT_TRUE(IsShown(key)) << key;
  }
  EXPECT_TRUE(IsShown(1070));
}

TEST_F(WidgetsTest, TheSketchBarIsHiddenShownAndClosed) {
  ShowBar();
  EXPECT_FALSE(lorimel.ShowSketchControlbar(false)) << "there is none";
  EXPECT_TRUE(lorimel.ShowSketchControlbar(true));
  EXPECT_TRUE(user.press(1043));
  SetRows({1050});
  EXPECT_EQ(user.open(1045), 1);
  EXPECT_TRUE(lorimel.ShowSketchControlbar(false));
  EXPECT_EQ(user.rowCount(), 0) << "its list goes with it";
  EXPECT_FALSE(user.press(1043));
  EXPECT_TRUE(lorimel.CloseSketchControlbar());
  EXPECT_FALSE(lorimel.CloseSketchControlbar());
}

TEST_F(WidgetsTest, AQuestionIsAnsweredOnceOrGoesWithWhatIsShown) {
  ShowBar();
  Ask();
  for (const bool asks : {true, false}) EXPECT_EQ(user.press(1092), asks);
  Ask();
  lorimel.ShowControlbarButtonTip(EventKey::Chat, "hint", false, 0, false);
  EXPECT_FALSE(user.press(1092)) << "one bubble at a time";
  Ask();
  lorimel.ShowControlbar(bar, false);
  lorimel.ShowControlbar(bar, true);
  EXPECT_FALSE(user.press(1092)) << "the bar was hidden";
  Ask();
  Record(1014).status = kStatusHidden;
  lorimel.SetEventKey(Record(1014));
  EXPECT_FALSE(user.press(1092)) << "its button went";
}

TEST_F(WidgetsTest, ListsCloseOnAPickAndOnAClickElsewhere) {
  Record(1001).hasExpand = true;
  SetRows({1080, 1080});
  rows[1].valueText = "usb";
  ShowBar();
  EXPECT_EQ(user.open(1002), -1) << "has no expand part";
  EXPECT_EQ(user.open(1018), 2) << "the window's own key";
  EXPECT_FALSE(user.pick(1080, "other"));
  EXPECT_TRUE(user.pick(1080, "usb"));
  EXPECT_THAT(TakeTold(), ElementsAre("popup created", "popup closed", "event 1080"));
  EXPECT_TRUE(user.press(1008));
  EXPECT_TRUE(user.press(1003));
  EXPECT_EQ(Status(1008), 0) << "it was on while its window was open";
  EXPECT_THAT(TakeTold(), ElementsAre("event 1008", "popup created", "popup closed", "event 1003"));
}

// Settings are changed together; what starts or ends something is done with one click.
TEST_F(WidgetsTest, ListsOfSettingsStayOpenAfterAPick) {
  for (const auto& [key, stays] : {std::pair(1085, true),
                                   {1037, true},
                                   {1022, true},
                                   {1031, false},
                                   {1032, false},
                                   {1028, false},
                                   {1089, false}}) {
    SetRows({key});
    ShowBar();
    ASSERT_TRUE(user.press(1008));
    EXPECT_TRUE(user.pick(key, nullptr)) << key;
    EXPECT_EQ(user.rowCount() > 0, stays) << key;
    lorimel.CloseSharedControlbar();
  }
}

TEST_F(WidgetsTest, AnOpenListFollowsItsButton) {
  SetRows({1089});
  ShowBar();
  ASSERT_TRUE(user.press(1008));
  SetRows({1089, 1090});
  Record(1008).text = "other";
  lorimel.SetEventKey(Record(1008));
  user.pump(0);
  EXPECT_EQ(user.rowCount(), 2) << "its rows may speak the new language";
  Record(1008).status = kStatusHidden;
  lorimel.SetEventKey(Record(1008));
  user.pump(0);
  EXPECT_EQ(user.rowCount(), 0);
}

TEST_F(WidgetsTest, AMemberFailsWhileItIsRefused) {
  user.refuse("CreateControlbar", true);
  EXPECT_FALSE(Create());
  user.refuse("CreateControlbar", false);
  ShowBar();
  user.refuse("SetEventKey", true);
  Record(1007).status = kStatusHidden;
  EXPECT_FALSE(lorimel.SetEventKey(Record(1007)));
  EXPECT_TRUE(IsShown(1007));
  user.refuse("SetEventKey", false);
}

TEST_F(WidgetsTest, CallbacksMayCloseTheBarThatTheyComeFrom) {
  SetRows({1080});
  act = [this] { EXPECT_TRUE(lorimel.CloseSharedControlbar()); };
  for (const char* moment : {"event 1008", "popup created", "popup closed", "event 1080"}) {
    ShowBar();
    act_on = moment;
    EXPECT_TRUE(user.press(1008)) << moment;  // opens its window, too
    user.pick(1080, nullptr);
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
