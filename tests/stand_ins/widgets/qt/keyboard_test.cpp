// SPDX-License-Identifier: MIT
// The bar without a mouse: where the focus goes, that it is seen, and what the keys do.
#include <gmock/gmock.h>

#include <QApplication>
#include <QWidget>
#include <algorithm>

#include "support/qt_session.h"

namespace {

using testing::Contains;
using testing::Not;

class QtKeyboardTest : public QtSession {
 protected:
  static bool TakesFocus(const QWidget* widget) {
    return widget->isVisible() && widget->focusPolicy() != Qt::NoFocus;
  }
  // The controls in the order of the Tab key.
  std::vector<QWidget*> TabRound() {
    std::vector<QWidget*> round;
    Key(Qt::Key_Tab);
    while (std::ranges::find(round, QApplication::focusWidget()) == round.end()) {
      round.push_back(QApplication::focusWidget());
      Key(Qt::Key_Tab);
    }
    return round;
  }
};

TEST_F(QtKeyboardTest, TheFocusFollowsTheDirectionOfTheText) {
  for (const std::string language : {"en", "ar"}) {
    SCOPED_TRACE(language);
    const bool to_the_left = language == "ar";
    ShowBar({.language = language});
    const std::vector<QWidget*> round = TabRound();
    const QList<QWidget*> all = BarWidget()->findChildren<QWidget*>();
    EXPECT_GE(round.size(), 19u);
    EXPECT_EQ(std::ranges::count_if(all, &TakesFocus), std::ssize(round));
    for (std::size_t i = 1; i < round.size(); ++i) {
      const QPoint way = Center(*round[i]) - Center(*round[i - 1]);
      EXPECT_TRUE((to_the_left ? way.x() < 0 : way.x() > 0) || way.y() > 10)
          << round[i]->accessibleName().toStdString();
    }

    TabTo(to_the_left ? QString::fromUtf8("الكاميرا") : "Camera");
    const int x = Center(*QApplication::focusWidget()).x();
    Key(Qt::Key_Right);
    EXPECT_GT(Center(*QApplication::focusWidget()).x(), x);
    Key(Qt::Key_Left);
    EXPECT_EQ(Center(*QApplication::focusWidget()).x(), x);
    Key(Qt::Key_End);
    Key(Qt::Key_Tab);
    const QWidget* first = QApplication::focusWidget();
    Key(Qt::Key_Home);
    EXPECT_EQ(QApplication::focusWidget(), first) << "after the last comes the first";
    CloseBar();
  }
}

TEST_F(QtKeyboardTest, SpaceAndEnterPressWhatIsNotDisabled) {
  ShowBar();
  TabTo("Audio");
  Key(Qt::Key_Space);
  EXPECT_EQ(LastPayload("muteAudio"), json({{"mute", true}}));
  Key(Qt::Key_Return);
  EXPECT_EQ(LastPayload("muteAudio"), json({{"mute", false}}));
  Send("setAudioStatus", {{"status", 2}});
  for (const QWidget* control : TabRound()) {
    EXPECT_NE(control->accessibleName(), "Audio") << "it is disabled";
  }
}

TEST_F(QtKeyboardTest, AListOpensAtItsFirstRowAndEscapeLeadsBack) {
  ShowBar();
  Send("setCameraInfo",
       {{"cameras", {{{"id", "c1"}, {"name", "Front"}}, {{"id", "c2"}, {"name", "Document"}}}},
        {"currentCameraId", "c1"}});
  TabTo("Chat");
  Key(Qt::Key_Home);
  TabTo("Camera");
  Key(Qt::Key_Down);
  ASSERT_EQ(session.driver()->rowCount(), 3);
  EXPECT_EQ(FocusedRow(), "Front") << "the caption is passed over";
  Key(Qt::Key_Down);
  EXPECT_EQ(FocusedRow(), "Document");
  Key(Qt::Key_Tab);
  EXPECT_EQ(FocusedRow(), "Front") << "round";
  Key(Qt::Key_Escape);
  EXPECT_EQ(session.driver()->rowCount(), 0);
  EXPECT_EQ(FocusName(), "Camera");

  Key(Qt::Key_Return);
  Key(Qt::Key_Up);
  Key(Qt::Key_Return);
  EXPECT_EQ(LastPayload("selectCamera")["deviceId"], "c2");
  EXPECT_EQ(FocusName(), "Camera");
}

TEST_F(QtKeyboardTest, AQuestionIsAnsweredOrLeft) {
  ShowBar();
  Send("setHostType", {{"type", 0}});
  Send("enterMeetingSubRoom", {{"roomId", "r1"}, {"roomName", "Group 2"}});
  TabTo("Leave Room");
  Key(Qt::Key_Return);
  EXPECT_EQ(FocusName(), "Leave");
  EXPECT_NE(Window("Leave this room?"), nullptr);
  Key(Qt::Key_Escape);
  EXPECT_EQ(Window("Leave this room?"), nullptr);
  EXPECT_EQ(FocusName(), "Leave Room");
  Forget();
  Key(Qt::Key_Return);
  EXPECT_THAT(Told(), Not(Contains("leaveSubRoom")));
  Key(Qt::Key_Return);
  EXPECT_THAT(Told(), Contains("leaveSubRoom"));
}

TEST_F(QtKeyboardTest, TheFocusIsSeen) {
  ShowBar();
  for (QWidget* control : TabRound()) {
    control->setFocus(Qt::TabFocusReason);
    const QImage with = Grab(*BarWidget());
    control->clearFocus();
    const QRect edge(control->mapTo(BarWidget(), QPoint(0, 1)), QSize(control->width(), 1));
    EXPECT_NE(Grab(*BarWidget()).copy(edge), with.copy(edge))
        << control->accessibleName().toStdString();
  }
}

}  // namespace
