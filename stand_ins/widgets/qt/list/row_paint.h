// SPDX-License-Identifier: MIT
// How one row of a drop-down window is painted.
//
//     PaintRow(painter, rows, index, {.area = area, .mark_width = MarkWidth(rows), ...});
#pragma once

#include <QFont>
#include <QPainter>
#include <QRect>

#include "qt/list/row_look.h"

namespace vellomar_widgets::qt {

struct RowPlace {
  QRect area;
  int mark_width = 0;  // of the column before the texts
  Qt::LayoutDirection direction = Qt::LeftToRight;
  bool is_current = false;  // under the mouse or reached with the keyboard
  bool has_focus = false;
};

// The height that a row of this look takes; 0 where it is not shown.
int HeightOf(Look look);
// The width at which nothing of the row is cut off.
int NaturalRowWidth(const Rows& rows, std::size_t index, int mark_width);
// The width of the column before the texts; 0 where no row needs it.
int MarkWidth(const Rows& rows);
QFont RowFont();

void PaintRow(QPainter& painter, const Rows& rows, std::size_t index, const RowPlace& place);

}  // namespace vellomar_widgets::qt
