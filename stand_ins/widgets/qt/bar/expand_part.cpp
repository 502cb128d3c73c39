// SPDX-License-Identifier: MIT
#include "qt/bar/expand_part.h"

#include "model/user_action.h"
#include "qt/access/names.h"
#include "qt/look/icons.h"
#include "qt/look/style.h"

namespace vellomar_widgets::qt {
namespace {

using VELLOMAR_LORIMEL::EventKey;

constexpr double kChevron = 12;

}  // namespace

ExpandPart::ExpandPart(EventKey key, QWidget* parent) : Control(key, parent) {
  SetPressable(true);
}

void ExpandPart::SetRecord(const Records& records, const OwnedButton& button) {
  const QString second_tip = style::Label(button.second_tool_tip);
  const auto window = records.find(WindowOf(button.key));
  QString name = second_tip;
  if (name.isEmpty() && window != records.end()) {
    name = NameOf(window->second);
  }
  setEnabled(CanPress(button));
  setToolTip(style::ToolTip(second_tip));
  SetMeaning(name.isEmpty() ? NameOf(button) : name, NameOf(button),
             {.role = QAccessible::ButtonDropDown, .opens_list = true});
  update();
}

void ExpandPart::SetCenter(int y) {
  center_ = y;
  update();
}

void ExpandPart::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  style::PaintRounded(painter, rect(), style::kButtonRadius, Fill());
  PaintFocus(painter);
  painter.setOpacity(isEnabled() ? 1.0 : style::kDisabledOpacity);
  QRectF chevron(0, 0, kChevron, kChevron);
  chevron.moveCenter(QPointF(width() / 2.0, center_));
  PaintIcon(painter, QStringLiteral("Chevron"), chevron);
}

}  // namespace vellomar_widgets::qt
