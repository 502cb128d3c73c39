// SPDX-License-Identifier: MIT
// The widget library without a screen: that it acts like one with a screen where other tests rely
// on it, and stands what a callback may do.
#include "headless.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <string>
#include <thread>
#include <vector>

namespace {

using namespace VELLOMAR_LORIMEL;
using testing::ElementsAre;
using testing::IsEmpty;
using vellomar_widgets::Call;
using vellomar_widgets::Headless;
using vellomar_widgets::TheHeadless;

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
    Record(EventKey::MuteAudio).hasExpand = true;
    lorimel.SetControlbarEventCallback([](BtnParams& params) {
      current_->Told("event " + std::to_string(static_cast<int>(params.key)) + " " +
                     std::to_string(params.status));
    });
    lorimel.SetShowWindowCallback([](EventKey, int& count) {
      count = static_cast<int>(current_->rows.size());
      return current_->rows.data();
    });
  }
  ~HeadlessTest() override { library.Reset(); }

  BtnParams& Record(EventKey key) { return records[static_cast<std::size_t>(key) - 1000]; }

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

  Headless& library = TheHeadless();
  Lorimel& lorimel = *Lorimel::GetInstance();
  const LorimelDriver& user = *LorimelGetDriver();
  std::array<BtnParams, 92> records = {};
  std::vector<BtnParams> rows;
  void* bar = nullptr;
  std::vector<std::string> told;
  std::string act_on;  // when told this, does `act` once
  std::function<void()> act;

 private:
  static HeadlessTest* current_;
};

HeadlessTest* HeadlessTest::current_ = nullptr;

TEST_F(HeadlessTest, PressesWhatAUserCouldPress) {
  Record(EventKey::Chat).status = kStatusHidden;
  Record(EventKey::Leave).status = kStatusDisabled;
  Record(EventKey::Reaction).text = nullptr;
  EXPECT_FALSE(user.press(1001)) << "no bar";
  ShowBar();
  EXPECT_TRUE(user.press(1003));
  EXPECT_FALSE(user.press(1007)) << "hidden";
  EXPECT_FALSE(user.press(1014)) << "disabled";
  EXPECT_FALSE(user.press(1010)) << "no label";
  EXPECT_FALSE(user.press(1043)) << "the sketch bar is closed";
  EXPECT_FALSE(user.press(1016)) << "no button of a bar";
  EXPECT_THAT(told, ElementsAre("event 1003 1"));
  lorimel.ShowSketchControlbar(true);
  EXPECT_TRUE(user.press(1043));
}

TEST_F(HeadlessTest, SimplifiedAndCollapsedBarsHaveFewerButtons) {
  ShowBar(true);
  EXPECT_FALSE(user.press(1007));
  EXPECT_TRUE(user.press(1013));
  lorimel.CloseSharedControlbar();
  ShowBar(false);
  int x = 7, y = 7, width = 7, height = 7;
  EXPECT_TRUE(lorimel.GetPositionByEventKey(EventKey::Chat, x, y, width, height));
  EXPECT_TRUE(user.press(1041));
  EXPECT_FALSE(user.press(1007));
  x = 7;
  EXPECT_FALSE(lorimel.GetPositionByEventKey(EventKey::Chat, x, y, width, height));
  EXPECT_EQ(x, 7);
}

TEST_F(HeadlessTest, DropDownWindowsOpenByEitherKeyAndCloseOnAPick) {
  rows.resize(2);
  rows[0].key = EventKey::GroupHeader;
  rows[1].key = EventKey::MicrophoneItem;
  rows[1].valueText = "usb";
  ShowBar();
  EXPECT_EQ(user.open(1018), 2);
  EXPECT_EQ(user.open(1001), 2);
  EXPECT_EQ(user.open(1002), -1) << "has no expand part";
  EXPECT_FALSE(user.pick(-1, nullptr));
  EXPECT_FALSE(user.pick(1080, "other"));
  EXPECT_TRUE(user.pick(1080, "usb"));
  EXPECT_EQ(user.rowCount(), 0);
  EXPECT_THAT(told, ElementsAre("popup created", "popup closed", "popup created", "popup closed",
                                "event 1080 0"));
  told.clear();
  rows.clear();
  EXPECT_EQ(user.open(1001), 0);
  EXPECT_THAT(told, IsEmpty());
}

