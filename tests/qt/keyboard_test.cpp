// SPDX-License-Identifier: MIT
// The bar without a mouse: where the focus goes, that it is seen, and what the keys do.
#include <gmock/gmock.h>

#include <QApplication>
#include <QWidget>

#include "qt_session.h"

namespace {

using testing::Contains;
using testing::Not;

class QtKeyboardTest : public QtSession {
 protected:
  // The controls in the order of the Tab key.
  std::vector<QWidget*> TabRound() {
    std::vector<QWidget*> round;
    Key(Qt::Key_Tab);
    for (QWidget* focus = QApplication::focusWidget();
         focus != nullptr && std::find(round.begin(), round.end(), focus) == round.end();
         focus = QApplication::focusWidget()) {
      round.push_back(focus);
      Key(Qt::Key_Tab);
    }
    return round;
  }
};

TEST_F(QtKeyboardTest, TabGoesToEveryControlInTheOrderOfReading) {
  for (const char* language : {"en", "ar"}) {
    ShowBar({.language = language});
    std::size_t focusable = 0;
    for (const QWidget* widget : BarWidget()->findChildren<QWidget*>()) {
      focusable += widget->isVisible() && widget->focusPolicy() != Qt::NoFocus ? 1 : 0;
    }
    const std::vector<QWidget*> round = TabRound();
    EXPECT_GE(round.size(), 19u);
    EXPECT_EQ(round.size(), focusable);
    for (std::size_t i = 1; i < round.size(); ++i) {
      const QPoint before = Center(*round[i - 1]);
      const QPoint after = Center(*round[i]);
      const bool onwards =
          std::string(language) == "ar" ? after.x() < before.x() : after.x() > before.x();
      EXPECT_TRUE(onwards || after.y() > before.y() + 10)
          << language << round[i]->accessibleName().toStdString();
    }
    CloseBar();
  }
}

TEST_F(QtKeyboardTest, ArrowsFollowTheDirectionOfTheText) {
  for (const char* language : {"en", "ar"}) {
    ShowBar({.language = language});
    TabTo(Named(QString::fromUtf8(std::string(language) == "ar" ? "الكاميرا" : "Camera"))
              ->accessibleName());
    const int x = Center(*QApplication::focusWidget()).x();
    Key(Qt::Key_Right);
    EXPECT_GT(Center(*QApplication::focusWidget()).x(), x) << language;
    Key(Qt::Key_Left);
    EXPECT_EQ(Center(*QApplication::focusWidget()).x(), x) << language;
    Key(Qt::Key_Home);
    const QWidget* first = QApplication::focusWidget();
    Key(Qt::Key_End);
    Key(Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), first) << "after the last comes the first";
    CloseBar();
  }
}

TEST_F(QtKeyboardTest, SpaceAndEnterPress) {
  ShowBar();
  TabTo("Audio");
  Forget();
  Key(Qt::Key_Space);
  EXPECT_THAT(Told(), Contains("muteAudio"));
  EXPECT_EQ(LastPayload("muteAudio"), json({{"mute", true}}));
  Key(Qt::Key_Return);
  EXPECT_EQ(LastPayload("muteAudio"), json({{"mute", false}}));
  EXPECT_EQ(FocusName(), "Audio");
}

TEST_F(QtKeyboardTest, DisabledControlsAreLeftOut) {
  ShowBar();
  Send("setAudioStatus", {{"status", 2}});
  for (const QWidget* control : TabRound()) {
    EXPECT_NE(control->accessibleName(), "Audio");
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
  EXPECT_TRUE(BarWidget()->isActiveWindow());

  Forget();
  Key(Qt::Key_Return);
  Key(Qt::Key_Up);
  Key(Qt::Key_Return);
  EXPECT_EQ(LastPayload("selectCamera")["deviceId"], "c2");
  EXPECT_EQ(FocusName(), "Camera");
}

TEST_F(QtKeyboardTest, TheMouseLeavesTheFocusAlone) {
  ShowBar();
  TabTo("Audio");
  Click(Center(*Named("Host Controls")));
  ASSERT_GT(session.driver()->rowCount(), 0);
  EXPECT_EQ(FocusedRow(), "") << "no row is marked";
  Key(Qt::Key_Escape);
  EXPECT_EQ(FocusName(), "Host Controls");
}

TEST_F(QtKeyboardTest, AQuestionIsAnsweredOrLeft) {
  ShowBar();
  EnterSubRoom();
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
  for (const QWidget* control : TabRound()) {
    const QString name = control->accessibleName();
    auto* const seen = const_cast<QWidget*>(control);
    seen->setFocus(Qt::TabFocusReason);
    const QImage with = Grab(*seen);
    seen->clearFocus();
    const QImage without = Grab(*seen);
    int changed = 0;
    for (int x = 0; x < with.width(); ++x) {
      changed += with.pixel(x, 1) != without.pixel(x, 1) ? 1 : 0;
    }
    EXPECT_GT(changed, with.width() / 3) << name.toStdString();
  }
  Named("Chat")->setFocus(Qt::TabFocusReason);
  Picture("focus");
}

}  // namespace
