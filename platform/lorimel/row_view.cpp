// SPDX-License-Identifier: MIT
#include "row_view.h"

#include <QHelpEvent>
#include <QMouseEvent>
#include <QStyle>
#include <QToolTip>
#include <algorithm>
#include <array>

#include "catalog.h"
#include "icons.h"
#include "palette.h"
#include "style.h"
#include "user_action.h"

namespace lorimel_qt {
namespace {

using VELLOMAR_LORIMEL::EventKey;
using vellomar_widgets::OwnedButton;

constexpr int kRowHeight = 32;
constexpr int kCaptionHeight = 28;
constexpr int kSeparatorHeight = 9;
constexpr int kColorSize = 24;
constexpr int kColorCell = 36;
constexpr int kSide = 12;
constexpr int kMark = 18;
constexpr int kMarkGap = 8;
constexpr int kExtraGap = 18;
constexpr int kLeastWidth = 190;
constexpr int kMostWidth = 360;

// Rows with a box that is checked by bit "on"; other rows with that bit show a tick.
constexpr std::array kCheckRows = {
    EventKey::MoveNew,
    EventKey::OnlyHostShare,
    EventKey::OnlyHostReshare,
    EventKey::NewParticipantMic,
    EventKey::MicOperate,
    EventKey::MuteOrigin,
    EventKey::OptimizeForVideoClips,
    EventKey::KeepMyVideoOnTheScreen,
    EventKey::OnlyThePresenterCanAnnotate,
    EventKey::ShareAudio,
};

enum class Look { kNone, kCaption, kSeparator, kSwatch, kRadio, kCheck, kPerson, kPlain };

Look LookOf(const OwnedButton& row) {
  const bool is_arrow = row.key == EventKey::Separator && row.object_name == "icon_right_outlined";
  if (row.Has(VELLOMAR_LORIMEL::kStatusHidden) || is_arrow) {
    return Look::kNone;  // the arrow is painted on the row before it
  }
  if (vellomar_widgets::IsCaption(row)) {
    return Look::kCaption;
  }
  if (row.key == EventKey::Separator) {
    return Look::kSeparator;
  }
  if (IsSketchColor(row.key)) {
    return Look::kSwatch;
  }
  if (row.key == EventKey::JoinPermission) {
    return Look::kRadio;
  }
  if (row.key == EventKey::ParticipantRow) {
    return Look::kPerson;
  }
  return std::find(kCheckRows.begin(), kCheckRows.end(), row.key) != kCheckRows.end()
             ? Look::kCheck
             : Look::kPlain;
}

// Whether something is painted before the text.
bool HasMark(const OwnedButton& row) {
  const Look look = LookOf(row);
  return look == Look::kRadio || look == Look::kCheck || look == Look::kPerson ||
         (look == Look::kPlain &&
          (row.Has(VELLOMAR_LORIMEL::kStatusOn) || !IconFor(row).isEmpty()));
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

bool HasArrow(const std::vector<OwnedButton>& rows, std::size_t index) {
  return index + 1 < rows.size() && rows[index + 1].object_name == "icon_right_outlined" &&
         !rows[index + 1].Has(VELLOMAR_LORIMEL::kStatusHidden);
}

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
  painter.setBrush(checked ? QBrush(style::kAccent) : QBrush(Qt::NoBrush));
  painter.setPen(QPen(checked ? style::kAccent : style::kQuietText, 1.6));
  painter.drawRoundedRect(area.adjusted(2, 2, -2, -2), 3.5, 3.5);
  if (checked) {
    PaintIcon(painter, QStringLiteral("Check"), area.adjusted(2.5, 2.5, -2.5, -2.5));
  }
}

void PaintPerson(QPainter& painter, const QRectF& area, const QString& name) {
  style::PaintRounded(painter, area, area.width() / 2, style::AvatarColor(name));
  painter.setFont(style::Font(10, QFont::DemiBold));
  painter.setPen(Qt::white);
  painter.drawText(area, Qt::AlignCenter, style::Initial(name));
}

}  // namespace

bool StaysOpenAfterPick(EventKey key) {
  return key == EventKey::JoinPermission ||
         std::find(kCheckRows.begin(), kCheckRows.end(), key) != kCheckRows.end();
}

RowView::RowView(std::vector<OwnedButton> rows, QWidget* parent) : QWidget(parent) {
  setMouseTracking(true);
  setFont(style::Font(style::kRowFont));
  SetRows(std::move(rows));
}

void RowView::SetRows(std::vector<OwnedButton> rows) {
  rows_ = std::move(rows);
  const auto right_to_left = std::count_if(rows_.begin(), rows_.end(), [](const OwnedButton& row) {
    return style::Label(row.text).isRightToLeft();
  });
  setLayoutDirection(right_to_left * 2 > static_cast<std::ptrdiff_t>(rows_.size())
                         ? Qt::RightToLeft
                         : Qt::LeftToRight);
  Place();
}

QSize RowView::sizeHint() const {
  int width = 0;
  int height = 0;
  int swatches = 0;
  const int mark_width = MarkWidth();
  for (const OwnedButton& row : rows_) {
    const Look look = LookOf(row);
    if (look == Look::kSwatch) {
      height += swatches++ == 0 ? HeightOf(look) : 0;
      continue;
    }
    const int text = fontMetrics().horizontalAdvance(style::Label(row.text));
    const int extra = fontMetrics().horizontalAdvance(style::Label(row.extra_text));
    width = std::max(
        width, 2 * kSide + mark_width + text + 2 + (extra > 0 ? extra + kExtraGap : 0) + kMark);
    height += HeightOf(look);
  }
  if (swatches > 0 && width == 0) {
    return {swatches * kColorCell + 2 * (kSide - 6), height};
  }
  return {std::clamp(width, kLeastWidth, kMostWidth), height};
}

void RowView::Place() {
  areas_.clear();
  int top = 0;
  int swatch_left = kSide - 6;
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    const Look look = LookOf(rows_[i]);
    if (look == Look::kSwatch) {
      areas_.emplace_back(swatch_left, top, kColorCell, kColorCell);
      swatch_left += kColorCell;
      const bool last = i + 1 == rows_.size() || LookOf(rows_[i + 1]) != Look::kSwatch;
      top += last ? kColorCell : 0;
      continue;
    }
    areas_.emplace_back(0, top, width(), HeightOf(look));
    top += HeightOf(look);
  }
  update();
}

