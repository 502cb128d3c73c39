// SPDX-License-Identifier: MIT
#include "qt/list/row_paint.h"

#include <QStyle>
#include <algorithm>

#include "model/user_action.h"
#include "qt/look/avatar.h"
#include "qt/look/icons.h"
#include "qt/look/palette.h"
#include "qt/look/style.h"

namespace vellomar_widgets::qt {
namespace {

constexpr int kRowHeight = 32;
constexpr int kCaptionHeight = 28;
constexpr int kSeparatorHeight = 9;
constexpr int kColorCell = 36;
constexpr int kColorSize = 24;
constexpr int kCaptionFont = 11;
constexpr int kSide = 12;
constexpr int kMark = 18;
constexpr int kMarkGap = 8;
constexpr int kExtraGap = 18;
constexpr int kEndMark = 14;  // an arrow, or a tick beside an icon

void PaintRadio(QPainter& painter, const QRectF& area, bool checked) {
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(checked ? style::kAccent : style::kQuietText, 1.6));
  painter.drawEllipse(area.adjusted(2, 2, -2, -2));
  if (checked) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(style::kAccent);
    painter.drawEllipse(area.adjusted(5.5, 5.5, -5.5, -5.5));
  }
}

void PaintCheckBox(QPainter& painter, const QRectF& area, bool checked) {
  painter.setBrush(checked ? QBrush(style::kCheckFill) : QBrush(Qt::NoBrush));
  painter.setPen(QPen(checked ? style::kAccent : style::kQuietText, 1.6));
  painter.drawRoundedRect(area.adjusted(2, 2, -2, -2), 3.5, 3.5);
  if (checked) {
    PaintIcon(painter, QStringLiteral("Check"), area.adjusted(2.5, 2.5, -2.5, -2.5));
  }
}

// A row that is on shows a tick: in the place of an icon, after the text where it has one.
bool HasEndTick(const OwnedButton& row) {
  return LookOf(row) == Look::kPlain && row.Has(VELLOMAR_LORIMEL::kStatusOn) &&
         !IconFor(row).isEmpty();
}

QString EndMark(const Rows& rows, std::size_t index) {
  return HasArrow(rows, index)     ? QStringLiteral("ChevronEnd")
         : HasEndTick(rows[index]) ? QStringLiteral("Check")
                                   : QString();
}

void PaintMark(QPainter& painter, const Rows& rows, std::size_t index, const QRectF& area,
               Qt::LayoutDirection direction) {
  const OwnedButton& row = rows[index];
  const QString icon = IconFor(row);
  switch (LookOf(row)) {
    case Look::kRadio:
      PaintRadio(painter, area, IsChecked(rows, index));
      break;
    case Look::kCheck:
      PaintCheckBox(painter, area, IsChecked(rows, index));
      break;
    case Look::kPerson:
      PaintAvatar(painter, area.adjusted(-2, -2, 2, 2), QString::fromStdString(row.icon_path),
                  style::Label(row.text));
      break;
    default:
      if (!icon.isEmpty() || IsChecked(rows, index)) {
        PaintIcon(painter, icon.isEmpty() ? QStringLiteral("Check") : icon, area, direction);
      }
  }
}

// Both end where the row ends; returns what is left for the label.
QRect PaintEnd(QPainter& painter, const Rows& rows, std::size_t index, const RowPlace& place,
               QRect free) {
  const auto visual = [&place](const QRect& area) {
    return QStyle::visualRect(place.direction, place.area, area);
  };
  if (const QString mark = EndMark(rows, index); !mark.isEmpty()) {
    const QRect area(free.right() + 1 - kEndMark, free.center().y() - kEndMark / 2 + 1, kEndMark,
                     kEndMark);
    PaintIcon(painter, mark, visual(area), place.direction);
    free.setRight(area.left() - kMarkGap);
  }
  const QFontMetrics metrics(RowFont());
  const QString extra =
      metrics.elidedText(style::Label(rows[index].extra_text), Qt::ElideRight, free.width() / 2);
  if (!extra.isEmpty()) {
    painter.setPen(style::kQuietText);
    painter.drawText(visual(free), Qt::AlignVCenter | Qt::AlignTrailing, extra);
    free.setRight(free.right() - metrics.horizontalAdvance(extra) - kExtraGap);
  }
  return free;
}

