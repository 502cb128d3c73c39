// SPDX-License-Identifier: MIT
// One button of a bar: an icon over a label, with an expand part, a badge and its states.
//
//     auto* button = new ButtonWidget(spec, bar);
//     button->on_press = [](EventKey key) { ... };
//     button->SetRecord(record, mode);
#pragma once

#include <QTimer>
#include <QWidget>
#include <functional>

#include "catalog.h"

namespace lorimel_qt {

class ButtonWidget : public QWidget {
 public:
  ButtonWidget(const ButtonSpec& spec, QWidget* parent);

  // Called last thing in a mouse event: they may hide or schedule the deletion of this widget.
  std::function<void(VELLOMAR_LORIMEL::EventKey)> on_press;
  std::function<void(VELLOMAR_LORIMEL::EventKey)> on_expand;

  const ButtonSpec& Spec() const { return spec_; }
  void SetRecord(const vellomar_widgets::OwnedButton& record, const BarMode& mode);
  void SetLabelShown(bool shown);
  void SetMicVolume(int percent);

  // The widths at which nothing is cut off: of the button proper, and of its expand part.
  int NaturalMainWidth() const;
  int NaturalExpandWidth() const;
  // The part that opens the drop-down window, in the widget's coordinates; empty where there is
  // none.
  QRect ExpandArea() const;

 protected:
  bool event(QEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  enum class Part { kNone, kMain, kExpand };

  Part PartAt(const QPoint& point) const;
  QRect MainArea() const;
  QString ElidedLabel() const;
  void SetHovered(Part part);
  void UpdateToolTip();
  QColor FillOf(Part part) const;
  void PaintBackground(QPainter& painter);
  void PaintPicture(QPainter& painter, const QRectF& area);
  void PaintMicLevel(QPainter& painter, const QRectF& area);
  void PaintSpinner(QPainter& painter, const QRectF& area);
  void PaintBadge(QPainter& painter, const QRectF& icon_area);

  const ButtonSpec& spec_;
  vellomar_widgets::OwnedButton record_;
  BarMode mode_;
  QString label_;
  bool label_shown_ = true;
  bool can_press_ = false;
  bool has_expand_ = false;
  int mic_volume_ = 0;
  int spinner_angle_ = 0;
  QTimer spinner_;
  Part hovered_ = Part::kNone;
  Part pressed_ = Part::kNone;
};

}  // namespace lorimel_qt
