// SPDX-License-Identifier: MIT
#include "qt/look/avatar.h"

#include <QDateTime>
#include <QFileInfo>
#include <QImageReader>
#include <QPainterPath>
#include <QPixmap>
#include <QPixmapCache>
#include <algorithm>
#include <cmath>

#include "qt/look/style.h"

namespace vellomar_widgets::qt {
namespace {

// The middle of the picture, as a square of this many pixels.
QPixmap ReadSquare(const QString& path, int pixels) {
  QImageReader reader(path);
  reader.setAutoTransform(true);
  const QSize size = reader.size();
  if (size.isValid()) {
    reader.setScaledSize(size.scaled(pixels, pixels, Qt::KeepAspectRatioByExpanding));
  }
  const QImage image = reader.read();
  if (image.isNull()) {
    return {};
  }
  const int side = std::min(image.width(), image.height());
  const QRect middle((image.width() - side) / 2, (image.height() - side) / 2, side, side);
  return QPixmap::fromImage(
      image.copy(middle).scaled(pixels, pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
}

// Null where there is no picture: that is remembered too.
QPixmap Picture(const QString& path, int pixels) {
  const QFileInfo file(path);
  if (path.isEmpty() || !file.isFile()) {
    return {};
  }
  const QString key = QStringLiteral("lorimel/%1/%2/%3")
                          .arg(pixels)
                          .arg(file.lastModified().toMSecsSinceEpoch())
                          .arg(path);
  QPixmap picture;
  if (!QPixmapCache::find(key, &picture)) {
    picture = ReadSquare(path, pixels);
    QPixmapCache::insert(key, picture);
  }
  return picture;
}

// The first character, which may be two units long.
QString Initial(const QString& name) {
  const bool is_pair = name.size() > 1 && name.at(0).isHighSurrogate();
  return name.left(is_pair ? 2 : 1).toUpper();
}

}  // namespace

QColor AvatarColor(const QString& name) {
  constexpr std::size_t kSeed = 0;  // the same colour at every start
  return QColor::fromHsv(static_cast<int>(qHash(name, kSeed) % 360), 140, 110);
}

void PaintAvatar(QPainter& painter, const QRectF& area, const QString& path, const QString& name) {
  const double scale = std::abs(painter.deviceTransform().m11());
  const QPixmap picture = Picture(path, static_cast<int>(std::lround(area.width() * scale)));
  painter.save();
  painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
  if (picture.isNull()) {
    style::PaintRounded(painter, area, area.width() / 2, AvatarColor(name));
    painter.setFont(style::Font(static_cast<int>(area.height() * 0.46), QFont::DemiBold));
    painter.setPen(Qt::white);
    painter.drawText(area, Qt::AlignCenter, Initial(name));
  } else {
    QBrush brush(picture);
    const double to_area = area.width() / picture.width();
    brush.setTransform(QTransform(to_area, 0, 0, to_area, area.x(), area.y()));
    painter.setPen(Qt::NoPen);
    painter.setBrush(brush);
    painter.drawEllipse(area);
  }
  painter.restore();
}

}  // namespace vellomar_widgets::qt