TEST_F(HeadlessTest, AClickElsewhereClosesTheWindow) {
  rows.resize(1);
  ShowBar();
  EXPECT_TRUE(user.press(1008));
  EXPECT_EQ(user.rowCount(), 1);
  EXPECT_TRUE(user.press(1003));
  EXPECT_EQ(user.rowCount(), 0);
  EXPECT_EQ(library.Button(EventKey::More)->status, 0) << "it was on while its window was open";
  EXPECT_THAT(told, ElementsAre("event 1008 1", "popup created", "popup closed", "event 1003 1"));
}

TEST_F(HeadlessTest, ConfirmTipAsksUntilItIsReplacedOrAnswered) {
  ConfirmTipWindowInfo question = {};
  ShowBar();
  EXPECT_FALSE(user.press(1092));
  EXPECT_TRUE(lorimel.ShowControlbarButtonConfirmTipByInfo(EventKey::Leave, question));
  lorimel.ShowControlbarButtonTip(EventKey::Chat, "tip", false, 0, false);
  EXPECT_FALSE(user.press(1092));
  EXPECT_TRUE(lorimel.ShowControlbarButtonConfirmTipByInfo(EventKey::Leave, question));
  EXPECT_TRUE(user.press(1092));
  EXPECT_FALSE(user.press(1092));
  EXPECT_THAT(told, ElementsAre("event 1092 0"));
}

TEST_F(HeadlessTest, OneBarAtATimeAndTheNextFromTheClosedCallback) {
  ShowBar();
  EXPECT_FALSE(Create());
  act_on = "closed";
  act = [this] { EXPECT_TRUE(Create()); };
  EXPECT_TRUE(lorimel.CloseSharedControlbar());
  EXPECT_THAT(told, ElementsAre("closed", "created"));
}

TEST_F(HeadlessTest, CallbacksMayCloseTheBarThatTheyComeFrom) {
  rows.resize(1);
  rows[0].key = EventKey::MicrophoneItem;
  act = [this] { EXPECT_TRUE(lorimel.CloseSharedControlbar()); };
  for (const char* moment : {"event 1008 1", "popup created", "popup closed", "event 1080 0"}) {
    ShowBar();
    act_on = moment;
    EXPECT_TRUE(user.press(1008)) << moment;  // opens its window, too
    user.pick(1080, nullptr);
    EXPECT_EQ(act_on, "") << moment;
    EXPECT_EQ(library.BarHandle(), nullptr) << moment;
    EXPECT_EQ(library.Rows(), nullptr) << moment;
  }
}

TEST_F(HeadlessTest, DelayedCallbacksComeFromPumpAndNoneForAClosedBar) {
  library.behaviour.created_later = true;
  library.behaviour.closed_later = true;
  ASSERT_TRUE(Create());
  EXPECT_THAT(told, IsEmpty());
  user.pump(0);
  EXPECT_THAT(told, ElementsAre("created"));
  bar = library.BarHandle();
  lorimel.CloseSharedControlbar();
  ASSERT_TRUE(Create());
  lorimel.CloseSharedControlbar();
  std::thread waker(user.wake);
  user.pump(60'000);
  waker.join();
  EXPECT_THAT(told, ElementsAre("created", "closed", "popup closed")) << "none was created again";
}

TEST_F(HeadlessTest, KeepsCallsAndCopiesRecords) {
  std::string label = "before";
  Record(EventKey::Leave).text = label.c_str();
  ShowBar();
  library.behaviour.refuse_sketch = true;
  EXPECT_FALSE(lorimel.ShowSketchControlbar(true));
  label = "during";
  lorimel.SetEventKey(Record(EventKey::Leave));
  label = "later!";
  lorimel.ShowControlbarButtonTip(EventKey::Chat, "say \"hi\"", true, 3, false);
  EXPECT_EQ(library.Creations().at(0).records.at(14).text, "before");
  EXPECT_EQ(library.Pushed(EventKey::Leave).at(0).copy.text, "during");
  EXPECT_EQ(library.Button(EventKey::Leave)->text, "during");
  EXPECT_EQ(library.Calls().back(),
            (Call{"ShowControlbarButtonTip", R"(1007, "say \"hi\"", true, 3, false)"}));
  EXPECT_EQ(library.ReadEveryText(), 91 * std::string("text").size() + label.size());
}

}  // namespace
