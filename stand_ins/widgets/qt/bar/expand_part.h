// SPDX-License-Identifier: MIT
// The part beside a button, or beside the info text, that opens a drop-down window.
//
//     auto* expand = new ExpandPart(EventKey::MuteAudio, bar);
//     expand->SetRecord(records, button_record);
#pragma once

#include "model/catalog.h"
#include "qt/bar/control.h"

namespace vellomar_widgets::qt {

class ExpandPart : public Control {
 public:
  ExpandPart(VELLOMAR_LORIMEL::EventKey key, QWidget* parent);

  // Takes over name and state; the records tell what the window is called.
  void SetRecord(const Records& records, const OwnedButton& button);
  // The height of the chevron's centre, beside the middle of what it belongs to.
  void SetCenter(int y);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  int center_ = 0;
};

}  // namespace vellomar_widgets::qt
