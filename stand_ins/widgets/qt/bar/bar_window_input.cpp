// SPDX-License-Identifier: MIT
// The bar's keyboard and mouse: where the focus is and goes, and dragging.
#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <utility>

#include "qt/bar/bar_window.h"
#include "qt/look/screen.h"

namespace vellomar_widgets::qt {

using VELLOMAR_LORIMEL::EventKey;

Control* BarWindow::OpenerOf(EventKey key) const {
  if (info_line_ != nullptr && key == EventKey::InfoText) {
    return &info_line_->Expand();
  }
  const Slot* slot = FindSlot(key);
  if (slot == nullptr) {
    return nullptr;
  }
  return slot->has_expand ? static_cast<Control*>(slot->expand) : slot->button;
}

QRect BarWindow::OpenerArea(EventKey key) const {
  const Control* opener = OpenerOf(key);
  return opener != nullptr ? QRect(opener->mapToGlobal(QPoint(0, 0)), opener->size()) : QRect();
}

void BarWindow::SetOpen(EventKey key) {
  for (const Slot& slot : slots_) {
    const bool open = slot.button->Key() == key;
    slot.button->SetOpen(open && !slot.has_expand);
    slot.expand->SetOpen(open && slot.has_expand);
  }
  if (info_line_ != nullptr) {
    info_line_->Expand().SetOpen(key == EventKey::InfoText);
  }
}

void BarWindow::FocusOpener(EventKey key) {
  if (Control* opener = OpenerOf(key); opener != nullptr) {
    activateWindow();
    opener->setFocus(Qt::PopupFocusReason);
  }
}

bool BarWindow::IsOpenerFocused(EventKey key) const {
  const Slot* slot = FindSlot(key);
  const Control* opener = OpenerOf(key);
  return (opener != nullptr && opener->hasFocus()) || (slot != nullptr && slot->button->hasFocus());
}

void BarWindow::FocusEnd(bool first) {
  setFocus();  // the chain begins and ends at the window itself
  focusNextPrevChild(first);
}

void BarWindow::OpenFocused() {
  const auto* control = dynamic_cast<Control*>(focusWidget());
  const Slot* slot = control != nullptr ? FindSlot(control->Key()) : nullptr;
  if (control != nullptr &&
      (control->GetMeaning().opens_list || (slot != nullptr && slot->has_expand))) {
    on_expand(control->Key());
  } else {
    focusNextPrevChild(true);
  }
}

void BarWindow::keyPressEvent(QKeyEvent* event) {
  const bool mirrored = layoutDirection() == Qt::RightToLeft;
  switch (event->key()) {
    case Qt::Key_Left:
    case Qt::Key_Right:
      focusNextPrevChild((event->key() == Qt::Key_Right) != mirrored);
      break;
    case Qt::Key_Up:
      focusNextPrevChild(false);
      break;
    case Qt::Key_Down:
      OpenFocused();
      break;
    case Qt::Key_Home:
    case Qt::Key_End:
      FocusEnd(event->key() == Qt::Key_Home);
      break;
    case Qt::Key_Escape:
      on_escape();
      break;
    default:
      QWidget::keyPressEvent(event);
  }
}

void BarWindow::mousePressEvent(QMouseEvent* event) {
  drag_offset_ = event->globalPosition().toPoint() - pos();
}

void BarWindow::mouseMoveEvent(QMouseEvent* event) {
  if ((event->buttons() & Qt::LeftButton) == 0) {
    return;
  }
  const QPoint pointer = event->globalPosition().toPoint();
  const QPoint wanted = pointer - drag_offset_;
  const bool starts =
      !dragging_ && (wanted - pos()).manhattanLength() >= QApplication::startDragDistance();
  if (!dragging_ && !starts) {
    return;
  }
  dragging_ = true;
  dragged_ = true;
  DragTo(wanted, pointer);
  if (starts) {
    on_drag_start();
  }
}

void BarWindow::DragTo(const QPoint& wanted, const QPoint& pointer) {
  const QRect area = AreaAt(pointer, home_);
  if (area != area_) {
    area_ = area;
    Arrange();  // the screen may be narrower
  }
  move(MovedInto(QRect(wanted, size()), area_).topLeft());
}

void BarWindow::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton && std::exchange(dragging_, false)) {
    on_drag_end();
  }
}

void BarWindow::moveEvent(QMoveEvent* /*event*/) {
  if (dragging_ && on_moved) {
    on_moved();
  }
}

}  // namespace vellomar_widgets::qt
