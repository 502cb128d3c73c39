// SPDX-License-Identifier: MIT
// A drop-down window: rows that scroll where they are too many for the screen, under a search field
// where they are many people. It goes when the user clicks elsewhere, presses Escape or turns to
// another program.
//
//     auto* list = new ListWindow(rows, {.name = "Camera", .direction = bar->layoutDirection()});
//     list->on_pick = [](std::size_t row) { ... };
//     list->ShowAt(opener_area, bar->geometry(), display_area);
#pragma once

#include <QLineEdit>
#include <QScrollArea>
#include <QWidget>
#include <functional>

#include "qt/list/row_view.h"

namespace vellomar_widgets::qt {

struct ListLook {
  QString name;                   // for assistive technology
  Qt::LayoutDirection direction;  // of the bar
};

class ListWindow : public QWidget {
 public:
  ListWindow(Rows rows, const ListLook& look);

  std::function<void(std::size_t)> on_pick;
  std::function<void()> on_dismiss;  // the user is elsewhere
  std::function<void()> on_escape;   // the user goes back to the bar

  RowView& View() { return *view_; }
  const Rows& AllRows() const { return view_->AllRows(); }
  void SetRows(Rows rows, Qt::LayoutDirection direction);

  // Below the opener's bar, above it where there is more room. A click on the opener does not
  // dismiss the window: the opener toggles it.
  void ShowAt(const QRect& opener, const QRect& bar, const QRect& display);
  // The same for a list that is shown: its button has moved.
  void MoveTo(const QRect& opener, const QRect& bar, const QRect& display);
  // For a list that was opened with the keyboard.
  void FocusFirstRow() { view_->FocusFirst(); }

 protected:
  bool event(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  int SearchHeight() const;
  void Place();

  QLineEdit* search_ = nullptr;  // where there are many people
  QScrollArea* scroll_;
  RowView* view_;
  QRect opener_;
  QRect bar_;
  QRect display_;
};

}  // namespace vellomar_widgets::qt
