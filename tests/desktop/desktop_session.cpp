// SPDX-License-Identifier: MIT
#include "desktop_session.h"

#include <gmock/gmock.h>

#include <QAccessible>
#include <QApplication>
#include <QWindow>

#include "desktop.h"

using testing::Contains;

namespace {

QWidget* WindowWithRole(QAccessible::Role role, const QWidget* but) {
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->isVisible() && window != but &&
        QAccessible::queryAccessibleInterface(window)->role() == role) {
      return window;
    }
  }
  return nullptr;
}

// Where the window system has it, which the window itself may not know yet.
QPoint PlaceOf(const QWidget& window) {
  const QString told = desktop::Run(
      QStringLiteral("xwininfo"), {QStringLiteral("-id"), QString::number(window.internalWinId())});
  const auto number = [&told](const char* name) {
    return told.section(QLatin1String(name), 1).section(QLatin1Char('\n'), 0, 0).toInt();
  };
  return {number("Absolute upper-left X:"), number("Absolute upper-left Y:")};
}

}  // namespace

bool DesktopTest::Eventually(const std::function<bool()>& is_so) {
  // The loop looks at the condition when something happens to it; to a window much happens without.
  const auto tick = session.loop().StartTimer(std::chrono::milliseconds(10), [] {});
  const bool came = session.loop().RunUntil(
      is_so, vellomar_host::EventLoop::Clock::now() + std::chrono::minutes(1));
  session.loop().Cancel(tick);
  return came;
}

void DesktopTest::AwaitRest() {
  // What the window manager tells the windows, and what they ask of it then.
  for (int round = 0; round < 2; ++round) {
    desktop::AwaitWindowManager();
    Settle();
  }
}

void DesktopTest::ExpectTold(const char* name, const json& payload) {
  const auto came = [&] {
    return testing::Value(Told(), Contains(name)) && LastPayload(name) == payload;
  };
  EXPECT_TRUE(Eventually(came)) << name << payload << ", but " << testing::PrintToString(Told());
}

void DesktopTest::ShowBar() {
  QtSession::ShowBar();
  ASSERT_EQ(QGuiApplication::platformName(), "xcb");
  UserPointsAt(*BarWidget(), Handle(*BarWidget()));
}

void DesktopTest::ShowBarWithLists() {
  ShowBar();
  Send("setMeetingSubType", {{"type", 3}});  // what the clear list of the sketch bar needs
  Send("setButtonVisible", {{"key", "SharingOptions"}, {"visible", true}});
  SendParticipants(3);
  Send("setAudioAndPlaybackInfo",
       {{"microphones", {{{"id", "mic-1"}, {"name", "Built-in Microphone"}}}},
        {"currentMicrophoneId", "mic-1"},
        {"speakers", {{{"id", "spk-1"}, {"name", "Built-in Speakers"}}}},
        {"currentSpeakerId", "spk-1"}});
  Send("setCameraInfo", {{"cameras",
                          {{{"id", "cam-1"}, {"name", "Front Camera"}},
                           {{"id", "cam-2"}, {"name", "Document Camera"}}}},
                         {"currentCameraId", "cam-1"}});
  Send("setInterpretationEnable", {{"enable", true}});
  Send("setInterpretationInfo", {{"languages", {{{"id", "de"}, {"name", "Deutsch"}}}},
                                 {"currentLanguageId", "de"},
                                 {"first", false},
                                 {"second", false},
                                 {"canManage", true}});
  Send("showSketchControlbar", {{"show", true}});
}

QWidget* DesktopTest::List() {
  return WindowWithRole(QAccessible::PopupMenu, nullptr);
}

QWidget* DesktopTest::SketchBar() {
  return WindowWithRole(QAccessible::ToolBar, BarWidget());
}

