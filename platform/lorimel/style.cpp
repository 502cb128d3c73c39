// SPDX-License-Identifier: MIT
#include "style.h"

namespace lorimel_qt::style {

QFont Font(int pixel_size, QFont::Weight weight) {
  QFont font;
  font.setFamilies({QStringLiteral("Segoe UI"), QStringLiteral("Noto Sans"),
                    QStringLiteral("Noto Sans CJK SC"), QStringLiteral("DejaVu Sans")});
  font.setPixelSize(pixel_size);
  font.setWeight(weight);
  return font;
}

QString Label(const std::string& utf8) {
  constexpr std::size_t kMostBytes = 2'000;
  constexpr qsizetype kMostCharacters = 200;
  return QString::fromStdString(utf8.substr(0, kMostBytes)).simplified().left(kMostCharacters);
}

QString ToolTip(const QString& plain) {
  return plain.isEmpty() ? QString() : QStringLiteral("<span>%1</span>").arg(plain.toHtmlEscaped());
}

QString Initial(const QString& name) {
  if (name.isEmpty()) {
    return {};
  }
  const bool is_pair = name.size() > 1 && name.at(0).isHighSurrogate();
  return name.left(is_pair ? 2 : 1).toUpper();
}

QColor AvatarColor(const QString& name) {
  constexpr std::size_t kSeed = 0;  // the same colour at every start
  return QColor::fromHsv(static_cast<int>(qHash(name, kSeed) % 360), 140, 150);
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

}  // namespace lorimel_qt::style