bool RowView::CanPick(int index) const {
  return index >= 0 && index < static_cast<int>(rows_.size()) &&
         vellomar_widgets::CanPress(rows_[static_cast<std::size_t>(index)]);
}

int RowView::RowAt(const QPoint& point) const {
  const auto found = std::find_if(areas_.begin(), areas_.end(),
                                  [&point](const QRect& area) { return area.contains(point); });
  return found != areas_.end() ? static_cast<int>(found - areas_.begin()) : -1;
}

void RowView::SetCurrent(int index) {
  const int current = CanPick(index) ? index : -1;
  if (current_ != current) {
    current_ = current;
    update();
  }
}

void RowView::MoveCurrent(int step) {
  const int count = static_cast<int>(rows_.size());
  int index = current_ < 0 && step < 0 ? count : current_;
  for (int tried = 0; tried < count; ++tried) {
    index = (index + step + count) % count;
    if (CanPick(index)) {
      SetCurrent(index);
      on_current_moved(areas_[static_cast<std::size_t>(index)]);
      return;
    }
  }
}

void RowView::PickCurrent() {
  if (CanPick(current_)) {
    on_pick(static_cast<std::size_t>(current_));
  }
}

bool RowView::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip) {
    return QWidget::event(event);
  }
  const auto* help = static_cast<QHelpEvent*>(event);
  const int index = RowAt(help->pos());
  if (index >= 0) {
    const OwnedButton& row = rows_[static_cast<std::size_t>(index)];
    const std::string& tip = row.tool_tip.empty() ? row.text : row.tool_tip;
    QToolTip::showText(help->globalPos(), style::ToolTip(style::Label(tip)), this,
                       areas_[static_cast<std::size_t>(index)]);
  }
  return true;
}

void RowView::mousePressEvent(QMouseEvent* event) {
  pressed_ = event->button() == Qt::LeftButton ? RowAt(event->position().toPoint()) : -1;
}

// The pick comes last: it may close the window.
void RowView::mouseReleaseEvent(QMouseEvent* event) {
  const int pressed = std::exchange(pressed_, -1);
  if (CanPick(pressed) && pressed == RowAt(event->position().toPoint())) {
    on_pick(static_cast<std::size_t>(pressed));
  }
}

void RowView::mouseMoveEvent(QMouseEvent* event) {
  SetCurrent(RowAt(event->position().toPoint()));
}

void RowView::leaveEvent(QEvent* /*event*/) {
  SetCurrent(-1);
}

void RowView::resizeEvent(QResizeEvent* /*event*/) {
  Place();
}

int RowView::MarkWidth() const {
  const bool has_mark = std::any_of(rows_.begin(), rows_.end(), HasMark);
  return has_mark ? kMark + kMarkGap : 0;
}

QRect RowView::TextArea(const QRect& row) const {
  return row.adjusted(kSide + MarkWidth(), 0, -kSide, 0);
}

