// SPDX-License-Identifier: MIT
// The rows of a drop-down window: captions, separators, radio, check, device and action rows, and
// the samples of the colour palette side by side.
//
//     auto* view = new RowView(rows, parent);
//     view->on_pick = [](std::size_t index) { ... };
#pragma once

#include <QWidget>
#include <cstddef>
#include <functional>
#include <vector>

#include "owned_button.h"

namespace lorimel_qt {

class RowView : public QWidget {
 public:
  RowView(std::vector<vellomar_widgets::OwnedButton> rows, QWidget* parent);

  std::function<void(std::size_t)> on_pick;
  std::function<void(const QRect&)> on_current_moved;  // by the keyboard

  const std::vector<vellomar_widgets::OwnedButton>& Rows() const { return rows_; }
  void SetRows(std::vector<vellomar_widgets::OwnedButton> rows);

  QSize sizeHint() const override;

  void MoveCurrent(int step);
  void PickCurrent();

 protected:
  bool event(QEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void Place();
  bool CanPick(int index) const;
  int RowAt(const QPoint& point) const;
  int MarkWidth() const;
  QRect TextArea(const QRect& row) const;
  void SetCurrent(int index);
  void PaintRow(QPainter& painter, std::size_t index) const;
  void PaintCaption(QPainter& painter, std::size_t index) const;
  void PaintMark(QPainter& painter, std::size_t index, const QRectF& area) const;
  void PaintTexts(QPainter& painter, std::size_t index) const;

  std::vector<vellomar_widgets::OwnedButton> rows_;
  std::vector<QRect> areas_;  // of each row; empty for those that are not shown
  int current_ = -1;
  int pressed_ = -1;
};

// Whether the drop-down window stays open after a pick: settings are often changed together.
bool StaysOpenAfterPick(VELLOMAR_LORIMEL::EventKey key);

}  // namespace lorimel_qt