void PaintTexts(QPainter& painter, const Rows& rows, std::size_t index, const RowPlace& place) {
  painter.setFont(RowFont());
  const QRect free = PaintEnd(painter, rows, index, place,
                              place.area.adjusted(kSide + place.mark_width, 0, -kSide, 0));
  painter.setPen(style::kText);
  painter.drawText(QStyle::visualRect(place.direction, place.area, free),
                   Qt::AlignVCenter | Qt::AlignLeading,
                   painter.fontMetrics().elidedText(style::Label(rows[index].text), Qt::ElideRight,
                                                    std::max(0, free.width())));
}

void PaintCaption(QPainter& painter, const OwnedButton& row, const RowPlace& place) {
  painter.setFont(style::Font(kCaptionFont, QFont::DemiBold));
  painter.setPen(style::kQuietText);
  const QRect area = place.area.adjusted(kSide + 1, 4, -kSide, 0);
  painter.drawText(
      area, Qt::AlignVCenter | Qt::AlignLeading,
      painter.fontMetrics().elidedText(style::Label(row.text), Qt::ElideRight, area.width()));
}

void PaintColor(QPainter& painter, const OwnedButton& row, const QRect& area) {
  QRectF swatch(0, 0, kColorSize, kColorSize);
  swatch.moveCenter(QRectF(area).center());
  if (row.Has(VELLOMAR_LORIMEL::kStatusOn)) {
    style::PaintRounded(painter, area.adjusted(2, 2, -2, -2), style::kButtonRadius, style::kOn);
  }
  PaintSwatch(painter, row.key, swatch);
}

void PaintSeparator(QPainter& painter, const QRect& area) {
  painter.setPen(QPen(style::kLine, 1));
  painter.drawLine(area.left() + kSide, area.center().y(), area.right() - kSide, area.center().y());
}

void PaintBackground(QPainter& painter, const RowPlace& place) {
  if (place.is_current) {
    const QRect inner = place.area.adjusted(4, 1, -4, -1);
    style::PaintRounded(painter, inner, style::kButtonRadius - 1, style::kHover);
    if (place.has_focus) {
      style::PaintFocus(painter, inner);
    }
  }
}

}  // namespace

QFont RowFont() {
  return style::Font(style::kRowFont);
}

int HeightOf(Look look) {
  switch (look) {
    case Look::kNone:
      return 0;
    case Look::kCaption:
      return kCaptionHeight;
    case Look::kSeparator:
      return kSeparatorHeight;
    case Look::kSwatch:
      return kColorCell;
    default:
      return kRowHeight;
  }
}

int MarkWidth(const Rows& rows) {
  return std::any_of(rows.begin(), rows.end(), HasMark) ? kMark + kMarkGap : 0;
}

int NaturalRowWidth(const Rows& rows, std::size_t index, int mark_width) {
  const QFontMetrics metrics(RowFont());
  const int text = metrics.horizontalAdvance(style::Label(rows[index].text));
  const int extra = metrics.horizontalAdvance(style::Label(rows[index].extra_text));
  return 2 * kSide + mark_width + text + 2 + (extra > 0 ? extra + kExtraGap : 0) + kEndMark +
         kMarkGap;
}

void PaintRow(QPainter& painter, const Rows& rows, std::size_t index, const RowPlace& place) {
  const OwnedButton& row = rows[index];
  switch (LookOf(row)) {
    case Look::kNone:
      return;
    case Look::kSeparator:
      PaintSeparator(painter, place.area);
      return;
    case Look::kCaption:
      PaintCaption(painter, row, place);
      return;
    default:
      break;
  }
  PaintBackground(painter, place);
  painter.setOpacity(CanPress(row) ? 1.0 : style::kDisabledOpacity);
  if (LookOf(row) == Look::kSwatch) {
    PaintColor(painter, row, place.area);
  } else {
    const QRect mark(place.area.x() + kSide, place.area.y() + (kRowHeight - kMark) / 2, kMark,
                     kMark);
    PaintMark(painter, rows, index, QStyle::visualRect(place.direction, place.area, mark),
              place.direction);
    PaintTexts(painter, rows, index, place);
  }
  painter.setOpacity(1.0);
}

}  // namespace vellomar_widgets::qt
