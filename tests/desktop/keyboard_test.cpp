// SPDX-License-Identifier: MIT
// The bar and its windows by keyboard, on a desktop: the window manager gives the focus.
#include <gmock/gmock.h>

#include <QApplication>

#include "desktop.h"
#include "desktop_session.h"

namespace {

// The window that the window manager takes for the active one.
WId WindowManagersWindow() {
  const QString answer = desktop::Run("xprop", {"-root", "_NET_ACTIVE_WINDOW"});
  return answer.section('#', 1).trimmed().toULongLong(nullptr, 0);
}

class DesktopKeyboardTest : public DesktopTest {
 protected:
  // As a user does: by a click on where the bar is bare.
  void FocusBar(const QWidget& bar) { UserClicks(bar, Handle(bar)); }

  // Opens the control's list, leaves it, opens it again and takes its first row.
  void UsesList(QWidget& bar, const QString& control, const QString& row) {
    SCOPED_TRACE(control.toStdString());
    QWidget* const opener = Named(control);
    FocusBar(bar);
    UserTabsTo(*opener);
    UserPresses(bar, "Down");
    AwaitList();
    EXPECT_EQ(FocusedRow(), row);
    UserPresses(*List(), "Escape");
    ASSERT_TRUE(Eventually([&bar] { return List() == nullptr && bar.isActiveWindow(); }));
    EXPECT_EQ(QApplication::focusWidget(), opener);
    UserPresses(bar, "Down");
    AwaitList();
    UserPresses(*List(), "Return");
  }
};

TEST_F(DesktopKeyboardTest, AListTakesTheFocusAndGivesItBack) {
  ShowBars();
  Send("setCameraInfo",
       {{"cameras", {{{"id", "cam-1"}, {"name", "Front"}}, {{"id", "cam-2"}, {"name", "Back"}}}},
        {"currentCameraId", "cam-2"}});
  UsesList(*BarWidget(), "Camera", "Front");
  ExpectTold("selectCamera", {{"deviceId", "cam-1"}});
  EXPECT_TRUE(Eventually([] { return BarWidget()->isActiveWindow(); }));
  UsesList(*SketchBar(), "Draw", "Pen");
  ExpectTold("sketchButton", {{"key", 1050}});
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
