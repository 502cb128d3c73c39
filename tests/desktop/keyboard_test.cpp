// SPDX-License-Identifier: MIT
// The bar and its windows by keyboard, on a desktop: the window manager gives the focus.
#include <gmock/gmock.h>

#include <QApplication>

#include "desktop.h"
#include "desktop_session.h"

namespace {

using testing::Contains;

// The window that the window manager takes for the active one.
WId WindowManagersWindow() {
  const QString answer = desktop::Run(
      QStringLiteral("xprop"), {QStringLiteral("-root"), QStringLiteral("_NET_ACTIVE_WINDOW")});
  return answer.section(QLatin1Char('#'), 1).trimmed().toULongLong(nullptr, 0);
}

class DesktopKeyboardTest : public DesktopTest {
 protected:
  // As a user does: by a click on where the bar is bare.
  void FocusBar(const QWidget& bar) { UserClicks(bar, Handle(bar)); }
};

TEST_F(DesktopKeyboardTest, EveryListOpensAtItsFirstRowAndEscapeLeadsBack) {
  ShowBarWithLists();
  for (QWidget* bar : {BarWidget(), SketchBar()}) {
    FocusBar(*bar);
    for (QWidget* opener : Openers(*bar)) {
      SCOPED_TRACE(opener->accessibleName().toStdString());
      UserTabsTo(*opener);
      Forget();
      UserPresses(*bar, "Down");
      ASSERT_TRUE(Eventually([] { return List() != nullptr && List()->isActiveWindow(); }));
      EXPECT_THAT(Told(), Contains("popupCreated"));
      EXPECT_FALSE(FocusedRow().isEmpty());
      UserPresses(*List(), "Escape");
      ASSERT_TRUE(Eventually([&] { return List() == nullptr && bar->isActiveWindow(); }));
      EXPECT_EQ(QApplication::focusWidget(), opener);
    }
  }
}

TEST_F(DesktopKeyboardTest, ACameraIsChosen) {
  ShowBarWithLists();
  FocusBar(*BarWidget());
  UserTabsTo(*Named("Camera"));
  Forget();
  UserPresses(*BarWidget(), "Down");
  ASSERT_TRUE(Eventually([] { return List() != nullptr && List()->isActiveWindow(); }));
  UserPresses(*List(), "Down");
  UserPresses(*List(), "Return");
  ExpectTold("selectCamera", {{"deviceId", "cam-2"}});
  EXPECT_TRUE(Eventually([] { return BarWidget()->isActiveWindow(); }));
}

TEST_F(DesktopKeyboardTest, WhatIsTypedSearchesThePeople) {
  ShowBar();
  SendParticipants(40);
  UserClicks(*Named("Remote Control"));
  ASSERT_TRUE(Eventually([] { return List() != nullptr && List()->isActiveWindow(); }));
  desktop::Run("xdotool", {"type", "0017"});
  UserPresses(*List(), "Down");
  Forget();
  UserPresses(*List(), "Return");
  ASSERT_TRUE(
      Eventually([this] { return testing::Value(Told(), Contains("remoteControlGrant")); }));
  EXPECT_EQ(LastPayload("remoteControlGrant")["participant"]["displayName"], "Person 1000017");
}

TEST_F(DesktopKeyboardTest, TheWindowManagersKeyClosesTheBar) {
  ShowBar();
  Send("showSketchControlbar", {{"show", true}});
  FocusBar(*BarWidget());
  // The key is the window manager's, which learns of the focus later than the window does.
  ASSERT_TRUE(Eventually([] { return WindowManagersWindow() == BarWidget()->winId(); }));
  UserPresses(*BarWidget(), "alt+F4");
  ExpectTold("controlbarClosed");
  EXPECT_EQ(BarWidget(), nullptr);
  EXPECT_EQ(SketchBar(), nullptr);
}

}  // namespace
