// SPDX-License-Identifier: MIT
#include "qt/bar/button_widget.h"

#include <algorithm>

#include "model/user_action.h"
#include "qt/access/names.h"
#include "qt/look/icons.h"
#include "qt/look/palette.h"
#include "qt/look/style.h"

namespace vellomar_widgets::qt {
namespace {

using VELLOMAR_LORIMEL::EventKey;

constexpr int kLeastNatural = 62;
constexpr int kMostNatural = 150;
constexpr int kLabelMargin = 5;
constexpr int kIconTop = 7;
constexpr int kLabelTop = 32;
constexpr int kLabelHeight = 17;
constexpr int kIconMargin = 9;  // beside an icon without a label

}  // namespace

ButtonWidget::ButtonWidget(const ButtonSpec& spec, QWidget* parent)
    : Control(spec.key, parent), spec_(spec) {
  SetPressable(true);
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
  label_ = (spec_.traits & kNoLabel) != 0 ? QString() : style::Label(record.text);
  setEnabled(CanPress(record));
  const bool is_device = Key() == EventKey::MuteAudio || Key() == EventKey::MuteCamera;
  const bool opens = (spec_.traits & kOpensOnPress) != 0;
  SetMeaning(NameOf(record), style::Label(record.tool_tip),
             {.role = opens ? QAccessible::ButtonMenu : QAccessible::PushButton,
              .checkable = is_device || (!opens && IsToggle(Key())),
              .checked = is_device ? !IsDeviceOff(record) : record.Has(VELLOMAR_LORIMEL::kStatusOn),
              .opens_list = opens,
              .busy = IsLoading(record),
              .value = style::Label(record.sub_label)});
  if (IsLoading(record)) {
    spinner_.start();
  } else {
    spinner_.stop();
  }
  UpdateToolTip();
  update();
}

void ButtonWidget::SetMicVolume(int percent) {
  if (mic_volume_ != percent) {
    mic_volume_ = percent;
    update();
  }
}

void ButtonWidget::SetLabelShown(bool shown) {
  label_shown_ = shown;
  UpdateToolTip();
  update();
}

int ButtonWidget::NaturalWidth() const {
  if (!label_shown_ || label_.isEmpty()) {
    return style::kIcon + 2 * kIconMargin;
  }
  const int label = fontMetrics().horizontalAdvance(label_) + 2 * kLabelMargin + 4;
  return std::clamp(label, kLeastNatural, kMostNatural);
}

QString ButtonWidget::ElidedLabel() const {
  return label_shown_ ? fontMetrics().elidedText(label_, Qt::ElideRight, width() - 2 * kLabelMargin)
                      : QString();
}

void ButtonWidget::UpdateToolTip() {
  const QString given = style::Label(record_.tool_tip);
  const QString full = ElidedLabel() == label_ ? QString() : label_;
  const bool names_itself = (spec_.traits & kNoLabel) != 0 && !record_.text.empty();
  const QString name = label_.isEmpty() ? NameOf(record_) : full;
  setToolTip(style::ToolTip(given.isEmpty() || names_itself ? name : given));
}

void ButtonWidget::resizeEvent(QResizeEvent* /*event*/) {
  UpdateToolTip();
}

QRectF ButtonWidget::IconArea() const {
  const int top = ElidedLabel().isEmpty() ? (height() - style::kIcon) / 2 : kIconTop;
  return {(width() - style::kIcon) / 2.0, top * 1.0, style::kIcon * 1.0, style::kIcon * 1.0};
}

QColor ButtonWidget::Background() const {
  if ((spec_.traits & kDanger) == 0) {
    return Fill();
  }
  return !isEnabled()  ? style::kLine
         : IsHeld()    ? style::kDangerPressed
         : IsHovered() ? style::kDangerHover
                       : style::kDanger;
}

void ButtonWidget::PaintBackground(QPainter& painter) const {
  const bool on = record_.Has(VELLOMAR_LORIMEL::kStatusOn) && Key() != EventKey::MuteAudio &&
                  Key() != EventKey::MuteCamera && Key() != EventKey::Record;
  if (on) {
    style::PaintRounded(painter, rect(), style::kButtonRadius, style::kOn);
  }
  style::PaintRounded(painter, rect(), style::kButtonRadius, Background());
}

void ButtonWidget::PaintMicLevel(QPainter& painter, const QRectF& area) const {
  const double unit = area.width() / 24.0;
  const QRectF capsule(area.x() + 9.8 * unit, area.y() + 3.8 * unit, 4.4 * unit, 9.4 * unit);
  painter.save();
  painter.setClipRect(QRectF(capsule.x(), capsule.bottom() - capsule.height() * mic_volume_ / 100.0,
                             capsule.width(), capsule.height()));
  style::PaintRounded(painter, capsule, capsule.width() / 2, style::kGood);
  painter.restore();
}

void ButtonWidget::PaintSpinner(QPainter& painter, const QRectF& area) const {
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(style::kLine, 2.2));
  painter.drawEllipse(area.adjusted(2, 2, -2, -2));
  painter.setPen(QPen(style::kAccent, 2.2, Qt::SolidLine, Qt::RoundCap));
  painter.drawArc(area.adjusted(2, 2, -2, -2), (90 - spinner_angle_) * 16, -110 * 16);
}

void ButtonWidget::PaintPicture(QPainter& painter, const QRectF& area) const {
  if (IsLoading(record_)) {
    painter.setOpacity(1.0);
    PaintSpinner(painter, area);
  } else if (Key() == EventKey::SketchColor) {
    PaintSwatch(painter, ChosenSketchColor(record_), area);
  } else {
    if (Key() == EventKey::MuteAudio && !IsDeviceOff(record_)) {
      PaintMicLevel(painter, area);
    }
    const bool turned = Key() == EventKey::ControlbarSwitch && mode_.collapsed;
    PaintIcon(painter, IconFor(record_) + QLatin1String(turned ? ".collapsed" : ""), area,
              layoutDirection());
  }
}

void ButtonWidget::PaintBadge(QPainter& painter, const QRectF& icon_area) const {
  const QString text = style::Label(record_.sub_label).left(4);
  if (text.isEmpty()) {
    if (Key() == EventKey::ControlbarSwitch && record_.Has(VELLOMAR_LORIMEL::kStatusUnread)) {
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
  PaintFocus(painter);
  const double opacity = isEnabled() ? 1.0 : style::kDisabledOpacity;
  const QRectF icon = IconArea();
  painter.setOpacity(opacity);
  PaintPicture(painter, icon);
  painter.setOpacity(opacity);
  painter.setFont(font());
  painter.setPen(style::kText);
  painter.drawText(QRect(0, kLabelTop, width(), kLabelHeight), Qt::AlignCenter, ElidedLabel());
  PaintBadge(painter, icon);
}

}  // namespace vellomar_widgets::qt
