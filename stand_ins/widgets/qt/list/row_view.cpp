// SPDX-License-Identifier: MIT
#include "qt/list/row_view.h"

#include <QAccessible>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>
#include <QToolTip>
#include <algorithm>
#include <utility>

#include "model/user_action.h"
#include "qt/access/names.h"
#include "qt/list/row_paint.h"
#include "qt/look/style.h"

namespace vellomar_widgets::qt {
namespace {

constexpr int kLeastWidth = 190;
constexpr int kMostWidth = 360;
constexpr int kSwatchSide = 6;
constexpr int kPage = 8;  // rows

}  // namespace

RowView::RowView(Rows rows, Qt::LayoutDirection direction) {
  setLayoutDirection(direction);
  setMouseTracking(true);
  setFocusPolicy(Qt::StrongFocus);
  SetRows(std::move(rows));
}

void RowView::SetRows(Rows rows) {
  const OwnedButton current =
      CanPick(current_) ? rows_[static_cast<std::size_t>(current_)] : OwnedButton();
  const bool had_current = CanPick(current_);
  rows_ = std::move(rows);
  Measure();
  Place();
  current_ = had_current ? FindLike(current) : -1;
  pressed_ = -1;
}

int RowView::FindLike(const OwnedButton& row) const {
  const auto found = std::find_if(rows_.begin(), rows_.end(), [&row](const OwnedButton& other) {
    return other.key == row.key && other.value_text == row.value_text &&
           (other.has_value_text || other.text == row.text);
  });
  const int index = found != rows_.end() ? static_cast<int>(found - rows_.begin()) : -1;
  return CanPick(index) ? index : -1;
}

void RowView::SetFilter(const QString& text) {
  filter_ = text.simplified();
  Place();
  SetCurrent(-1, false);
}

bool RowView::PassesFilter(std::size_t index) const {
  return filter_.isEmpty() || LookOf(rows_[index]) != Look::kPerson ||
         style::Label(rows_[index].text).contains(filter_, Qt::CaseInsensitive);
}

void RowView::Measure() {
  int width = 0;
  int swatches = 0;
  mark_width_ = MarkWidth(rows_);
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    const Look look = LookOf(rows_[i]);
    if (look == Look::kSwatch) {
      ++swatches;
    } else if (look != Look::kNone) {
      width = std::max(width, NaturalRowWidth(rows_, i, mark_width_));
    }
  }
  natural_width_ = swatches > 0 && width == 0 ? swatches * HeightOf(Look::kSwatch) + 2 * kSwatchSide
                                              : std::clamp(width, kLeastWidth, kMostWidth);
}

QSize RowView::sizeHint() const {
  return {natural_width_, areas_.empty() ? 0 : areas_.back().bottom() + 1};
}

void RowView::Place() {
  areas_.clear();
  int top = 0;
  int swatch_left = kSwatchSide;
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    const Look look = LookOf(rows_[i]);
    const int height = PassesFilter(i) ? HeightOf(look) : 0;
    if (look == Look::kSwatch) {
      areas_.push_back(
          QStyle::visualRect(layoutDirection(), rect(), QRect(swatch_left, top, height, height)));
      swatch_left += height;
      const bool last = i + 1 == rows_.size() || LookOf(rows_[i + 1]) != Look::kSwatch;
      top += last ? height : 0;
      continue;
    }
    areas_.emplace_back(0, top, width(), height);
    top += height;
  }
  update();
}

QRect RowView::AreaOf(std::size_t index) const {
  return index < areas_.size() ? areas_[index] : QRect();
}

bool RowView::CanPick(int index) const {
  const auto at = static_cast<std::size_t>(index);
  return index >= 0 && at < rows_.size() && CanPress(rows_[at]) &&
         LookOf(rows_[at]) != Look::kNone && PassesFilter(at);
}

int RowView::RowAt(const QPoint& point) const {
  const auto found = std::find_if(areas_.begin(), areas_.end(),
                                  [&point](const QRect& area) { return area.contains(point); });
  return found != areas_.end() ? static_cast<int>(found - areas_.begin()) : -1;
}

