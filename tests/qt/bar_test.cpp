// SPDX-License-Identifier: MIT
// The bar as it is drawn: every language's buttons sit inside the bar and beside one another, and
// the picture shows them.
#include <QSet>

#include "qt_session.h"

namespace {

class QtBarTest : public QtSession, public testing::WithParamInterface<const char*> {
 protected:
  void SetUp() override { ShowBar({.language = GetParam()}); }
};

TEST_P(QtBarTest, ButtonsSitInsideTheBarAndDoNotOverlap) {
  std::map<int, QRect> shown = ShownButtons();
  const QRect bar = shown.at(1000);
  shown.erase(1000);
  EXPECT_GE(shown.size(), 15u);
  EXPECT_TRUE(QRect(0, 0, 1920, 1080).contains(bar));
  for (const auto& [key, area] : shown) {
    EXPECT_TRUE(bar.contains(area)) << key;
    EXPECT_GE(area.width(), 16) << key;
    for (const auto& [other, other_area] : shown) {
      EXPECT_TRUE(other == key || !area.intersects(other_area)) << key << " and " << other;
    }
  }
}

TEST_P(QtBarTest, ThePictureShowsThem) {
  const QImage picture = Picture(std::string("bar-") + GetParam());
  EXPECT_GE(picture.width(), Area(1000).width());
  QSet<QRgb> colours;
  const int red = Count(picture, [&colours](const QColor& colour) {
    colours.insert(colour.rgb());
    return colour.red() > 180 && colour.green() < 90 && colour.blue() < 90;
  });
  EXPECT_GT(colours.size(), 100) << "texts and icons have smooth edges";
  EXPECT_GT(red, 1000) << "the stop button";
}

TEST_P(QtBarTest, EveryButtonOnANarrowScreenCanBeReached) {
  CloseBar();
  ShowBar({.language = GetParam(), .display = {100, 50, 700, 500}});
  for (const auto& [key, area] : ShownButtons()) {
    EXPECT_TRUE(QRect(100, 50, 700, 500).contains(area)) << key;
    EXPECT_GE(area.width(), 12) << key;
  }
}

TEST_P(QtBarTest, TheSmallerBarsKeepWhatIsNeeded) {
  const std::size_t all = ShownButtons().size();
  ASSERT_TRUE(session.driver()->press(1041));
  Settle();
  EXPECT_TRUE(IsShown(1013)) << "a collapsed bar stops the sharing";
  EXPECT_FALSE(IsShown(1007));
  ASSERT_TRUE(session.driver()->press(1041));
  Settle();
  EXPECT_EQ(ShownButtons().size(), all);

  CloseBar();
  ShowBar({.language = GetParam(), .simplified = true});
  EXPECT_TRUE(IsShown(1001));
  EXPECT_TRUE(IsShown(1014));
  EXPECT_LT(ShownButtons().size(), all);
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
  // On the bar's own background.
  static QImage IconOf(const QString& name) {
    const QWidget* button = Named(name);
    constexpr int kSize = 26;
    const QPoint place = button->mapTo(button->window(), QPoint((button->width() - kSize) / 2, 5));
    return Grab(*button->window()).copy(QRect(place, QSize(kSize, kSize)));
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
  const auto expect_shown = [](bool shown) {
    for (const int key : {1067, 1069, 1076}) {
      EXPECT_EQ(IsShown(key), shown) << key;
    }
  };
  expect_shown(false);
  Send("setNetworkStrength", {{"sta", 4}});
  Send("setRecordStatus", {{"recording", true}});
  Send("setLiveStatus", {{"status", 1}, {"count", 40}});
  expect_shown(true);
  EXPECT_NE(Named("12:34"), nullptr) << "the clock";
  Send("setRecordStatus", {{"recording", false}});
  EXPECT_FALSE(IsShown(1069));
}

TEST_F(QtBarStateTest, IconsWithADirectionTurnWithTheText) {
  ShowBar();
  Send("showSketchControlbar", {{"show", true}});
  const QImage undo = IconOf("Undo");
  const QImage draw = IconOf("Draw");
  SendTexts("ar");
  const QImage turned = IconOf(QString::fromUtf8("تراجع"));
  EXPECT_LT(Differences(turned, undo.mirrored(true, false)), 5);
  EXPECT_GT(Differences(turned, undo), 20);
  EXPECT_LT(Differences(IconOf(QString::fromUtf8("رسم")), draw), 5);
}

TEST_F(QtBarStateTest, LoadingTurnsUntilItIsDone) {
  ShowBar();
  const QImage idle = Grab(*Named("Annotate"));
  Send("setSketchLoading", {{"loading", true}});
  EXPECT_FALSE(session.driver()->press(1042));
  EXPECT_NE(Grab(*Named("Annotate")), idle);
  Send("setSketchLoading", {{"loading", false}});
  EXPECT_EQ(Grab(*Named("Annotate")), idle);
}

}  // namespace
