// SPDX-License-Identifier: MIT
// The bar as it is drawn: every language's buttons sit inside the bar and beside one another, and
// show what goes on.
#include "qt_session.h"

namespace {

class QtBarTest : public QtSession, public testing::WithParamInterface<const char*> {};

TEST_P(QtBarTest, ButtonsSitInsideTheBarAndDoNotOverlap) {
  for (const QRect& screen : {QRect(0, 0, 1920, 1080), QRect(100, 50, 700, 500)}) {
    ShowBar({.language = GetParam(), .display = screen});
    std::map<int, QRect> shown = ShownButtons();
    const QRect bar = shown.at(1000);
    shown.erase(1000);
    EXPECT_GE(shown.size(), 15u);
    EXPECT_TRUE(screen.contains(bar));
    for (const auto& [key, area] : shown) {
      EXPECT_TRUE(bar.contains(area)) << key;
      EXPECT_GE(area.width(), 12) << key;
      for (const auto& [other, other_area] : shown) {
        EXPECT_TRUE(other == key || !area.intersects(other_area)) << key << " and " << other;
      }
    }
    CloseBar();
  }
}

INSTANTIATE_TEST_SUITE_P(Languages, QtBarTest, testing::Values("en", "de", "zh", "ar"),
                         [](const auto& language) { return std::string(language.param); });

class QtBarStateTest : public QtSession {
 protected:
  // Pixels about as green as the microphone's level.
  static int GreenIn(QWidget& widget) {
    return Count(Grab(widget),
                 [](const QColor& colour) { return colour.green() > 150 && colour.red() < 120; });
  }
};

TEST_F(QtBarStateTest, TheMicrophonesLevelRisesAndFalls) {
  ShowBar();
  EXPECT_EQ(GreenIn(*Named("Audio")), 0);
  Send("setMicVolume", {{"volume", 40}});
  const int some = GreenIn(*Named("Audio"));
  EXPECT_GT(some, 0);
  Send("setMicVolume", {{"volume", 100}});
  EXPECT_GT(GreenIn(*Named("Audio")), some);
  Send("setAudioStatus", {{"status", 0}});
  EXPECT_EQ(GreenIn(*Named("Audio")), 0) << "what is muted has no level";
}

TEST_F(QtBarStateTest, IndicatorsComeAndGo) {
  ShowBar();
  for (const bool is_on : {false, true, false}) {
    Send("setRecordStatus", {{"recording", is_on}});
    Send("setLiveStatus", {{"status", is_on ? 1 : 0}, {"count", 40}});
    Send("setNetworkStrength", {{"sta", is_on ? 4 : 0}});
    for (const int key : {1067, 1069, 1076}) EXPECT_EQ(IsShown(key), is_on) << key;
  }
  EXPECT_NE(Named("12:34"), nullptr) << "the clock";
}

TEST_F(QtBarStateTest, TheSmallerBarsKeepWhatIsNeeded) {
  ShowBar();
  const std::size_t all = ShownButtons().size();
  for (const bool is_collapsed : {true, false}) {
    ASSERT_TRUE(session.driver()->press(1041));
    Settle();
    EXPECT_TRUE(IsShown(1013)) << "a collapsed bar stops the sharing";
    EXPECT_EQ(IsShown(1007), !is_collapsed);
  }
  CloseBar();
  ShowBar({.simplified = true});
  EXPECT_TRUE(IsShown(1001));
  EXPECT_TRUE(IsShown(1014));
  EXPECT_LT(ShownButtons().size(), all);
}

}  // namespace