void RowView::SetCurrent(int index, bool by_key) {
  const int current = CanPick(index) ? index : -1;
  if (current_ == current && by_key_ == by_key) {
    return;
  }
  current_ = current;
  by_key_ = by_key;
  update();
  if (by_key && current_ >= 0) {
    on_current_moved(areas_[static_cast<std::size_t>(current_)]);
    QAccessibleEvent event(this, QAccessible::Focus);
    event.setChild(current_);
    QAccessible::updateAccessibility(&event);
  }
}

void RowView::FocusFirst() {
  setFocus(Qt::PopupFocusReason);
  current_ = -1;
  MoveCurrent(1);
}

void RowView::MoveCurrent(int step) {
  const int count = static_cast<int>(rows_.size());
  int index = current_ < 0 && step < 0 ? count : current_;
  for (int tried = 0; tried < count; ++tried) {
    index = (index + step + count) % count;
    if (CanPick(index)) {
      SetCurrent(index, true);
      return;
    }
  }
}

void RowView::PickCurrent() {
  if (CanPick(current_)) {
    on_pick(static_cast<std::size_t>(current_));
  }
}

bool RowView::HandleKey(const QKeyEvent& event) {
  const int forward = layoutDirection() == Qt::RightToLeft ? -1 : 1;
  switch (event.key()) {
    case Qt::Key_Down:
    case Qt::Key_Up:
      MoveCurrent(event.key() == Qt::Key_Down ? 1 : -1);
      return true;
    case Qt::Key_Right:
    case Qt::Key_Left:
      MoveCurrent(event.key() == Qt::Key_Right ? forward : -forward);
      return true;
    case Qt::Key_PageDown:
    case Qt::Key_PageUp:
      for (int i = 0; i < kPage; ++i) {
        MoveCurrent(event.key() == Qt::Key_PageDown ? 1 : -1);
      }
      return true;
    case Qt::Key_Home:
    case Qt::Key_End:
      current_ = -1;
      MoveCurrent(event.key() == Qt::Key_Home ? 1 : -1);
      return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
      if (!event.isAutoRepeat()) {
        PickCurrent();
      }
      return true;
    default:
      return false;
  }
}

void RowView::keyPressEvent(QKeyEvent* event) {
  event->setAccepted(HandleKey(*event));
}

bool RowView::focusNextPrevChild(bool next) {
  if (!tab_moves_) {
    return QWidget::focusNextPrevChild(next);
  }
  MoveCurrent(next ? 1 : -1);
  return true;
}

void RowView::focusInEvent(QFocusEvent* event) {
  if (event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason) {
    current_ = -1;
    MoveCurrent(1);
  }
  update();
}

void RowView::focusOutEvent(QFocusEvent* /*event*/) {
  update();
}

bool RowView::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip) {
    return QWidget::event(event);
  }
  const auto* help = static_cast<QHelpEvent*>(event);
  const int index = RowAt(help->pos());
  if (index >= 0) {
    const OwnedButton& row = rows_[static_cast<std::size_t>(index)];
    const QString tip = style::Label(row.tool_tip);
    QToolTip::showText(help->globalPos(), style::ToolTip(tip.isEmpty() ? NameOf(row) : tip), this,
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
  SetCurrent(RowAt(event->position().toPoint()), false);
}

void RowView::leaveEvent(QEvent* /*event*/) {
  SetCurrent(-1, false);
}

void RowView::resizeEvent(QResizeEvent* /*event*/) {
  Place();
}

void RowView::paintEvent(QPaintEvent* event) {
  QPainter painter(this);
  painter.setLayoutDirection(layoutDirection());  // a screenshot's painter does not know it
  painter.setRenderHint(QPainter::Antialiasing);
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    if (!areas_[i].isEmpty() && areas_[i].intersects(event->rect())) {
      const bool is_current = current_ == static_cast<int>(i);
      PaintRow(painter, rows_, i,
               {.area = areas_[i],
                .mark_width = mark_width_,
                .direction = layoutDirection(),
                .is_current = is_current,
                .has_focus = is_current && by_key_});
    }
  }
}

}  // namespace vellomar_widgets::qt
