// SPDX-License-Identifier: MIT
#include "qt/bar/control.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <utility>

#include "qt/look/style.h"

namespace vellomar_widgets::qt {

Control::Control(VELLOMAR_LORIMEL::EventKey key, QWidget* parent) : QWidget(parent), key_(key) {
  setAttribute(Qt::WA_Hover);
  SetPressable(false);
}

void Control::SetPressable(bool pressable) {
  pressable_ = pressable;
  // The mouse leaves the focus where it is: a frame around what was clicked says nothing.
  setFocusPolicy(pressable ? Qt::TabFocus : Qt::NoFocus);
}

void Control::SetMeaning(const QString& name, const QString& description, const Meaning& meaning) {
  setAccessibleName(name);  // these two tell of their changes themselves
  setAccessibleDescription(description == name ? QString() : description);
  if (meaning_ == meaning) {
    return;
  }
  QAccessible::State changed;
  changed.checked = meaning_.checked != meaning.checked;
  changed.busy = meaning_.busy != meaning.busy;
  meaning_ = meaning;
  QAccessibleStateChangeEvent event(this, changed);
  QAccessible::updateAccessibility(&event);
}

void Control::SetOpen(bool open) {
  if (open_ != open) {
    open_ = open;
    update();
    QAccessible::State changed;
    changed.expanded = true;
    QAccessibleStateChangeEvent event(this, changed);
    QAccessible::updateAccessibility(&event);
  }
}

void Control::Press() {
  if (pressable_ && isEnabled() && on_press) {
    on_press(key_);
  }
}

QColor Control::Fill() const {
  return held_ || open_ ? style::kPressed : IsHovered() ? style::kHover : QColor(Qt::transparent);
}

void Control::PaintFocus(QPainter& painter) const {
  if (hasFocus()) {
    style::PaintFocus(painter, rect());
  }
}

bool Control::event(QEvent* event) {
  switch (event->type()) {
    case QEvent::LayoutDirectionChange:
    case QEvent::FocusIn:
    case QEvent::FocusOut:
      update();
      break;
    default:
      break;
  }
  return QWidget::event(event);
}

// What is not taken goes on to the bar, which is dragged by it.
void Control::mousePressEvent(QMouseEvent* event) {
  held_ = pressable_ && event->button() == Qt::LeftButton;
  event->setAccepted(held_);
  update();
}

void Control::mouseMoveEvent(QMouseEvent* event) {
  event->setAccepted(held_);
}

void Control::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton || !std::exchange(held_, false)) {
    event->ignore();
    return;
  }
  update();
  if (rect().contains(event->position().toPoint())) {
    Press();
  }
}

void Control::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Space:
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Select:
      if (!event->isAutoRepeat()) {
        Press();
      }
      break;
    default:
      event->ignore();
  }
}

}  // namespace vellomar_widgets::qt
