// SPDX-License-Identifier: MIT
// The bar as it is drawn: every language's buttons sit inside the bar and beside one another, and
// the picture shows them.
#include <QSet>
#include <cstdlib>

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
  ASSERT_FALSE(picture.isNull());
  EXPECT_GE(picture.width(), Area(1000).width());
  QSet<QRgb> colours;
  int red = 0;
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) {
      const QColor colour = picture.pixelColor(x, y);
      colours.insert(colour.rgb());
      if (colour.red() > 180 && colour.green() < 90 && colour.blue() < 90) ++red;
    }
  }
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
  Picture(std::string("bar-narrow-") + GetParam());
}

TEST_P(QtBarTest, TheSmallerBarsKeepWhatIsNeeded) {
  const std::size_t all = ShownButtons().size();
  ASSERT_TRUE(session.driver()->press(1041));
  Settle();
  EXPECT_TRUE(IsShown(1013)) << "a collapsed bar stops the sharing";
  EXPECT_FALSE(IsShown(1007));
  Picture(std::string("bar-collapsed-") + GetParam());
  ASSERT_TRUE(session.driver()->press(1041));
  Settle();
  EXPECT_EQ(ShownButtons().size(), all);

  CloseBar();
  ShowBar({.language = GetParam(), .simplified = true});
  EXPECT_TRUE(IsShown(1001));
  EXPECT_TRUE(IsShown(1014));
  EXPECT_LT(ShownButtons().size(), all);
  Picture(std::string("bar-simplified-") + GetParam());
}

INSTANTIATE_TEST_SUITE_P(Languages, QtBarTest, testing::Values("en", "de", "zh", "ar"),
                         [](const auto& language) { return std::string(language.param); });

class QtBarStateTest : public QtSession {
 protected:
  // Pixels about as green as the microphone's level.
  static int GreenIn(QWidget& widget) {
    const QImage image = Grab(widget);
    int green = 0;
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) {
        const QColor colour = image.pixelColor(x, y);
        green += colour.green() > 150 && colour.red() < 120 ? 1 : 0;
      }
    }
    return green;
  }
  // Pixels that are another shade, beyond what rounding does to an edge.
  static int Differences(const QImage& one, const QImage& other) {
    int different = 0;
    for (int y = 0; y < one.height(); ++y) {
      for (int x = 0; x < one.width(); ++x) {
        different += std::abs(qGray(one.pixel(x, y)) - qGray(other.pixel(x, y))) > 40 ? 1 : 0;
      }
    }
    return different;
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
  for (const int key : {1067, 1069, 1076}) {
    EXPECT_FALSE(IsShown(key)) << key;
  }
  Send("setNetworkStrength", {{"sta", 4}});
  Send("setRecordStatus", {{"recording", true}});
  Send("setLiveStatus", {{"status", 1}, {"count", 40}});
  for (const int key : {1067, 1069, 1076}) {
    EXPECT_TRUE(IsShown(key)) << key;
  }
  EXPECT_NE(Named("12:34"), nullptr) << "the clock";
  Picture("indicators");
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
  Picture("sketch-ar");
}

TEST_F(QtBarStateTest, LoadingTurnsUntilItIsDone) {
  ShowBar();
  const QImage idle = Grab(*Named("Annotate"));
  Send("setSketchLoading", {{"loading", true}});
  EXPECT_FALSE(session.driver()->press(1042));
  EXPECT_NE(Grab(*Named("Annotate")), idle);
  Picture("loading");
  Send("setSketchLoading", {{"loading", false}});
  EXPECT_EQ(Grab(*Named("Annotate")), idle);
}

}  // namespace