std::vector<QWidget*> DesktopTest::Openers(const QWidget& bar) {
  std::vector<QWidget*> openers;
  for (QWidget* control : bar.findChildren<QWidget*>()) {
    if (control->isVisible() && control->isEnabled() && control->focusPolicy() != Qt::NoFocus &&
        QAccessible::queryAccessibleInterface(control)->state().hasPopup) {
      openers.push_back(control);
    }
  }
  return openers;
}

QWidget* DesktopTest::OpenerOf(int key) {
  for (QWidget* opener : Openers(*BarWidget())) {
    if (Area(key).contains(Center(*opener))) {
      return opener;
    }
  }
  return nullptr;
}

void DesktopTest::UserPointsAt(const QWidget& widget, const QPoint& at) {
  const QWidget& window = *widget.window();
  // A window that is shown or moved is there when the window manager has seen to it.
  ASSERT_TRUE(Eventually([&] {
    return window.pos() == PlaceOf(window) &&
           QGuiApplication::topLevelAt(widget.mapToGlobal(at)) == window.windowHandle();
  })) << "something else is there: "
      << widget.accessibleName().toStdString();
  const QPoint point = widget.mapToGlobal(at);
  desktop::Run(QStringLiteral("xdotool"), {QStringLiteral("mousemove"), QString::number(point.x()),
                                           QString::number(point.y())});
  ASSERT_TRUE(Eventually([&widget] { return widget.underMouse(); }))
      << "the pointer is not noticed: " << widget.accessibleName().toStdString();
}

void DesktopTest::UserClicks(const QWidget& widget, const QPoint& at) {
  UserPointsAt(widget, at);
  AwaitRest();
  desktop::Run(QStringLiteral("xdotool"), {QStringLiteral("click"), QStringLiteral("1")});
}

void DesktopTest::UserDragsBar(const QPoint& by) {
  constexpr int kSteps = 8;
  UserPointsAt(*BarWidget(), Handle(*BarWidget()));
  const QPoint from = BarWidget()->mapToGlobal(Handle(*BarWidget()));
  QStringList arguments = {QStringLiteral("mousedown"), QStringLiteral("1")};
  for (int step = 1; step <= kSteps; ++step) {
    const QPoint point = from + by * step / kSteps;
    arguments << QStringLiteral("mousemove") << QString::number(point.x())
              << QString::number(point.y());
  }
  arguments << QStringLiteral("mouseup") << QStringLiteral("1");
  desktop::Run(QStringLiteral("xdotool"), arguments);
}

void DesktopTest::UserPicks(const std::string& row) {
  ASSERT_TRUE(Eventually([] { return List() != nullptr && List()->isActiveWindow(); }));
  UserClicks(*List(), List()->mapFromGlobal(RowCenter(row)));
}

void DesktopTest::AwaitFocus(const QWidget& window) {
  ASSERT_TRUE(Eventually([&] { return QApplication::activeWindow() == &window; }))
      << "the window has no focus";
  AwaitRest();
}

void DesktopTest::UserPresses(const QWidget& window, const char* key) {
  AwaitFocus(window);
  desktop::Run(QStringLiteral("xdotool"), {QStringLiteral("key"), QString::fromLatin1(key)});
}

void DesktopTest::UserTabsTo(const QWidget& control) {
  constexpr int kMost = 60;
  AwaitFocus(*control.window());
  for (int i = 0; i < kMost && QApplication::focusWidget() != &control; ++i) {
    const QWidget* before = QApplication::focusWidget();
    desktop::Run(QStringLiteral("xdotool"), {QStringLiteral("key"), QStringLiteral("Tab")});
    ASSERT_TRUE(Eventually([&] { return QApplication::focusWidget() != before; }));
  }
  ASSERT_EQ(QApplication::focusWidget(), &control) << control.accessibleName().toStdString();
}

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  class Desktop : public testing::Environment {
    void SetUp() override { desktop::Start(); }
  };
  testing::AddGlobalTestEnvironment(new Desktop);  // which takes it
  return RUN_ALL_TESTS();
}
