// SPDX-License-Identifier: MIT
// The bar as it is drawn: every language's buttons sit inside the bar and beside one another, and
// show what goes on.
#include "support/qt_session.h"

namespace {

class QtBarTest : public QtSession, public testing::WithParamInterface<const char*> {};

TEST_P(QtBarTest, ButtonsSitInsideTheBarAndDoNotOverlap) {
  for (const QRect& screen : {QRect(0, 0, 1920, 1080), QRect(100, 50, 700, 500)}) {
    ShowBar({.language = GetParam(), .display = screen});
    std::map<EventKey, QRect> shown = ShownButtons();
    const QRect bar = shown.at(MainWindow);
    shown.erase(MainWindow);
    EXPECT_GE(shown.size(), 15u);
    EXPECT_TRUE(screen.contains(bar));
    EXPECT_NE(Named("12:34"), nullptr) << "the clock";
    for (const auto& [key, area] : shown) {
      EXPECT_TRUE(bar.contains(area)) << static_cast<int>(key);
      EXPECT_GE(area.width(), 12) << static_cast<int>(key);
      for (const auto& [other, other_area] : shown) {
        EXPECT_TRUE(other == key || !area.intersects(other_area))
            << static_cast<int>(key) << " and " << static_cast<int>(other);
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

}  // namespace
