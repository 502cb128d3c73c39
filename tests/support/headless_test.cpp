// SPDX-License-Identifier: MIT
// The widget library without a screen: that it keeps to lorimel.h where other tests rely on it, and
// stands what a callback may do.
#include "headless.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <string>
#include <vector>

namespace {

using namespace VELLOMAR_LORIMEL;
using testing::ElementsAre;

// Stands in for the plug-in: callbacks note what came and run what a test has put there.
class HeadlessTest : public testing::Test {
 protected:
  HeadlessTest() {
    current_ = this;
    library.Reset();
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
  ~HeadlessTest() override { library.Reset(); }

  bool Create(bool simplify = false) {
    return lorimel.CreateControlbar(
        "title", 0, 0, 1920, 1080,
        [](void*, int, int, int, int, bool main, std::uint64_t) {
          current_->Told(main ? "created" : "popup created");
        },
        [](void* handle) { current_->Told(handle == current_->bar ? "closed" : "popup closed"); },
        false, records.data(), static_cast<int>(records.size()), 1, simplify);
  }
  void ShowBar(bool simplify = false) {
    ASSERT_TRUE(Create(simplify));
    bar = library.BarHandle();
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

  vellomar_widgets::Headless& library = vellomar_widgets::TheHeadless();
  Lorimel& lorimel = *Lorimel::GetInstance();
  const LorimelDriver& user = *LorimelGetDriver();
  std::array<BtnParams, 92> records = {};
  std::vector<BtnParams> rows;
  void* bar = nullptr;
  std::vector<std::string> told;
  std::string act_on;  // when told this, does `act` once
  std::function<void()> act;

 private:
  inline static HeadlessTest* current_ = nullptr;
};

TEST_F(HeadlessTest, PressesWhatAUserCouldPress) {
  records[2].status = kStatusHidden;
  records[14].status = kStatusDisabled;
  records[10].text = nullptr;
  EXPECT_FALSE(user.press(1007)) << "no bar";
  ShowBar();
  // Hidden, disabled, without a label, on the closed sketch bar, no button of a bar, no question.
  for (const int key : {1002, 1014, 1010, 1043, 1016, 1092}) EXPECT_FALSE(user.press(key)) << key;
  EXPECT_TRUE(user.press(1007));
  EXPECT_THAT(told, ElementsAre("event 1007"));
  lorimel.ShowSketchControlbar(true);
  EXPECT_TRUE(user.press(1043));
  ConfirmTipWindowInfo question = {};
  lorimel.ShowControlbarButtonConfirmTipByInfo(EventKey::Leave, question);
  for (const bool asks : {true, false}) EXPECT_EQ(user.press(1092), asks);
  EXPECT_TRUE(user.press(1041));
  EXPECT_FALSE(user.press(1007)) << "the bar is collapsed";
  lorimel.CloseSharedControlbar();
  ShowBar(true);
  EXPECT_FALSE(user.press(1007)) << "the bar is simplified";
}

TEST_F(HeadlessTest, DropDownWindowsCloseOnAPickAndOnAClickElsewhere) {
  records[1].hasExpand = true;
  rows.resize(2);
  rows[1].key = EventKey::MicrophoneItem;
  rows[1].valueText = "usb";
  ShowBar();
  EXPECT_EQ(user.open(1002), -1) << "has no expand part";
  EXPECT_EQ(user.open(1018), 2);
  EXPECT_FALSE(user.pick(1080, "other"));
  EXPECT_TRUE(user.pick(1080, "usb"));
  EXPECT_THAT(told, ElementsAre("popup created", "popup closed", "event 1080"));
  told.clear();
  EXPECT_TRUE(user.press(1008));
  EXPECT_TRUE(user.press(1003));
  EXPECT_EQ(library.Button(EventKey::More)->status, 0) << "it was on while its window was open";
  EXPECT_THAT(told, ElementsAre("event 1008", "popup created", "popup closed", "event 1003"));
}

TEST_F(HeadlessTest, CallbacksMayCloseTheBarThatTheyComeFrom) {
  rows.resize(1);
  rows[0].key = EventKey::MicrophoneItem;
  act = [this] { EXPECT_TRUE(lorimel.CloseSharedControlbar()); };
  for (const char* moment : {"event 1008", "popup created", "popup closed", "event 1080"}) {
    ShowBar();
    act_on = moment;
    EXPECT_TRUE(user.press(1008)) << moment;  // opens its window, too
    user.pick(1080, nullptr);
    EXPECT_EQ(act_on, "") << moment;
    EXPECT_EQ(told.back(), "closed") << moment << ": nothing comes after";
    EXPECT_EQ(library.Rows(), nullptr) << moment;
  }
  ShowBar();
  EXPECT_FALSE(Create()) << "one bar at a time";
  act_on = "closed";
  act = [this] { EXPECT_TRUE(Create()); };
  EXPECT_TRUE(lorimel.CloseSharedControlbar());
  EXPECT_THAT(told, ElementsAre("closed", "created"));
}

}  // namespace
