// SPDX-License-Identifier: MIT
#include "info_line.h"

#include <QHelpEvent>
#include <QMouseEvent>
#include <QStyle>
#include <QToolTip>
#include <algorithm>
#include <array>

#include "icons.h"
#include "style.h"
#include "user_action.h"

namespace lorimel_qt {
namespace {

using VELLOMAR_LORIMEL::EventKey;
using vellomar_widgets::OwnedButton;

constexpr int kItemGap = 12;
constexpr int kIconGap = 5;
constexpr int kSidePadding = 8;
constexpr int kLeastText = 30;
constexpr int kMostStrength = 4;

struct InfoSpec {
  EventKey key;
  bool icon_alone;  // shown without a text too
  bool can_elide;
};

// In their order.
constexpr std::array kItems = {
    InfoSpec{EventKey::NetworkStrength, true, false},
    InfoSpec{EventKey::RecordIndicator, true, false},
    InfoSpec{EventKey::LiveIndicator, true, false},
    InfoSpec{EventKey::SharingIndicator, true, false},
    InfoSpec{EventKey::PauseIndicator, true, false},
    InfoSpec{EventKey::ShareMeetingName, false, true},
    InfoSpec{EventKey::SubRoomName, false, true},
    InfoSpec{EventKey::InfoText, true, true},
};

// The record's status is the strength itself, so no bit of it hides anything; 0 is not measured.
int StrengthOf(const OwnedButton& record) {
  return std::clamp(record.status, 0, kMostStrength);
}

bool IsItemShown(const OwnedButton& record, bool icon_alone) {
  if (record.key == EventKey::NetworkStrength) {
    return StrengthOf(record) > 0;
  }
  return !record.Has(VELLOMAR_LORIMEL::kStatusHidden) && (icon_alone || !record.text.empty());
}

void PaintStrength(QPainter& painter, int strength, const QRectF& area) {
  const QColor color = strength <= 1 ? style::kBad : strength == 2 ? style::kFair : style::kGood;
  for (int bar = 0; bar < kMostStrength; ++bar) {
    const double height = 4.0 + 2.7 * bar;
    style::PaintRounded(
        painter, QRectF(area.left() + 1 + bar * 3.7, area.bottom() - 2 - height, 2.6, height), 1,
        bar < strength ? color : style::kBorder);
  }
}

}  // namespace

InfoLine::InfoLine(QWidget* parent) : QWidget(parent) {
  setMouseTracking(true);
  setFont(style::Font(12));
  clock_.key = EventKey::GroupHeader;
}

bool InfoLine::Shows(EventKey key) {
  return std::any_of(kItems.begin(), kItems.end(),
                     [key](const InfoSpec& spec) { return spec.key == key; });
}

void InfoLine::Measure(Item& item) const {
  const bool has_icon = !item.icon.isEmpty() || item.key == EventKey::NetworkStrength;
  // The clock keeps its width while the digits change.
  const QString measured =
      item.key == EventKey::GroupHeader ? QString(item.text.size(), QLatin1Char('0')) : item.text;
  const int text = fontMetrics().horizontalAdvance(measured) + (measured.isEmpty() ? 0 : 2);
  item.natural_width = (has_icon ? style::kSmallIcon : 0) + text +
                       (has_icon && text > 0 ? kIconGap : 0) +
                       (item.has_expand ? style::kExpandWidth : 0);
}

void InfoLine::AddItem(const Records& records, EventKey key, bool icon_alone, bool can_elide) {
  const auto found = records.find(key);
  if (found == records.end() || !IsItemShown(found->second, icon_alone)) {
    return;
  }
  const OwnedButton& record = found->second;
  Item item{};
  item.key = key;
  item.icon = IconFor(record);
  item.text = style::Label(record.text);
  const QString tip = style::Label(record.tool_tip);
  item.tool_tip = tip.isEmpty() ? item.text : tip;
  item.can_press = key == EventKey::InfoText && vellomar_widgets::CanPress(record);
  item.has_expand = HasExpandPart(record);
  item.can_elide = can_elide;
  item.strength = StrengthOf(record);
  Measure(item);
  items_.push_back(item);
}

void InfoLine::SetRecords(const Records& records) {
  items_.clear();
  for (const InfoSpec& spec : kItems) {
    AddItem(records, spec.key, spec.icon_alone, spec.can_elide);
  }
  Place();
}

void InfoLine::SetClock(const QString& clock) {
  clock_.text = clock;
  Measure(clock_);
  Place();
}

int InfoLine::NaturalWidth() const {
  int width = clock_.natural_width + 2 * kSidePadding;
  for (const Item& item : items_) {
    width += item.natural_width + kItemGap;
  }
  return width;
}

// Centred; where the line is too narrow the names give way, each by the same share.
void InfoLine::Place() {
  int excess = NaturalWidth() - width();
  int elastic = static_cast<int>(
      std::count_if(items_.begin(), items_.end(), [](const Item& item) { return item.can_elide; }));
  int left = std::max(kSidePadding, kSidePadding - excess / 2);
  for (Item& item : items_) {
    int item_width = item.natural_width;
    if (excess > 0 && item.can_elide && !item.text.isEmpty()) {
      const int give = std::min(excess / elastic, std::max(0, item_width - kLeastText));
      item_width -= give;
      excess -= give;
    }
    elastic -= item.can_elide ? 1 : 0;
    const QRect logical(left, 0, item_width, height());
    item.area = QStyle::visualRect(layoutDirection(), rect(), logical);
    item.expand_area = {};
    if (item.has_expand) {
      item.expand_area = QStyle::visualRect(
          layoutDirection(), rect(),
          QRect(logical.right() + 1 - style::kExpandWidth, 0, style::kExpandWidth, height()));
    }
    left += item_width + kItemGap;
  }
  clock_.area =
      QStyle::visualRect(layoutDirection(), rect(), QRect(left, 0, clock_.natural_width, height()));
  update();
}

std::optional<QRect> InfoLine::AreaOf(EventKey key) const {
  for (const Item& item : items_) {
    if (item.key == key) {
      return item.area & rect();
    }
  }
  return std::nullopt;
}

QRect InfoLine::ExpandArea() const {
  for (const Item& item : items_) {
    if (item.has_expand) {
      return item.expand_area;
    }
  }
  return {};
}

InfoLine::Hit InfoLine::HitAt(const QPoint& point) const {
  for (const Item& item : items_) {
    if (item.can_press && item.area.contains(point)) {
      return item.expand_area.contains(point) ? Hit::kExpand : Hit::kMain;
    }
  }
  return Hit::kNone;
}

bool InfoLine::event(QEvent* event) {
  if (event->type() == QEvent::LayoutDirectionChange) {
    Place();
  }
  if (event->type() != QEvent::ToolTip) {
    return QWidget::event(event);
  }
  const auto* help = static_cast<QHelpEvent*>(event);
  for (const Item& item : items_) {
    if (item.area.contains(help->pos())) {
      QToolTip::showText(help->globalPos(), style::ToolTip(item.tool_tip), this, item.area);
      return true;
    }
  }
  QToolTip::hideText();
  return true;
}

// What hits nothing goes on to the bar, which is dragged by it.
void InfoLine::mousePressEvent(QMouseEvent* event) {
  pressed_ = event->button() == Qt::LeftButton ? HitAt(event->position().toPoint()) : Hit::kNone;
  event->setAccepted(pressed_ != Hit::kNone);
  update();
}

void InfoLine::mouseReleaseEvent(QMouseEvent* event) {
  const Hit pressed = std::exchange(pressed_, Hit::kNone);
  update();
  if (pressed == Hit::kNone) {
    event->ignore();
  } else if (pressed == HitAt(event->position().toPoint())) {
    (pressed == Hit::kExpand ? on_expand : on_press)(EventKey::InfoText);
  }
}

void InfoLine::mouseMoveEvent(QMouseEvent* event) {
  const Hit hit = HitAt(event->position().toPoint());
  if (hovered_ != hit) {
    hovered_ = hit;
    update();
  }
  event->setAccepted(pressed_ != Hit::kNone);
}

void InfoLine::leaveEvent(QEvent* /*event*/) {
  hovered_ = Hit::kNone;
  update();
}

void InfoLine::resizeEvent(QResizeEvent* /*event*/) {
  Place();
}

void InfoLine::PaintItem(QPainter& painter, const Item& item) const {
  const QRectF place = QRectF(item.area);
  const bool mirrored = layoutDirection() == Qt::RightToLeft;
  int taken = 0;
  if (!item.icon.isEmpty() || item.key == EventKey::NetworkStrength) {
    const QRectF icon(mirrored ? place.right() - style::kSmallIcon : place.left(),
                      place.center().y() - style::kSmallIcon / 2.0, style::kSmallIcon,
                      style::kSmallIcon);
    if (item.key == EventKey::NetworkStrength) {
      PaintStrength(painter, item.strength, icon);
    } else {
      PaintIcon(painter, item.icon, icon);
    }
    taken = style::kSmallIcon + kIconGap;
  }
  const int text_width = item.area.width() - taken - item.expand_area.width();
  const QRect text = QStyle::visualRect(
      layoutDirection(), item.area,
      QRect(item.area.x() + taken, item.area.y(), std::max(0, text_width), item.area.height()));
  painter.setPen(item.key == EventKey::InfoText ? style::kText : style::kQuietText);
  painter.drawText(text, Qt::AlignVCenter | Qt::AlignLeading,
                   fontMetrics().elidedText(item.text, Qt::ElideRight, text.width()));
  if (item.has_expand) {
    QRectF chevron(0, 0, 12, 12);
    chevron.moveCenter(QRectF(item.expand_area).center());
    PaintIcon(painter, QStringLiteral("Chevron"), chevron);
  }
}

void InfoLine::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setLayoutDirection(layoutDirection());  // a screenshot's painter does not know it
  painter.setRenderHint(QPainter::Antialiasing);
  for (const Item& item : items_) {
    if (item.can_press && (hovered_ != Hit::kNone || pressed_ != Hit::kNone)) {
      const Hit active = pressed_ != Hit::kNone ? pressed_ : hovered_;
      const QColor fill = pressed_ != Hit::kNone ? style::kPressed : style::kHover;
      style::PaintRounded(
          painter, active == Hit::kExpand ? item.expand_area : item.area.adjusted(-4, 1, 4, -1), 5,
          fill);
    }
    PaintItem(painter, item);
  }
  if (!clock_.text.isEmpty()) {
    PaintItem(painter, clock_);
  }
}

}  // namespace lorimel_qt
