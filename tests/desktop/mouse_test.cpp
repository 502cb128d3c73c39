// SPDX-License-Identifier: MIT
// The bar and its windows under a pointer, on a desktop.
#include <gmock/gmock.h>

#include <algorithm>

#include "desktop.h"
#include "desktop_session.h"

namespace {

using testing::Contains;
using testing::Not;

using DesktopMouseTest = DesktopTest;

TEST_F(DesktopMouseTest, AListOpensClosesAgainAndIsPickedFrom) {
  ShowBars();
  for (const char* opener : {"Host Controls", "Draw"}) {
    UserClicks(*Named(opener));
    ASSERT_TRUE(Eventually([] { return List() != nullptr; }));
    UserPointsAt(*List(), List()->rect().center());
    UserClicks(*Named(opener));
    EXPECT_TRUE(Eventually([] { return List() == nullptr; })) << opener;
  }
  UserClicks(*Named("Draw"));
  UserPicks("Arrow");
  ExpectTold("sketchButton", {{"key", 1053}});
  EXPECT_EQ(List(), nullptr);
}

TEST_F(DesktopMouseTest, TheBarIsDragged) {
  ShowBars();
  Send("setRegWidgetMovingEvent", {{"enable", true}});
  const QRect moved = BarWidget()->geometry().translated(-120, 300);
  Forget();
  UserDragsBar({-120, 300});
  ASSERT_TRUE(Eventually([this] { return std::ranges::count(Told(), "widgetMoving") == 2; }))
      << "at its start and at its end";
  EXPECT_EQ(Area(1000), moved);
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

}  // namespace