void RowView::PaintCaption(QPainter& painter, std::size_t index) const {
  painter.setFont(style::Font(11, QFont::DemiBold));
  painter.setPen(style::kQuietText);
  const QRect area = areas_[index].adjusted(kSide + 1, 4, -kSide, 0);
  painter.drawText(area, Qt::AlignVCenter | Qt::AlignLeading,
                   painter.fontMetrics().elidedText(style::Label(rows_[index].text), Qt::ElideRight,
                                                    area.width()));
}

void RowView::PaintMark(QPainter& painter, std::size_t index, const QRectF& area) const {
  const OwnedButton& row = rows_[index];
  const bool on = row.Has(VELLOMAR_LORIMEL::kStatusOn);
  switch (LookOf(row)) {
    case Look::kRadio: {
      const auto place =
          std::count_if(rows_.begin(), rows_.begin() + static_cast<std::ptrdiff_t>(index),
                        [&row](const OwnedButton& other) { return other.key == row.key; });
      PaintRadio(painter, area, place == row.group_value);
      break;
    }
    case Look::kCheck:
      PaintCheckBox(painter, area, on);
      break;
    case Look::kPerson:
      PaintPerson(painter, area.adjusted(-1, -1, 1, 1), style::Label(row.text));
      break;
    default:
      PaintIcon(painter, on ? QStringLiteral("Check") : IconFor(row), area);
  }
}

void RowView::PaintTexts(QPainter& painter, std::size_t index) const {
  const QRect place = TextArea(areas_[index]);
  const auto mirrored = [this, index](const QRect& area) {
    return QStyle::visualRect(layoutDirection(), areas_[index], area);
  };
  painter.setFont(font());
  const QString extra = fontMetrics().elidedText(style::Label(rows_[index].extra_text),
                                                 Qt::ElideRight, place.width() / 2);
  const int extra_width = extra.isEmpty() ? 0 : fontMetrics().horizontalAdvance(extra) + 2;
  painter.setPen(style::kQuietText);
  painter.drawText(mirrored(place), Qt::AlignVCenter | Qt::AlignTrailing, extra);

  int right = extra_width > 0 ? extra_width + kExtraGap : 0;
  if (HasArrow(rows_, index)) {
    const QRectF arrow(mirrored(QRect(place.right() - 12, place.center().y() - 6, 13, 13)));
    painter.save();
    painter.translate(arrow.center());
    painter.rotate(layoutDirection() == Qt::RightToLeft ? 90 : -90);
    PaintIcon(painter, QStringLiteral("Chevron"), QRectF(-6, -6, 12, 12));
    painter.restore();
    right += 16;
  }
  const QRect text = place.adjusted(0, 0, -right, 0);
  painter.setPen(style::kText);
  painter.drawText(
      mirrored(text), Qt::AlignVCenter | Qt::AlignLeading,
      fontMetrics().elidedText(style::Label(rows_[index].text), Qt::ElideRight, text.width()));
}

void RowView::PaintRow(QPainter& painter, std::size_t index) const {
  const QRect area = areas_[index];
  const Look look = LookOf(rows_[index]);
  if (current_ == static_cast<int>(index)) {
    style::PaintRounded(painter, area.adjusted(5, 1, -5, -1), 6, style::kHover);
  }
  painter.setOpacity(vellomar_widgets::CanPress(rows_[index]) ? 1.0 : style::kDisabledOpacity);
  if (look == Look::kSwatch) {
    QRectF swatch(0, 0, kColorSize, kColorSize);
    swatch.moveCenter(QRectF(area).center());
    if (rows_[index].Has(VELLOMAR_LORIMEL::kStatusOn)) {
      style::PaintRounded(painter, area.adjusted(2, 2, -2, -2), 7, style::kOn);
    }
    PaintSwatch(painter, rows_[index].key, swatch);
  } else {
    const QRect mark(area.x() + kSide, area.y() + (area.height() - kMark) / 2, kMark, kMark);
    PaintMark(painter, index, QRectF(QStyle::visualRect(layoutDirection(), area, mark)));
    PaintTexts(painter, index);
  }
  painter.setOpacity(1.0);
}

void RowView::paintEvent(QPaintEvent* event) {
  QPainter painter(this);
  painter.setLayoutDirection(layoutDirection());  // a screenshot's painter does not know it
  painter.setRenderHint(QPainter::Antialiasing);
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    const QRect area = areas_[i];
    const Look look = LookOf(rows_[i]);
    if (look == Look::kNone || !area.intersects(event->rect())) {
      continue;
    }
    if (look == Look::kSeparator) {
      painter.setPen(QPen(style::kLine, 1));
      painter.drawLine(area.left() + kSide, area.center().y(), area.right() - kSide,
                       area.center().y());
    } else if (look == Look::kCaption) {
      PaintCaption(painter, i);
    } else {
      PaintRow(painter, i);
    }
  }
}

}  // namespace lorimel_qt
