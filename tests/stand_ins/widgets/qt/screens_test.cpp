// SPDX-License-Identifier: MIT
// Screens side by side, at whatever scale factor the environment sets: windows stay on the screen
// that they are on, and positions are told in its pixels.
#include <gmock/gmock.h>

#include <QApplication>
#include <QScreen>

#include "support/qt_session.h"

namespace {

using testing::Contains;
using testing::Not;

class QtScreensTest : public QtSession {
 protected:
  void SetUp() override {
    VELLOMAR_LORIMEL::Lorimel::GetInstance();  // there are screens from now on
  }

  // The screen's origin is the same in pixels and in Qt's units.
  static QRect Pixels(const QScreen& screen) {
    return {screen.geometry().topLeft(), screen.geometry().size() * screen.devicePixelRatio()};
  }
  static QRect PixelsOf(const QWidget& window) {
    const QPoint origin = window.screen()->geometry().topLeft();
    const double ratio = window.devicePixelRatio();
    return {origin + (window.pos() - origin) * ratio, window.size() * ratio};
  }
  // Where the bar is dragged by: left of the first button.
  static QPoint Handle() { return BarWidget()->geometry().topLeft() + QPoint(2, 40); }
};

TEST_F(QtScreensTest, WindowsStayOnEveryScreen) {
  ASSERT_GE(QGuiApplication::screens().size(), 2);
  for (const QScreen* screen : QGuiApplication::screens()) {
    const QRect pixels = Pixels(*screen);
    ShowBar({.display = pixels});
    EXPECT_EQ(BarWidget()->screen(), screen);
    EXPECT_NEAR(Area(MainWindow).center().x(), pixels.center().x(), 3);
    EXPECT_EQ(Area(MainWindow), PixelsOf(*BarWidget()));
    for (const auto& [key, area] : ShownButtons()) {
      EXPECT_TRUE(pixels.contains(area)) << static_cast<int>(key);
    }
    for (const EventKey key : {HostControl, More}) {
      ASSERT_GT(Open(key), 0);
      const json told = LastPayload("popupCreated")["position"];
      const QRect list(told["x"], told["y"], told["width"], told["height"]);
      EXPECT_TRUE(pixels.contains(list)) << static_cast<int>(key);
      EXPECT_EQ(list, PixelsOf(*QApplication::focusWidget()->window()));
    }
    session.driver()->closeList();
    CloseBar();
  }
}

TEST_F(QtScreensTest, TheBarIsDraggedInsideItsScreen) {
  const QScreen* screen = QGuiApplication::primaryScreen();
  ShowBar({.display = Pixels(*screen)});
  const QPoint start = BarWidget()->pos();
  Drag(Handle(), Handle() + QPoint(-20, 100));
  EXPECT_EQ(BarWidget()->pos(), start + QPoint(-20, 100));
  Drag(Handle(), Handle() + QPoint(0, 5'000));
  EXPECT_EQ(BarWidget()->geometry().bottom(), screen->geometry().bottom());
  EXPECT_TRUE(Pixels(*screen).contains(Area(MainWindow)));
  ASSERT_GT(Open(HostControl), 0);
  EXPECT_LT(QApplication::focusWidget()->window()->geometry().bottom(), BarWidget()->y())
      << "there is more room above";
  session.driver()->closeList();

  const QPoint on_a_button = Center(*Named("Chat"));
  Forget();
  Drag(on_a_button, on_a_button + QPoint(0, -60));
  EXPECT_EQ(Center(*Named("Chat")), on_a_button) << "a button is no handle";
  EXPECT_THAT(Told(), Not(Contains("chat"))) << "and was left before it was released";
}

TEST_F(QtScreensTest, TheBarIsDraggedToAnotherScreen) {
  const QScreen* second = QGuiApplication::screens().at(1);
  ShowBar({.display = Pixels(*QGuiApplication::primaryScreen())});
  Drag(Handle(), second->geometry().topLeft() + QPoint(30, 200));
  EXPECT_TRUE(second->geometry().contains(BarWidget()->geometry()));
  EXPECT_TRUE(Pixels(*second).contains(Area(MainWindow)));
  ASSERT_GT(Open(More), 0);
  EXPECT_TRUE(second->geometry().contains(QApplication::focusWidget()->window()->geometry()));
  Send("showSketchControlbar", {{"show", true}});
  EXPECT_TRUE(Pixels(*second).contains(Area(SketchPen)));
}

}  // namespace
