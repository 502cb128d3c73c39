// SPDX-License-Identifier: MIT
#include "qt/screenshot.h"

#include <QImage>
#include <QLinearGradient>
#include <QPainter>
#include <QWidget>

namespace vellomar_widgets::qt {
namespace {

constexpr int kMargin = 24;
constexpr double kScale = 2.0;

void PaintBackdrop(QPainter& painter, const QRectF& area) {
  QLinearGradient sky(area.topLeft(), area.bottomRight());
  sky.setColorAt(0.0, QColor(0x8d, 0xa6, 0xc4));
  sky.setColorAt(1.0, QColor(0xb9, 0xae, 0xc6));
  painter.fillRect(area, sky);
}

// Rings that fade outwards stand for the shadow that a desktop puts under a window.
void PaintShadow(QPainter& painter, const QRectF& window) {
  painter.setPen(Qt::NoPen);
  painter.setBrush(QColor(0, 0, 0, 9));
  for (int spread = 10; spread > 0; spread -= 2) {
    painter.drawRoundedRect(window.adjusted(-spread, -spread + 4, spread, spread + 4), 10 + spread,
                            10 + spread);
  }
}

}  // namespace

bool SaveScreenshot(const std::vector<QWidget*>& windows, const QString& path) {
  QRect area;
  for (const QWidget* window : windows) {
    area |= window->geometry();
  }
  if (area.isEmpty()) {
    return false;
  }
  area += QMargins(kMargin, kMargin, kMargin, kMargin);
  QImage image(area.size() * kScale, QImage::Format_RGB32);
  image.setDevicePixelRatio(kScale);
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  PaintBackdrop(painter, QRectF(QPointF(0, 0), area.size()));
  for (QWidget* window : windows) {
    const QPoint place = window->pos() - area.topLeft();
    PaintShadow(painter, QRectF(place, window->size()));
    window->render(&painter, place, QRegion(), QWidget::DrawChildren);
  }
  painter.end();
  return image.save(path, "PNG");
}

}  // namespace vellomar_widgets::qt
