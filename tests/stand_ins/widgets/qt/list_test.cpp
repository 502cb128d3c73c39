// SPDX-License-Identifier: MIT
// Drop-down windows and bubbles: what they show, where they are, and what they tell the host.
#include <QApplication>
#include <QLineEdit>
#include <QTest>

#include "support/qt_session.h"

namespace {

class QtListTest : public QtSession {
 protected:
  static QWidget* List() { return Window("Remote Control"); }
  static bool IsOnTheScreen(const QWidget& window) {
    return QRect(0, 0, 1920, 1080).contains(window.geometry());
  }
  // A tip of one millisecond, unless it stays.
  void ShowTip(const char* key, const char* text, bool stays) {
    Send("showButtonTip",
         {{"key", key}, {"text", text}, {"a", stays}, {"b", 1}, {"bHigh", 0}, {"c", true}});
  }
};

TEST_F(QtListTest, ParticipantsShowTheirPicturesCanBeSearchedAndFitOnTheScreen) {
  ShowBar();
  SendParticipants(8);
  ASSERT_EQ(Open(RemoteControl), 9);
  EXPECT_EQ(List()->findChild<QLineEdit*>(), nullptr);
  session.driver()->closeList();

  const std::string path = testing::TempDir() + "avatar.png";
  QImage avatar(90, 60, QImage::Format_RGB32);
  avatar.fill(Qt::green);
  ASSERT_TRUE(avatar.save(QString::fromStdString(path)));
  SendParticipants(9, path);
  ASSERT_EQ(Open(RemoteControl), 10);
  auto* search = List()->findChild<QLineEdit*>();
  ASSERT_NE(search, nullptr);
  Settle();
  const auto is_of_avatar = [](const QColor& colour) { return colour == QColor(Qt::green); };
  EXPECT_NEAR(Count(Grab(*List()), is_of_avatar), 3.14 * 11 * 11, 60) << "one of them, round";
  for (const char key : std::string("0007")) {
    QTest::keyClick(QGuiApplication::focusWindow(), key);
  }
  EXPECT_EQ(search->text(), "0007") << "what is typed on the rows goes there";
  Key(Qt::Key_Down);
  Forget();
  Key(Qt::Key_Return);
  EXPECT_EQ(LastPayload("remoteControlGrant")["participant"]["displayName"], "Person 1000007");

  SendParticipants(10'000);
  ASSERT_EQ(Open(RemoteControl), 10'001);
  EXPECT_TRUE(IsOnTheScreen(*List()));
  Key(Qt::Key_End);
  EXPECT_EQ(FocusedRow(), "Person 1009999");
  EXPECT_TRUE(List()->geometry().contains(RowCenter("Person 1009999")));
}

TEST_F(QtListTest, AnOpenListFollowsTheDirectionOfTheLanguage) {
  ShowBar();
  ASSERT_GT(Open(More), 0);
  SendTexts("ar");
  const QWidget* list = QApplication::focusWidget()->window();
  EXPECT_EQ(list->layoutDirection(), Qt::RightToLeft);
  EXPECT_EQ(list->geometry().right(), Area(More).right()) << "below the button's other end";
  session.driver()->closeList();
  SendParticipants(5);
  ASSERT_EQ(Open(RemoteControl), 6);
  EXPECT_EQ(QApplication::focusWidget()->window()->layoutDirection(), Qt::RightToLeft)
      << "foreign names do not turn it around";
}

TEST_F(QtListTest, TheHostIsToldOfTheRealWindow) {
  ShowBar();
  Click(Center(*Named("Host Controls")));
  const json told = LastPayload("popupCreated");
  const QWidget* list = Window("Host Controls");
  ASSERT_NE(list, nullptr);
  EXPECT_EQ(told["windowId"].get<std::uint64_t>(), list->internalWinId());
  EXPECT_EQ(told["position"]["y"], list->y());
  EXPECT_EQ(Area(HostControlWindow), list->geometry());
  Click(Center(*Named("Host Controls")));
  EXPECT_EQ(Window("Host Controls"), nullptr);
  EXPECT_FALSE(IsShown(HostControlWindow));
}

TEST_F(QtListTest, TipsStayUntilTheyAreClosedOrTheirTimeIsOver) {
  ShowBar();
  ShowTip("MuteAudio", "You are muted", true);
  ASSERT_NE(Window("You are muted"), nullptr);
  EXPECT_GT(Window("You are muted")->y(), Area(MuteAudio).bottom() - 1);
  const QWidget* close = Named("Close");
  ASSERT_NE(close, nullptr) << "it stays, so it can be closed";
  Click(Center(*close));
  EXPECT_EQ(Window("You are muted"), nullptr);

  ShowTip("MuteAudio", "You are muted", false);
  EXPECT_EQ(Named("Close"), nullptr);
  const auto is_gone = [this] {
    session.driver()->pump(1);
    return Window("You are muted") == nullptr;
  };
  EXPECT_TRUE(session.loop().RunUntil(
      is_gone, vellomar_host::EventLoop::Clock::now() + std::chrono::seconds(30)));

  ShowTip("Chat", "Chat", true);
  ASSERT_NE(Window("Chat"), nullptr);
  SendTexts("ar");
  EXPECT_EQ(Window("Chat"), nullptr) << "a tip that says what the button says is translated";
  EXPECT_NE(Window(QString::fromUtf8("الدردشة")), nullptr);
}

}  // namespace
