// SPDX-License-Identifier: MIT
// The bar and its windows under a pointer, on a desktop.
#include <gmock/gmock.h>

#include <QPushButton>
#include <algorithm>

#include "desktop.h"
#include "desktop_session.h"

namespace {

using testing::Contains;
using testing::Not;

using DesktopMouseTest = DesktopTest;

TEST_F(DesktopMouseTest, TheMicrophoneIsMutedAndUnmuted) {
  ShowBar();
  for (const bool mute : {true, false}) {
    Forget();
    UserClicks(*Named("Audio"));
    ExpectTold("muteAudio", {{"mute", mute}});
    EXPECT_THAT(Told(), Contains("uiEvent"));
    Send("setAudioStatus", {{"status", mute ? 0 : 1}});
  }
}

TEST_F(DesktopMouseTest, EveryListOpensAndClosesAgain) {
  ShowBarWithLists();
  ASSERT_EQ(Openers(*BarWidget()).size(), 9u);
  ASSERT_EQ(Openers(*SketchBar()).size(), 3u);
  for (QWidget* bar : {BarWidget(), SketchBar()}) {
    for (QWidget* opener : Openers(*bar)) {
      SCOPED_TRACE(opener->accessibleName().toStdString());
      Forget();
      UserClicks(*opener);
      ASSERT_TRUE(Eventually([] { return List() != nullptr; }));
      EXPECT_THAT(Told(), Contains("popupCreated"));
      EXPECT_GT(session.driver()->rowCount(), 0);
      UserPointsAt(*List(), List()->rect().center());
      UserClicks(*opener);
      EXPECT_TRUE(Eventually([] { return List() == nullptr; }));
    }
  }
}

TEST_F(DesktopMouseTest, ACameraIsChosen) {
  ShowBarWithLists();
  Forget();
  UserClicks(*OpenerOf(1002));
  UserPicks("Document Camera");
  ExpectTold("selectCamera", {{"deviceId", "cam-2"}});
  EXPECT_EQ(List(), nullptr);
}

TEST_F(DesktopMouseTest, TheBarIsDragged) {
  ShowBar();
  Send("setRegWidgetMovingEvent", {{"enable", true}});
  const QRect moved = BarWidget()->geometry().translated(-120, 300);
  Forget();
  UserDragsBar({-120, 300});
  ASSERT_TRUE(Eventually([this] { return std::ranges::count(Told(), "widgetMoving") == 2; }))
      << "at its start and at its end";
  EXPECT_EQ(Send("getControlbarPosition", json::object())["position"],
            json({{"x", moved.x()},
                  {"y", moved.y()},
                  {"width", moved.width()},
                  {"height", moved.height()}}));
  UserPointsAt(*BarWidget(), Handle(*BarWidget()));  // the window system has it there too

  UserDragsBar({3'000, 3'000});
  ASSERT_TRUE(Eventually([] { return BarWidget()->geometry().bottom() == 1079; }));
  EXPECT_EQ(BarWidget()->geometry().right(), 1919) << "it stays on the screen";
}

TEST_F(DesktopMouseTest, TheSketchToolsArePicked) {
  ShowBar();
  Send("showSketchControlbar", {{"show", true}});
  const auto told = [this](int key) { ExpectTold("sketchButton", {{"key", key}}); };
  Forget();
  UserClicks(*Named("Select"));
  told(1043);
  Forget();
  UserClicks(*Named("Draw"));
  UserPicks("Arrow");
  told(1053);
  Forget();
  UserClicks(*Named("Colour"));
  UserPicks("Green");
  told(1058);
  Forget();
  UserClicks(*Named("Undo"));
  told(1047);
  Forget();
  UserClicks(*Named("Clear"));
  told(1060);  // one's own drawing alone while a screen is shared
  EXPECT_EQ(List(), nullptr);

  Send("setMeetingSubType", {{"type", 3}});
  Send("showSketchControlbar", {{"show", true}});
  Forget();
  UserClicks(*Named("Clear"));
  UserPicks("Clear All");
  told(1062);
}

TEST_F(DesktopMouseTest, TheUserLeaves) {
  ShowBar();
  Forget();
  UserClicks(*Named("Leave"));
  ExpectTold("leaveMeeting");

  EnterSubRoom();
  Forget();
  UserClicks(*Named("Leave Room"));
  ExpectTold("leaveMeeting");  // its question has taken the first one's place
  ASSERT_NE(Window("Leave this room?"), nullptr);
  EXPECT_THAT(Told(), Not(Contains("leaveSubRoom"))) << "before it is confirmed";
  UserClicks(*Window("Leave this room?")->findChild<QPushButton*>());
  ExpectTold("leaveSubRoom");
  EXPECT_EQ(Window("Leave this room?"), nullptr);
}

TEST_F(DesktopMouseTest, OtherWindowsStayBelowAndTakeTheListAway) {
  ShowBar();
  const desktop::Program other(
      "xev", {"-geometry", "1800x1000+20+20", "-event", "mouse", "-name", "another program"});
  const QString id =
      desktop::Run("xdotool", {"search", "--sync", "--onlyvisible", "--name", "another program"})
          .trimmed();
  UserClicks(*Named("Host Controls"));
  ASSERT_TRUE(Eventually([] { return List() != nullptr && List()->isActiveWindow(); }));
  desktop::Run("xdotool", {"mousemove", "--window", id, "400", "900", "click", "1"});
  EXPECT_TRUE(Eventually([] { return List() == nullptr; }));
  EXPECT_THAT(Told(), Not(Contains("controlbarClosed")));

  Forget();
  UserClicks(*Named("Chat"));  // the bar is above, and one click is enough
  ExpectTold("chat", {{"open", true}});
}

}  // namespace
