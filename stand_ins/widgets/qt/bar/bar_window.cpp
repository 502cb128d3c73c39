// SPDX-License-Identifier: MIT
#include "qt/bar/bar_window.h"

#include <QCloseEvent>
#include <QStyle>
#include <algorithm>
#include <functional>
#include <numeric>

#include "qt/look/screen.h"
#include "qt/look/style.h"

namespace vellomar_widgets::qt {
namespace {

using VELLOMAR_LORIMEL::EventKey;

constexpr int kScreenMargin = 8;
constexpr int kGroupGap = 12;

// Most labels decide: a name in another script does not turn the bar around.
bool IsMostlyRightToLeft(const Records& records, std::span<const ButtonSpec> specs) {
  int balance = 0;
  for (const ButtonSpec& spec : specs) {
    const auto found = records.find(spec.key);
    if (found != records.end() && !found->second.text.empty()) {
      balance += style::Label(found->second.text).isRightToLeft() ? 1 : -1;
    }
  }
  return balance > 0;
}

constexpr int kLeastLabelled = 46;  // narrower, too little of the labels can be read

// The widths with the widest cut down until their sum fits: short labels stay whole.
std::vector<int> CutToFit(const std::vector<int>& natural, int available) {
  int cap = natural.empty() ? 0 : *std::max_element(natural.begin(), natural.end());
  const auto sum_at = [&natural](int most) {
    return std::accumulate(natural.begin(), natural.end(), 0,
                           [most](int sum, int width) { return sum + std::min(width, most); });
  };
  while (cap > 1 && sum_at(cap) > available) {
    --cap;
  }
  std::vector<int> widths = natural;
  for (int& width : widths) {
    width = std::min(width, cap);
  }
  return widths;
}

}  // namespace

BarWindow::BarWindow(std::span<const ButtonSpec> specs, const QRect& home, Kind kind)
    : QWidget(nullptr, FloatingWindow()),
      home_(home),
      area_(home),
      anchor_(home.center().x(), home.top() + kScreenMargin) {
  setAttribute(Qt::WA_TranslucentBackground);
  setAttribute(Qt::WA_ShowWithoutActivating);
  setFocus();  // else the first control gets the focus, and its frame, with the first click
  const auto press = [this](EventKey key) { on_press(key); };
  const auto expand = [this](EventKey key) { on_expand(key); };
  if (kind == kWithInfoLine) {
    info_line_ = new InfoLine(this);
    info_line_->SetHandlers(press, expand);
  }
  for (const ButtonSpec& spec : specs) {  // the order in which the Tab key goes
    slots_.push_back({new ButtonWidget(spec, this), new ExpandPart(spec.key, this), false, false});
    slots_.back().button->on_press = press;
    slots_.back().expand->on_press = expand;
    slots_.back().button->hide();
    slots_.back().expand->hide();
  }
}

void BarWindow::SetRecords(const Records& records, const BarMode& mode) {
  std::vector<ButtonSpec> specs;
  for (Slot& slot : slots_) {
    const ButtonSpec& spec = slot.button->Spec();
    specs.push_back(spec);
    slot.shown = IsShown(spec.key, records, mode);
    slot.has_expand = slot.shown && HasExpandPart(records.at(spec.key));
    if (slot.shown) {
      slot.button->SetRecord(records.at(spec.key), mode);
    }
    if (slot.has_expand) {
      slot.expand->SetRecord(records, records.at(spec.key));
    }
    slot.button->setVisible(slot.shown);
    slot.expand->setVisible(slot.has_expand);
  }
  setLayoutDirection(IsMostlyRightToLeft(records, specs) ? Qt::RightToLeft : Qt::LeftToRight);
  if (info_line_ != nullptr) {
    info_line_->SetRecords(records);
  }
  Arrange();
}

void BarWindow::SetClock(const QString& clock) {
  if (info_line_ != nullptr) {
    info_line_->SetClock(clock);
    Arrange();
  }
}

void BarWindow::SetMicVolume(int percent) {
  for (const Slot& slot : slots_) {
    if (slot.button->Spec().key == EventKey::MuteAudio) {
      slot.button->SetMicVolume(percent);
    }
  }
}

int BarWindow::GapBefore(std::size_t index) const {
  const auto shown_before =
      std::any_of(slots_.begin(), slots_.begin() + static_cast<std::ptrdiff_t>(index),
                  [](const Slot& slot) { return slot.shown; });
  if (!shown_before) {
    return 0;
  }
  return (slots_[index].button->Spec().traits & kStartsGroup) != 0 ? kGroupGap : style::kButtonGap;
}

int BarWindow::GapsWidth() const {
  int width = 0;
  for (std::size_t i = 0; i < slots_.size(); ++i) {
    width += slots_[i].shown ? GapBefore(i) : 0;
  }
  return width;
}

std::vector<int> BarWindow::ButtonWidths(int available, bool labelled) const {
  std::vector<int> mains;
  std::vector<int> expands;
  for (const Slot& slot : slots_) {
    slot.button->SetLabelShown(labelled);
    mains.push_back(slot.shown ? slot.button->NaturalWidth() : 0);
    expands.push_back(slot.has_expand ? style::kExpandWidth : 0);
  }
  const int left_for_mains =
      available - GapsWidth() - std::accumulate(expands.begin(), expands.end(), 0);
  std::vector<int> widths = CutToFit(mains, left_for_mains);
  const int widest = widths.empty() ? 0 : *std::max_element(widths.begin(), widths.end());
  if (labelled && widths != mains && widest < kLeastLabelled) {
    return ButtonWidths(available, false);
  }
  std::transform(widths.begin(), widths.end(), expands.begin(), widths.begin(), std::plus<>());
  return CutToFit(widths, available - GapsWidth());
}

void BarWindow::Arrange() {
  const int most = std::max(1, area_.width() - 2 * kScreenMargin) - 2 * style::kBarPadding;
  const std::vector<int> widths = ButtonWidths(most, true);
  const int sum = std::accumulate(widths.begin(), widths.end(), 0);
  const int row = sum > 0 ? sum + GapsWidth() : 0;
  const int info = info_line_ != nullptr ? std::min(info_line_->NaturalWidth(), most) : 0;
  const int inner = std::max({row, info, 1});

  int top = style::kBarPadding;
  const QRect frame(0, 0, inner + 2 * style::kBarPadding, 1);
  if (info_line_ != nullptr) {
    info_line_->setGeometry(style::kBarPadding, top - 2, inner, style::kInfoHeight);
    top += style::kInfoHeight;
  }
  int left = style::kBarPadding + (inner - row) / 2;
  for (std::size_t i = 0; i < slots_.size(); ++i) {
    if (slots_[i].shown) {
      left += GapBefore(i);
      const QRect place(left, top, widths[i], style::kButtonHeight);
      PlaceSlot(slots_[i],
                QStyle::visualRect(layoutDirection(), QRect(0, top, frame.width(), 1), place));
      left += widths[i];
    }
  }
  Place({frame.width(), top + (row > 0 ? style::kButtonHeight : 0) + style::kBarPadding});
}

void BarWindow::PlaceSlot(const Slot& slot, const QRect& place) const {
  const int expand = slot.has_expand ? std::min(style::kExpandWidth, place.width() / 3) : 0;
  slot.button->setGeometry(
      QStyle::visualRect(layoutDirection(), place, place.adjusted(0, 0, -expand, 0)));
  slot.expand->setGeometry(QStyle::visualRect(layoutDirection(), place,
                                              place.adjusted(place.width() - expand, 0, 0, 0)));
  slot.expand->SetCenter(static_cast<int>(slot.button->IconArea().center().y()));
}

void BarWindow::Place(const QSize& new_size) {
  // A bar that the user has put somewhere grows and shrinks about its centre.
  const QPoint top_center = dragged_ ? QPoint(geometry().center().x(), geometry().top()) : anchor_;
  QRect wanted(QPoint(0, 0), new_size);
  wanted.moveTopLeft({top_center.x() - new_size.width() / 2, top_center.y()});
  wanted = MovedInto(wanted, area_);
  if (wanted != geometry()) {
    setGeometry(wanted);
    if (on_moved) {
      on_moved();
    }
  }
  update();
}

void BarWindow::SetAnchor(const QPoint& top_center) {
  anchor_ = top_center;
  if (!dragged_) {
    Place(size());
  }
}

void BarWindow::SetHome(const QRect& home) {
  if (home_ == home) {
    return;
  }
  home_ = home;
  area_ = home;
  if (!dragged_) {
    anchor_ = {home.center().x(), home.top() + kScreenMargin};
  }
  Arrange();
}

const BarWindow::Slot* BarWindow::FindSlot(EventKey key) const {
  const auto found = std::find_if(slots_.begin(), slots_.end(), [key](const Slot& slot) {
    return slot.shown && slot.button->Key() == key;
  });
  return found != slots_.end() ? &*found : nullptr;
}

std::optional<QRect> BarWindow::AreaOf(EventKey key) const {
  if (info_line_ != nullptr && SpecOf(key) == nullptr) {
    const std::optional<QRect> local = info_line_->AreaOf(key);
    return local ? std::optional(QRect(info_line_->mapToGlobal(local->topLeft()), local->size()))
                 : std::nullopt;
  }
  const Slot* slot = FindSlot(key);
  if (slot == nullptr) {
    return std::nullopt;
  }
  const QRect local = slot->has_expand ? slot->button->geometry() | slot->expand->geometry()
                                       : slot->button->geometry();
  return QRect(mapToGlobal(local.topLeft()), local.size());
}

void BarWindow::closeEvent(QCloseEvent* event) {
  event->ignore();
  on_close();
}

void BarWindow::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  style::PaintPanel(painter, rect());
  painter.setPen(QPen(style::kLine, 1));
  // A line in each gap between two groups of buttons.
  for (std::size_t i = 0; i < slots_.size(); ++i) {
    if (slots_[i].shown && GapBefore(i) == kGroupGap) {
      const QRect place = slots_[i].button->geometry() | slots_[i].expand->geometry();
      const double x = layoutDirection() == Qt::RightToLeft ? place.right() + 1 + kGroupGap / 2.0
                                                            : place.left() - kGroupGap / 2.0;
      painter.drawLine(QPointF(x, place.top() + 10), QPointF(x, place.bottom() - 10));
    }
  }
}

}  // namespace vellomar_widgets::qt
