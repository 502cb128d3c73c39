// SPDX-License-Identifier: MIT
// A floating bar: a row of buttons, under an info line on the main bar. It sits at the top centre
// of its area until the user drags it, and is as wide as its buttons need.
//
//     auto* bar = new BarWindow(MainButtons(), area, BarWindow::kWithInfoLine);
//     bar->on_press = [](EventKey key) { ... };
//     bar->SetRecords(records, mode);
#pragma once

#include <QWidget>
#include <functional>
#include <optional>
#include <span>
#include <vector>

#include "model/catalog.h"
#include "qt/bar/button_widget.h"
#include "qt/bar/expand_part.h"
#include "qt/bar/info_line.h"

namespace vellomar_widgets::qt {

class BarWindow : public QWidget {
 public:
  enum Kind { kWithInfoLine, kButtonsOnly };

  // `home` is where it may be; the user may drag it onto another screen.
  BarWindow(std::span<const ButtonSpec> specs, const QRect& home, Kind kind);

  std::function<void(VELLOMAR_LORIMEL::EventKey)> on_press;
  std::function<void(VELLOMAR_LORIMEL::EventKey)> on_expand;
  std::function<void()> on_drag_start;
  std::function<void()> on_drag_end;
  std::function<void()> on_moved;   // or changed in size
  std::function<void()> on_escape;  // the key
  std::function<void()> on_close;   // the user closes the window; it stays open until deleted

  // Takes over every record, shows, hides and places the buttons.
  void SetRecords(const Records& records, const BarMode& mode);
  void SetClock(const QString& clock);
  void SetMicVolume(int percent);

  // Puts the top edge's centre there, for a bar that the user has not dragged.
  void SetAnchor(const QPoint& top_center);
  // The screens have changed, or the bar that this one belongs to is on another one.
  void SetHome(const QRect& home);
  // The part of a screen in which the bar is, and all that opens from it has to be.
  const QRect& Area() const { return area_; }

  // Marks the control that opens this button's drop-down window; GroupHeader for none.
  void SetOpen(VELLOMAR_LORIMEL::EventKey key);
  // Gives that control the keyboard's focus.
  void FocusOpener(VELLOMAR_LORIMEL::EventKey key);
  // Whether it has the focus.
  bool IsOpenerFocused(VELLOMAR_LORIMEL::EventKey key) const;

  // Global rectangles; nothing where the button is not shown.
  std::optional<QRect> AreaOf(VELLOMAR_LORIMEL::EventKey key) const;
  // Of the part that opens the button's drop-down window: all of it where it has no part for that.
  QRect OpenerArea(VELLOMAR_LORIMEL::EventKey key) const;

 protected:
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void moveEvent(QMoveEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  struct Slot {
    ButtonWidget* button;
    ExpandPart* expand;
    bool shown;
    bool has_expand;
  };

  // Of each slot, 0 where it is not shown. Goes on without labels where they do not fit.
  std::vector<int> ButtonWidths(int available, bool labelled) const;
  int GapBefore(std::size_t index) const;
  int GapsWidth() const;
  void Arrange();
  void PlaceSlot(const Slot& slot, const QRect& place) const;
  void Place(const QSize& size);
  const Slot* FindSlot(VELLOMAR_LORIMEL::EventKey key) const;
  // What a press opens the button's drop-down window with; null where it is not shown.
  Control* OpenerOf(VELLOMAR_LORIMEL::EventKey key) const;
  void DragTo(const QPoint& wanted, const QPoint& pointer);
  void FocusEnd(bool first);
  void OpenFocused();

  QRect home_;
  QRect area_;
  QPoint anchor_;
  std::vector<Slot> slots_;
  InfoLine* info_line_ = nullptr;
  bool dragged_ = false;
  bool dragging_ = false;
  QPoint drag_offset_;
};

}  // namespace vellomar_widgets::qt
