// SPDX-License-Identifier: MIT
#include "qt/look/style.h"

namespace vellomar_widgets::qt::style {

QFont Font(int pixel_size, QFont::Weight weight) {
  QFont font;
  font.setFamilies({QStringLiteral("Segoe UI"), QStringLiteral("Noto Sans"),
                    QStringLiteral("Noto Sans Arabic"), QStringLiteral("Noto Sans CJK SC"),
                    QStringLiteral("DejaVu Sans")});
  font.setPixelSize(pixel_size);
  font.setWeight(weight);
  return font;
}

namespace {

QString OnOneLine(const std::string& utf8, qsizetype most) {
  // A cut through a character leaves a mark at the end, which the second cut takes off.
  const auto bytes = static_cast<std::size_t>(most) * 4 + 8;
  const QString line = QString::fromStdString(utf8.substr(0, bytes)).simplified();
  return line.size() <= most ? line : line.left(most - 1) + QChar(0x2026);
}

}  // namespace

QString Label(const std::string& utf8) {
  return OnOneLine(utf8, 200);
}

QString Message(const std::string& utf8) {
  return OnOneLine(utf8, 2'000);
}

QString ToolTip(const QString& plain) {
  return plain.isEmpty() ? QString() : QStringLiteral("<span>%1</span>").arg(plain.toHtmlEscaped());
}

void PaintPanel(QPainter& painter, const QRect& area) {
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(kBorder, 1));
  painter.setBrush(kBackground);
  painter.drawRoundedRect(QRectF(area).adjusted(0.5, 0.5, -0.5, -0.5), kWindowRadius,
                          kWindowRadius);
}

void PaintRounded(QPainter& painter, const QRectF& area, double radius, const QColor& fill) {
  painter.setPen(Qt::NoPen);
  painter.setBrush(fill);
  painter.drawRoundedRect(area, radius, radius);
}

void PaintFocus(QPainter& painter, const QRectF& area) {
  painter.setPen(QPen(kFocus, 2));
  painter.setBrush(Qt::NoBrush);
  painter.drawRoundedRect(area.adjusted(1, 1, -1, -1), kButtonRadius - 1, kButtonRadius - 1);
}

}  // namespace vellomar_widgets::qt::style
