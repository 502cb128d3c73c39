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

#include "catalog.h"

namespace lorimel_qt {

class InfoLine : public QWidget {
 public:
  explicit InfoLine(QWidget* parent);

  std::function<void(VELLOMAR_LORIMEL::EventKey)> on_press;
  std::function<void(VELLOMAR_LORIMEL::EventKey)> on_expand;

  void SetRecords(const Records& records);
  void SetClock(const QString& clock);  // empty: none

  int NaturalWidth() const;
  // In the widget's coordinates; nothing where the item is not shown.
  std::optional<QRect> AreaOf(VELLOMAR_LORIMEL::EventKey key) const;
  // The chevron of the info text, empty where it has none.
  QRect ExpandArea() const;

  // Whether the key is one that this line shows.
  static bool Shows(VELLOMAR_LORIMEL::EventKey key);

 protected:
  bool event(QEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  struct Item {
    VELLOMAR_LORIMEL::EventKey key;
    QString icon;
    QString text;
    QString tool_tip;
    bool can_press = false;
    bool has_expand = false;
    bool can_elide = false;
    int strength = 0;  // of NetworkStrength
    int natural_width = 0;
    QRect area;
    QRect expand_area;
  };

  enum class Hit { kNone, kMain, kExpand };

  void AddItem(const Records& records, VELLOMAR_LORIMEL::EventKey key, bool icon_alone,
               bool can_elide);
  void Measure(Item& item) const;
  void Place();
  Hit HitAt(const QPoint& point) const;
  void PaintItem(QPainter& painter, const Item& item) const;

  std::vector<Item> items_;
  Item clock_;
  Hit hovered_ = Hit::kNone;
  Hit pressed_ = Hit::kNone;
};

}  // namespace lorimel_qt
