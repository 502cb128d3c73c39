// SPDX-License-Identifier: MIT
// A drop-down window: rows that scroll where they are too many for the screen. It goes when the
// user clicks elsewhere, presses Escape or turns to another program.
//
//     auto* list = new ListWindow(rows);
//     list->on_pick = [](std::size_t row) { ... };
//     list->ShowAt(opener_area, bar->geometry(), display_area);
#pragma once

#include <QScrollArea>
#include <QWidget>
#include <functional>
#include <vector>

#include "row_view.h"

namespace lorimel_qt {

class ListWindow : public QWidget {
 public:
  explicit ListWindow(std::vector<vellomar_widgets::OwnedButton> rows);

  std::function<void(std::size_t)> on_pick;
  std::function<void()> on_dismiss;

  RowView& View() { return *view_; }
  const std::vector<vellomar_widgets::OwnedButton>& Rows() const { return view_->Rows(); }

  // Below the opener's bar, above it where there is more room. A click on the opener does not
  // dismiss the window: the opener toggles it.
  void ShowAt(const QRect& opener, const QRect& bar, const QRect& display);

 protected:
  bool event(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  QScrollArea* scroll_;
  RowView* view_;
  QRect opener_;
};

}  // namespace lorimel_qt
