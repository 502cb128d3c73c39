// SPDX-License-Identifier: MIT
#include "qt/list/search_field.h"

#include <QPainter>
#include <QStyle>

#include "qt/look/icons.h"
#include "qt/look/style.h"

namespace vellomar_widgets::qt {
namespace {

constexpr int kIconSide = 8;

constexpr char kFieldStyle[] =
    "QLineEdit { background: #2a2f37; color: #f0f2f5; border: 1px solid #79828f;"
    " border-radius: 6px; padding: 0 6px; selection-background-color: #226bd6; }"
    "QLineEdit:focus { border: 2px solid #f0f2f5; }";

}  // namespace

SearchField::SearchField(QWidget* parent) : QLineEdit(parent) {
  setFont(style::Font(style::kRowFont));
  setStyleSheet(QLatin1String(kFieldStyle));
  setAccessibleName(QStringLiteral("Search"));
  setMaxLength(100);
}

void SearchField::paintEvent(QPaintEvent* event) {
  const int icon_room = kIconSide + style::kSmallIcon;
  const bool mirrored = layoutDirection() == Qt::RightToLeft;
  const QMargins margins(mirrored ? 0 : icon_room, 0, mirrored ? icon_room : 0, 0);
  if (textMargins() != margins) {
    setTextMargins(margins);
  }
  QLineEdit::paintEvent(event);
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const QRect icon(kIconSide, (height() - style::kSmallIcon) / 2, style::kSmallIcon,
                   style::kSmallIcon);
  PaintIcon(painter, QStringLiteral("Search"), QStyle::visualRect(layoutDirection(), rect(), icon));
}

}  // namespace vellomar_widgets::qt
