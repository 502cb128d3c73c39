// SPDX-License-Identifier: MIT
// The upper line of the bar: network strength, indicators, the meeting's name and number, and the
// clock.
//
//     line->SetRecords(records);
//     line->SetClock("12:34");
#pragma once

#include <QWidget>
#include <functional>
#include <optional>
#include <vector>

#include "model/catalog.h"
#include "qt/bar/expand_part.h"
#include "qt/bar/info_item.h"

namespace vellomar_widgets::qt {

class InfoLine : public QWidget {
 public:
  explicit InfoLine(QWidget* parent);

  void SetHandlers(const std::function<void(VELLOMAR_LORIMEL::EventKey)>& on_press,
                   const std::function<void(VELLOMAR_LORIMEL::EventKey)>& on_expand);
  void SetRecords(const Records& records);
  void SetClock(const QString& clock);  // empty: none

  int NaturalWidth() const;
  // The item with its expand part, in this widget's coordinates; nothing where it is not shown.
  std::optional<QRect> AreaOf(VELLOMAR_LORIMEL::EventKey key) const;
  // Of the info text.
  ExpandPart& Expand() { return *expand_; }

 protected:
  bool event(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  struct Slot {
    InfoItem* item;
    bool can_elide;
    bool shown;
  };

  int WidthOf(const Slot& slot) const;
  std::vector<int> Widths() const;
  void Place();

  std::vector<Slot> slots_;  // the last one is the clock
  ExpandPart* expand_;
  bool has_expand_ = false;
};

}  // namespace vellomar_widgets::qt
