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

#include "button_widget.h"
#include "catalog.h"
#include "info_line.h"

namespace lorimel_qt {

class BarWindow : public QWidget {
 public:
  enum Kind { kWithInfoLine, kButtonsOnly };

  BarWindow(std::span<const ButtonSpec> specs, const QRect& area, Kind kind);

  std::function<void(VELLOMAR_LORIMEL::EventKey)> on_press;
  std::function<void(VELLOMAR_LORIMEL::EventKey)> on_expand;
  std::function<void()> on_drag_start;
  std::function<void()> on_moved;  // or changed in size
  std::function<void()> on_close;  // the user closes the window; it stays open until deleted

  // Takes over every record, shows, hides and places the buttons.
  void SetRecords(const Records& records, const BarMode& mode);
  void SetClock(const QString& clock);
  void SetMicVolume(int percent);

  // Puts the top edge's centre there, for a bar that the user has not dragged.
  void SetAnchor(const QPoint& top_center);

  // Global rectangles; nothing where the button is not shown.
  std::optional<QRect> AreaOf(VELLOMAR_LORIMEL::EventKey key) const;
  // Of the part that opens the button's drop-down window: all of it where it has no part for that.
  QRect OpenerArea(VELLOMAR_LORIMEL::EventKey key) const;

 protected:
  void closeEvent(QCloseEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void moveEvent(QMoveEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  struct Slot {
    ButtonWidget* button;
    bool shown;
  };

  // Of each slot, 0 where it is not shown. Goes on without labels where they do not fit.
  std::vector<int> ButtonWidths(int available, bool labelled) const;
  int GapBefore(std::size_t index) const;
  int GapsWidth() const;
  void Arrange();
  void Place(const QSize& size);

  QRect area_;
  QPoint anchor_;
  std::vector<Slot> slots_;
  InfoLine* info_line_ = nullptr;
  bool dragged_ = false;
  bool dragging_ = false;
  QPoint drag_offset_;
};

}  // namespace lorimel_qt
