// SPDX-License-Identifier: MIT
// The rows of a drop-down window: captions, separators, radio, check, device, person and action
// rows, and the samples of the colour palette side by side. They are painted, not widgets: a
// meeting may have thousands of participants.
//
//     auto* view = new RowView(rows, bar->layoutDirection());
//     view->on_pick = [](std::size_t index) { ... };
#pragma once

#include <QWidget>
#include <cstddef>
#include <functional>
#include <vector>

#include "qt/list/row_look.h"

namespace vellomar_widgets::qt {

class RowView : public QWidget {
 public:
  // `direction` is the bar's: names of devices and people say nothing about the user's language.
  RowView(Rows rows, Qt::LayoutDirection direction);

  std::function<void(std::size_t)> on_pick;
  std::function<void(const QRect&)> on_current_moved;  // by the keyboard

  const Rows& AllRows() const { return rows_; }
  // Keeps the current row where there is still one like it.
  void SetRows(Rows rows);
  // Shows only those participants whose names contain the text; the empty text shows all.
  void SetFilter(const QString& text);

  QSize sizeHint() const override;
  // Empty where the row is not shown.
  QRect AreaOf(std::size_t index) const;
  // -1: none.
  int RowAt(const QPoint& point) const;
  int Current() const { return current_; }
  bool IsCurrentByKey() const { return current_ >= 0 && by_key_; }
  bool CanPick(int index) const;

  // The user's moves with the keyboard.
  void FocusFirst();
  void MoveCurrent(int step);
  void PickCurrent();
  // Takes arrows, Home, End, the page keys, Space and Enter. False for others.
  bool HandleKey(const QKeyEvent& event);
  // The Tab key goes from row to row, as in a menu, where there is nothing else to go to.
  void SetTabMoves(bool moves) { tab_moves_ = moves; }

 protected:
  bool event(QEvent* event) override;
  bool focusNextPrevChild(bool next) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  bool PassesFilter(std::size_t index) const;
  int FindLike(const OwnedButton& row) const;
  void Measure();
  void Place();
  void SetCurrent(int index, bool by_key);

  Rows rows_;
  std::vector<QRect> areas_;  // of each row; empty for those that are not shown
  QString filter_;
  int mark_width_ = 0;
  int natural_width_ = 0;
  int current_ = -1;
  int pressed_ = -1;
  bool by_key_ = false;  // how the current row became it
  bool tab_moves_ = true;
};

}  // namespace vellomar_widgets::qt
