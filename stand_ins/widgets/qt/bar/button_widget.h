// SPDX-License-Identifier: MIT
// One button of a bar: an icon over a label, with a badge and its states.
//
//     auto* button = new ButtonWidget(spec, bar);
//     button->on_press = [](EventKey key) { ... };
//     button->SetRecord(record, mode);
#pragma once

#include <QTimer>

#include "model/catalog.h"
#include "qt/bar/control.h"

namespace vellomar_widgets::qt {

class ButtonWidget : public Control {
 public:
  ButtonWidget(const ButtonSpec& spec, QWidget* parent);

  const ButtonSpec& Spec() const { return spec_; }
  void SetRecord(const OwnedButton& record, const BarMode& mode);
  void SetLabelShown(bool shown);
  void SetMicVolume(int percent);

  // The width at which nothing is cut off.
  int NaturalWidth() const;
  QRectF IconArea() const;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  QString ElidedLabel() const;
  void UpdateToolTip();
  QColor Background() const;
  void PaintBackground(QPainter& painter) const;
  void PaintPicture(QPainter& painter, const QRectF& area) const;
  void PaintMicLevel(QPainter& painter, const QRectF& area) const;
  void PaintSpinner(QPainter& painter, const QRectF& area) const;
  void PaintBadge(QPainter& painter, const QRectF& icon_area) const;

  const ButtonSpec& spec_;
  OwnedButton record_;
  BarMode mode_;
  QString label_;
  bool label_shown_ = true;
  int mic_volume_ = 0;
  int spinner_angle_ = 0;
  QTimer spinner_;
};

}  // namespace vellomar_widgets::qt
