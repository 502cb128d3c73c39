// SPDX-License-Identifier: MIT
#include "qt/bar/info_item.h"

#include <QStyle>
#include <algorithm>

#include "model/catalog.h"
#include "model/user_action.h"
#include "qt/access/names.h"
#include "qt/look/icons.h"
#include "qt/look/style.h"

namespace vellomar_widgets::qt {
namespace {

using VELLOMAR_LORIMEL::EventKey;

constexpr int kIconGap = 5;
constexpr int kSide = 4;  // room for the frame of the focus

void PaintStrength(QPainter& painter, int strength, const QRectF& area) {
  const QColor color = strength <= 1 ? style::kBad : strength == 2 ? style::kFair : style::kGood;
  for (int bar = 0; bar < kMostNetworkStrength; ++bar) {
    const double height = 4.0 + 2.7 * bar;
    style::PaintRounded(
        painter, QRectF(area.left() + 1 + bar * 3.7, area.bottom() - 2 - height, 2.6, height), 1,
        bar < strength ? color : style::kBorder);
  }
}

}  // namespace

InfoItem::InfoItem(EventKey key, QWidget* parent) : Control(key, parent) {
  setFont(style::Font(style::kInfoFont));
  SetPressable(key == EventKey::InfoText);
}

void InfoItem::SetRecord(const OwnedButton& record) {
  icon_ = IconFor(record);
  text_ = style::Label(record.text);
  Meaning meaning{.role = Key() == EventKey::InfoText ? QAccessible::PushButton
                          : text_.isEmpty()           ? QAccessible::Indicator
                                                      : QAccessible::StaticText};
  if (Key() == EventKey::NetworkStrength) {
    strength_ = NetworkStrengthOf(record);
    meaning.value = QStringLiteral("%1/%2").arg(strength_).arg(kMostNetworkStrength);
  } else {
    setEnabled(CanPress(record));
  }
  const QString tip = style::Label(record.tool_tip);
  setToolTip(style::ToolTip(tip.isEmpty() ? NameOf(record) : tip));
  SetMeaning(NameOf(record), tip, meaning);
  update();
}

void InfoItem::SetClock(const QString& clock) {
  text_ = clock;
  SetMeaning(clock, {}, {.role = QAccessible::Clock});
  update();
}

bool InfoItem::HasIcon() const {
  return !icon_.isEmpty() || Key() == EventKey::NetworkStrength;
}

int InfoItem::NaturalWidth() const {
  const bool is_clock = Key() == EventKey::GroupHeader;
  const QString measured = is_clock ? QString(text_.size(), QLatin1Char('0')) : text_;
  const int text = measured.isEmpty() ? 0 : fontMetrics().horizontalAdvance(measured) + 2;
  return 2 * kSide + (HasIcon() ? style::kSmallIcon : 0) + text +
         (HasIcon() && text > 0 ? kIconGap : 0);
}

void InfoItem::PaintMark(QPainter& painter, const QRectF& area) const {
  if (Key() == EventKey::NetworkStrength) {
    PaintStrength(painter, strength_, area);
  } else {
    PaintIcon(painter, icon_, area, layoutDirection());
  }
}

void InfoItem::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setLayoutDirection(layoutDirection());  // a screenshot's painter does not know it
  painter.setRenderHint(QPainter::Antialiasing);
  style::PaintRounded(painter, rect(), style::kButtonRadius, Fill());
  PaintFocus(painter);
  painter.setOpacity(isEnabled() ? 1.0 : style::kDisabledOpacity);
  const QRect inner = rect().adjusted(kSide, 0, -kSide, 0);
  int taken = 0;
  if (HasIcon()) {
    const QRect icon(inner.x(), (height() - style::kSmallIcon) / 2, style::kSmallIcon,
                     style::kSmallIcon);
    PaintMark(painter, QStyle::visualRect(layoutDirection(), inner, icon));
    taken = style::kSmallIcon + kIconGap;
  }
  const QRect text = QStyle::visualRect(layoutDirection(), inner, inner.adjusted(taken, 0, 0, 0));
  painter.setPen(Key() == EventKey::InfoText ? style::kText : style::kQuietText);
  painter.drawText(text, Qt::AlignVCenter | Qt::AlignLeading,
                   fontMetrics().elidedText(text_, Qt::ElideRight, std::max(0, text.width())));
}

}  // namespace vellomar_widgets::qt
