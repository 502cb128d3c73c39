// SPDX-License-Identifier: MIT
// One item of the bar's upper line: a small icon, a text, or both.
//
//     auto* item = new InfoItem(EventKey::InfoText, line);
//     item->SetRecord(record);
#pragma once

#include "model/owned_button.h"
#include "qt/bar/control.h"

namespace vellomar_widgets::qt {

class InfoItem : public Control {
 public:
  InfoItem(VELLOMAR_LORIMEL::EventKey key, QWidget* parent);

  void SetRecord(const OwnedButton& record);
  // For the clock, which has no record; it keeps its width while the digits change.
  void SetClock(const QString& clock);

  const QString& Text() const { return text_; }
  // The width at which nothing is cut off.
  int NaturalWidth() const;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  bool HasIcon() const;
  void PaintMark(QPainter& painter, const QRectF& area) const;

  QString icon_;
  QString text_;
  int strength_ = 0;
};

}  // namespace vellomar_widgets::qt
