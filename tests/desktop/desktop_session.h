// SPDX-License-Identifier: MIT
// A bar on a desktop, used by a pointer and a keyboard that the window system and the window
// manager cannot tell from real ones. Each function that acts waits until what it needs is there,
// and the tests wait for what has to come of it: nothing waits for a time.
//
//     TEST_F(DesktopTest, ...) {
//       ShowBars();
//       UserClicks(*Named("Audio"));
//       ExpectTold("muteAudio", {{"mute", true}});
//     }
#pragma once

#include <functional>

#include "support/qt_session.h"

class DesktopTest : public QtSession {
 protected:
  // Runs plug-in and windows until it is so; false where it does not come to be.
  bool Eventually(const std::function<bool()>& is_so);
  // Until windows and window manager have nothing to do: what is pressed while the focus goes from
  // one window to another may reach neither.
  void AwaitRest();
  // Until the window has the focus, and keeps it.
  void AwaitFocus(const QWidget& window);
  // The notification comes, or has come since Forget, with this payload.
  void ExpectTold(const char* name, const json& payload = json::object());

  // The bar and the sketch bar.
  void ShowBars();
  // Null where there is none.
  static QWidget* List() { return OtherWindow(QAccessible::PopupMenu); }
  static QWidget* SketchBar() { return OtherWindow(QAccessible::ToolBar); }
  // A list is open and has the focus.
  void AwaitList();
  // Where a bar is bare: left of its first button.
  static QPoint Handle(const QWidget& bar) { return {3, bar.height() / 2}; }

  // The pointer; `at` is in the widget.
  void UserPointsAt(const QWidget& widget, const QPoint& at);
  void UserClicks(const QWidget& widget, const QPoint& at);
  void UserClicks(const QWidget& control) { UserClicks(control, control.rect().center()); }
  void UserDragsBar(const QPoint& by);

  // The keyboard, by the window system's names: "Tab", "alt+F4". The window has the focus, or gets
  // it.
  void UserPresses(const QWidget& window, const char* key);
  // Presses Tab until the control has the focus.
  void UserTabsTo(const QWidget& control);

 private:
  static QWidget* OtherWindow(QAccessible::Role role);
};
