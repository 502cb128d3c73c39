// SPDX-License-Identifier: MIT
#include "desktop/desktop_session.h"

#include <gmock/gmock.h>

#include <QAccessible>
#include <QApplication>
#include <QWindow>

#include "desktop/desktop.h"

using testing::Contains;

namespace {

// Where the window system has it, which the window itself may not know yet.
QPoint PlaceOf(const QWidget& window) {
  const QString told = desktop::Run("xwininfo", {"-id", QString::number(window.internalWinId())});
  const auto number = [&told](const char* name) {
    return told.section(name, 1).section('\n', 0, 0).toInt();
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

void DesktopTest::ShowBars() {
  ShowBar();
  ASSERT_EQ(QGuiApplication::platformName(), "xcb");
  Send("showSketchControlbar", {{"show", true}});
  UserPointsAt(*BarWidget(), Handle(*BarWidget()));
}

QWidget* DesktopTest::OtherWindow(QAccessible::Role role) {
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->isVisible() && window != BarWidget() &&
        QAccessible::queryAccessibleInterface(window)->role() == role) {
      return window;
    }
  }
  return nullptr;
}

void DesktopTest::AwaitList() {
  ASSERT_TRUE(Eventually([] { return List() != nullptr && List()->isActiveWindow(); }));
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
  desktop::Xdotool({"mousemove", QString::number(point.x()), QString::number(point.y())});
  ASSERT_TRUE(Eventually([&widget] { return widget.underMouse(); }))
      << "the pointer is not noticed: " << widget.accessibleName().toStdString();
}

void DesktopTest::UserClicks(const QWidget& widget, const QPoint& at) {
  UserPointsAt(widget, at);
  AwaitRest();
  desktop::Xdotool({"click", "1"});
}

void DesktopTest::UserDragsBar(const QPoint& by) {
  constexpr int kSteps = 8;
  UserPointsAt(*BarWidget(), Handle(*BarWidget()));
  const QPoint step = by / kSteps;
  QStringList arguments = {"mousedown", "1"};
  for (int i = 0; i < kSteps; ++i) {
    arguments += {"mousemove_relative", "--", QString::number(step.x()), QString::number(step.y())};
  }
  desktop::Xdotool(arguments + QStringList{"mouseup", "1"});
}

void DesktopTest::AwaitFocus(const QWidget& window) {
  ASSERT_TRUE(Eventually([&] { return QApplication::activeWindow() == &window; }))
      << "the window has no focus";
  AwaitRest();
}

void DesktopTest::UserPresses(const QWidget& window, const char* key) {
  AwaitFocus(window);
  desktop::Xdotool({"key", QString::fromLatin1(key)});
}

void DesktopTest::UserTabsTo(const QWidget& control) {
  constexpr int kMost = 60;
  AwaitFocus(*control.window());
  for (int i = 0; i < kMost && QApplication::focusWidget() != &control; ++i) {
    const QWidget* before = QApplication::focusWidget();
    desktop::Xdotool({"key", "Tab"});
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
