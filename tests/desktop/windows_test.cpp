// SPDX-License-Identifier: MIT
// The bar and its windows on a desktop: under a pointer, and by keyboard where the window manager
// gives the focus.
#include <gmock/gmock.h>

#include <QApplication>
#include <algorithm>

#include "desktop/desktop.h"
#include "desktop/desktop_session.h"

namespace {

using testing::Contains;
using testing::Not;

using DesktopMouseTest = DesktopTest;

TEST_F(DesktopMouseTest, TheBarIsDragged) {
  ShowBars();
  Send("setRegWidgetMovingEvent", {{"enable", true}});
  const QRect moved = BarWidget()->geometry().translated(-120, 320);
  Forget();
  UserDragsBar({-120, 320});
  ASSERT_TRUE(Eventually([this] { return std::ranges::count(Told(), "widgetMoving") == 2; }))
      << "at its start and at its end";
  EXPECT_EQ(Area(MainWindow), moved);
  UserPointsAt(*BarWidget(), Handle(*BarWidget()));  // the window system has it there too
}

TEST_F(DesktopMouseTest, OtherWindowsStayBelowAndTakeTheListAway) {
  ShowBars();
  const desktop::Program other(
      "xev", {"-geometry", "1800x1000+20+20", "-event", "mouse", "-name", "another program"});
  const QString id =
      desktop::Xdotool({"search", "--sync", "--onlyvisible", "--name", "another program"});
  UserClicks(*Named("Host Controls"));
  AwaitList();
  desktop::Xdotool({"mousemove", "--window", id, "400", "900", "click", "1"});
  EXPECT_TRUE(Eventually([] { return List() == nullptr; }));
  EXPECT_THAT(Told(), Not(Contains("controlbarClosed")));

  Forget();
  UserClicks(*Named("Chat"));  // the bar is above, and one click is enough
  ExpectTold("chat", {{"open", true}});
}

// The window that the window manager takes for the active one.
WId WindowManagersWindow() {
  const QString answer = desktop::Run("xprop", {"-root", "_NET_ACTIVE_WINDOW"});
  return answer.section('#', 1).trimmed().toULongLong(nullptr, 0);
}

class DesktopKeyboardTest : public DesktopTest {
 protected:
  // As a user does: by a click on where the bar is bare.
  void FocusBar(const QWidget& bar) { UserClicks(bar, Handle(bar)); }

  // The control's list, which opens at its first row.
  void OpensAndLeavesList(QWidget& bar, const QString& control) {
    SCOPED_TRACE(control.toStdString());
    const QWidget* const opener = Named(control);
    FocusBar(bar);
    UserTabsTo(*opener);
    UserPresses(bar, "Down");
    AwaitList();
    EXPECT_FALSE(FocusedRow().isEmpty());
    UserPresses(*List(), "Escape");
    ASSERT_TRUE(Eventually([&bar] { return List() == nullptr && bar.isActiveWindow(); }));
    EXPECT_EQ(QApplication::focusWidget(), opener);
  }
};

TEST_F(DesktopKeyboardTest, AListTakesTheFocusAndGivesItBack) {
  ShowBars();
  OpensAndLeavesList(*BarWidget(), "Host Controls");
  OpensAndLeavesList(*SketchBar(), "Draw");
  UserPresses(*SketchBar(), "Down");
  AwaitList();
  UserPresses(*List(), "Return");
  ExpectTold("sketchButton", {{"key", 1050}});
  EXPECT_TRUE(Eventually([] { return SketchBar()->isActiveWindow(); }));
}

TEST_F(DesktopKeyboardTest, TheWindowManagersKeyClosesTheBar) {
  ShowBars();
  FocusBar(*BarWidget());
  // The key is the window manager's, which learns of the focus later than the window does.
  ASSERT_TRUE(Eventually([] { return WindowManagersWindow() == BarWidget()->winId(); }));
  UserPresses(*BarWidget(), "alt+F4");
  ExpectTold("controlbarClosed");
  EXPECT_EQ(BarWidget(), nullptr);
  EXPECT_EQ(SketchBar(), nullptr);
}

}  // namespace
