// SPDX-License-Identifier: MIT
#include "button_widget.h"

#include <QMouseEvent>
#include <QStyle>
#include <algorithm>

#include "icons.h"
#include "palette.h"
#include "style.h"
#include "user_action.h"

namespace lorimel_qt {
namespace {

using VELLOMAR_LORIMEL::EventKey;
using vellomar_widgets::OwnedButton;

constexpr int kLeastNatural = 62;
constexpr int kMostNatural = 150;
constexpr int kLabelMargin = 5;
constexpr int kIconTop = 7;
constexpr int kLabelTop = 32;
constexpr int kLabelHeight = 17;
constexpr int kIconMargin = 9;  // beside an icon without a label

}  // namespace

ButtonWidget::ButtonWidget(const ButtonSpec& spec, QWidget* parent) : QWidget(parent), spec_(spec) {
  setMouseTracking(true);
  setFont(style::Font(style::kLabelFont));
  spinner_.setInterval(80);
  QObject::connect(&spinner_, &QTimer::timeout, this, [this] {
    spinner_angle_ = (spinner_angle_ + 30) % 360;
    update();
  });
}

void ButtonWidget::SetRecord(const OwnedButton& record, const BarMode& mode) {
  record_ = record;
  mode_ = mode;
  label_ = style::Label(record.text);
  can_press_ = vellomar_widgets::CanPress(record);
  has_expand_ = HasExpandPart(record);
  setAccessibleName(label_);
  if (IsLoading(record)) {
    spinner_.start();
  } else {
    spinner_.stop();
  }
  UpdateToolTip();
  update();
}

void ButtonWidget::SetMicVolume(int percent) {
  mic_volume_ = percent;
  update();
}

void ButtonWidget::SetLabelShown(bool shown) {
  label_shown_ = shown;
  UpdateToolTip();
  update();
}

int ButtonWidget::NaturalMainWidth() const {
  if (!label_shown_ || label_.isEmpty()) {
    return style::kIcon + 2 * kIconMargin;
  }
  const int label = fontMetrics().horizontalAdvance(label_) + 2 * kLabelMargin + 4;
  return std::clamp(label, kLeastNatural, kMostNatural);
}

int ButtonWidget::NaturalExpandWidth() const {
  return has_expand_ ? style::kExpandWidth : 0;
}

QRect ButtonWidget::ExpandArea() const {
  if (!has_expand_) {
    return {};
  }
  const int width = std::min(style::kExpandWidth, QWidget::width() / 3);
  return QStyle::visualRect(layoutDirection(), rect(),
                            QRect(QWidget::width() - width, 0, width, height()));
}

QRect ButtonWidget::MainArea() const {
  return QStyle::visualRect(layoutDirection(), rect(),
                            QRect(0, 0, width() - ExpandArea().width(), height()));
}

QString ButtonWidget::ElidedLabel() const {
  const int width = MainArea().width() - 2 * kLabelMargin + (has_expand_ ? kLabelMargin : 0);
  if (!label_shown_) {
    return {};
  }
  return fontMetrics().elidedText(label_, Qt::ElideRight, width);
}

void ButtonWidget::UpdateToolTip() {
  const QString given = style::Label(record_.tool_tip);
  const QString full = ElidedLabel() == label_ ? QString() : label_;
  setToolTip(style::ToolTip(given.isEmpty() ? full : given));
}

ButtonWidget::Part ButtonWidget::PartAt(const QPoint& point) const {
  if (!rect().contains(point)) {
    return Part::kNone;
  }
  return ExpandArea().contains(point) ? Part::kExpand : Part::kMain;
}

void ButtonWidget::SetHovered(Part part) {
  if (hovered_ != part) {
    hovered_ = part;
    update();
  }
}

bool ButtonWidget::event(QEvent* event) {
  if (event->type() == QEvent::LayoutDirectionChange) {
    update();
  }
  return QWidget::event(event);
}

void ButtonWidget::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton && can_press_) {
    pressed_ = PartAt(event->position().toPoint());
    update();
  }
}

void ButtonWidget::mouseMoveEvent(QMouseEvent* event) {
  SetHovered(PartAt(event->position().toPoint()));
}

void ButtonWidget::mouseReleaseEvent(QMouseEvent* event) {
  const Part released = PartAt(event->position().toPoint());
  const Part pressed = std::exchange(pressed_, Part::kNone);
  update();
  if (event->button() != Qt::LeftButton || pressed == Part::kNone || pressed != released) {
    return;
  }
  (pressed == Part::kExpand ? on_expand : on_press)(spec_.key);
}

void ButtonWidget::leaveEvent(QEvent* /*event*/) {
  SetHovered(Part::kNone);
}

void ButtonWidget::resizeEvent(QResizeEvent* /*event*/) {
  UpdateToolTip();
}

