// SPDX-License-Identifier: MIT
// One thing on a bar that the user presses, or only looks at: how it takes the mouse, the keyboard
// and the focus, and what assistive technology is told. What it looks like is its subclass's.
//
//     control->on_press = [](EventKey key) { ... };
//     control->SetPressable(true);
#pragma once

#include <QAccessible>
#include <QPainter>
#include <QString>
#include <QWidget>
#include <functional>

#include "vellomar/lorimel.h"

namespace vellomar_widgets::qt {

// Beside the name and the description, which are the widget's own.
struct Meaning {
  QAccessible::Role role = QAccessible::StaticText;
  bool checkable = false;
  bool checked = false;
  bool opens_list = false;
  bool busy = false;
  QString value{};

  bool operator==(const Meaning&) const = default;
};

class Control : public QWidget {
 public:
  Control(VELLOMAR_LORIMEL::EventKey key, QWidget* parent);

  // Called last thing in an event: it may hide or schedule the deletion of this widget.
  std::function<void(VELLOMAR_LORIMEL::EventKey)> on_press;

  VELLOMAR_LORIMEL::EventKey Key() const { return key_; }
  // As the user does: nothing happens where it cannot be pressed.
  void Press();

  const Meaning& GetMeaning() const { return meaning_; }
  // While the list is open that a press on it opens.
  void SetOpen(bool open);
  bool IsOpen() const { return open_; }

 protected:
  // Something to look at takes neither the mouse nor the focus.
  void SetPressable(bool pressable);
  void SetMeaning(const QString& name, const QString& description, const Meaning& meaning);

  bool IsHeld() const { return held_; }
  bool IsHovered() const { return pressable_ && isEnabled() && underMouse(); }
  // The fill that goes with the state: none, hovered, pressed or open.
  QColor Fill() const;
  void PaintFocus(QPainter& painter) const;

  bool event(QEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  VELLOMAR_LORIMEL::EventKey key_;
  Meaning meaning_;
  bool pressable_ = false;
  bool held_ = false;
  bool open_ = false;
};

}  // namespace vellomar_widgets::qt
