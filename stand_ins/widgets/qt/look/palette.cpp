// SPDX-License-Identifier: MIT
#include "qt/look/palette.h"

#include <array>

#include "qt/look/style.h"

namespace vellomar_widgets::qt {

void PaintSwatch(QPainter& painter, VELLOMAR_LORIMEL::EventKey color, const QRectF& area) {
  using VELLOMAR_LORIMEL::EventKey;
  static constexpr std::array kColors = {QColor(0xf2, 0x4d, 0x4d), QColor(0xf5, 0xb8, 0x3d),
                                         QColor(0x3e, 0xcb, 0x74), QColor(0x4c, 0x94, 0xff)};
  const QRectF circle = area.adjusted(2.5, 2.5, -2.5, -2.5);
  painter.setPen(QPen(style::kText, 1.5));
  const int index = static_cast<int>(color) - static_cast<int>(EventKey::SketchColor1);
  if (index < 0 || index >= static_cast<int>(kColors.size())) {
    painter.setBrush(Qt::NoBrush);
    painter.drawEllipse(circle);
    const double inset = circle.width() * 0.146;  // where the diagonal meets the circle
    painter.drawLine(circle.bottomLeft() + QPointF(inset, -inset),
                     circle.topRight() + QPointF(-inset, inset));
    return;
  }
  painter.setBrush(kColors[static_cast<std::size_t>(index)]);
  painter.drawEllipse(circle);
}

}  // namespace vellomar_widgets::qt