QColor ButtonWidget::FillOf(Part part) const {
  const bool hovered = can_press_ && hovered_ == part;
  const bool pressed = pressed_ == part;
  if ((spec_.traits & kDanger) != 0) {
    return pressed ? style::kDangerPressed : hovered ? style::kDangerHover : style::kDanger;
  }
  return pressed ? style::kPressed : hovered ? style::kHover : QColor(Qt::transparent);
}

void ButtonWidget::PaintBackground(QPainter& painter) {
  const bool on = record_.Has(VELLOMAR_LORIMEL::kStatusOn) && spec_.key != EventKey::MuteAudio &&
                  spec_.key != EventKey::MuteCamera && spec_.key != EventKey::Record;
  if (on) {
    style::PaintRounded(painter, rect(), 7, style::kOn);
  }
  style::PaintRounded(painter, MainArea(), 7, FillOf(Part::kMain));
  if (has_expand_) {
    style::PaintRounded(painter, ExpandArea(), 7, FillOf(Part::kExpand));
  }
}

void ButtonWidget::PaintMicLevel(QPainter& painter, const QRectF& area) {
  const double unit = area.width() / 24.0;
  const QRectF capsule(area.x() + 9.8 * unit, area.y() + 3.8 * unit, 4.4 * unit, 9.4 * unit);
  painter.save();
  painter.setClipRect(QRectF(capsule.x(), capsule.bottom() - capsule.height() * mic_volume_ / 100.0,
                             capsule.width(), capsule.height()));
  style::PaintRounded(painter, capsule, capsule.width() / 2, style::kGood);
  painter.restore();
}

void ButtonWidget::PaintSpinner(QPainter& painter, const QRectF& area) {
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(style::kLine, 2.2));
  painter.drawEllipse(area.adjusted(2, 2, -2, -2));
  painter.setPen(QPen(style::kAccent, 2.2, Qt::SolidLine, Qt::RoundCap));
  painter.drawArc(area.adjusted(2, 2, -2, -2), (90 - spinner_angle_) * 16, -110 * 16);
}

void ButtonWidget::PaintPicture(QPainter& painter, const QRectF& area) {
  if (IsLoading(record_)) {
    painter.setOpacity(1.0);
    PaintSpinner(painter, area);
  } else if (spec_.key == EventKey::SketchColor) {
    PaintSwatch(painter, ChosenSketchColor(record_), area);
  } else {
    if (spec_.key == EventKey::MuteAudio && !IsDeviceOff(record_)) {
      PaintMicLevel(painter, area);
    }
    const bool turned = spec_.key == EventKey::ControlbarSwitch && mode_.collapsed;
    PaintIcon(painter, IconFor(record_) + QLatin1String(turned ? ".collapsed" : ""), area);
  }
}

void ButtonWidget::PaintBadge(QPainter& painter, const QRectF& icon_area) {
  const QString text = style::Label(record_.sub_label).left(4);
  if (text.isEmpty()) {
    if (spec_.key == EventKey::ControlbarSwitch && record_.Has(VELLOMAR_LORIMEL::kStatusUnread)) {
      painter.setBrush(style::kBad);
      painter.setPen(Qt::NoPen);
      painter.drawEllipse(QRectF(icon_area.right() - 3, icon_area.top() - 2, 8, 8));
    }
    return;
  }
  painter.setFont(style::Font(10, QFont::DemiBold));
  const double width = std::max(15, painter.fontMetrics().horizontalAdvance(text) + 8);
  // Over the icon's upper outer corner, and never beyond the button.
  double left =
      layoutDirection() == Qt::RightToLeft ? icon_area.left() + 7 - width : icon_area.right() - 7;
  left = std::clamp(left, 1.0, std::max(1.0, QWidget::width() - width - 1));
  const QRectF badge(left, icon_area.top() - 4, width, 15);
  style::PaintRounded(painter, badge, 7.5, style::kDanger);
  painter.setPen(Qt::white);
  painter.drawText(badge, Qt::AlignCenter, text);
}

void ButtonWidget::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  PaintBackground(painter);
  painter.setOpacity(can_press_ ? 1.0 : style::kDisabledOpacity);

  const QRect main = MainArea();
  const QString label = ElidedLabel();
  const int top = label.isEmpty() ? (height() - style::kIcon) / 2 : kIconTop;
  const QRectF icon(main.x() + (main.width() - style::kIcon) / 2.0, top, style::kIcon,
                    style::kIcon);
  PaintPicture(painter, icon);
  painter.setOpacity(can_press_ ? 1.0 : style::kDisabledOpacity);
  painter.setFont(font());
  painter.setPen(style::kText);
  painter.drawText(QRect(main.x(), kLabelTop, main.width(), kLabelHeight), Qt::AlignCenter, label);
  if (has_expand_) {
    QRectF chevron(0, 0, 12, 12);
    chevron.moveCenter(QPointF(QRectF(ExpandArea()).center().x(), icon.center().y()));
    PaintIcon(painter, QStringLiteral("Chevron"), chevron);
  }
  PaintBadge(painter, icon);
}

}  // namespace lorimel_qt
