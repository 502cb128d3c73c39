// SPDX-License-Identifier: MIT
#include "qt/bar/info_line.h"

#include <QEvent>
#include <QStyle>
#include <algorithm>
#include <numeric>

#include "qt/look/style.h"

namespace vellomar_widgets::qt {
namespace {

using VELLOMAR_LORIMEL::EventKey;

constexpr int kItemGap = 4;
constexpr int kSidePadding = 4;
constexpr int kLeastText = 40;

}  // namespace

InfoLine::InfoLine(QWidget* parent) : QWidget(parent) {
  for (const InfoSpec& spec : InfoItems()) {
    slots_.push_back({new InfoItem(spec.key, this), spec.can_elide, false});
  }
  expand_ = new ExpandPart(EventKey::InfoText, this);
  slots_.push_back({new InfoItem(EventKey::GroupHeader, this), false, false});
  for (const Slot& slot : slots_) {
    slot.item->hide();
  }
  expand_->hide();
}

void InfoLine::SetHandlers(const std::function<void(EventKey)>& on_press,
                           const std::function<void(EventKey)>& on_expand) {
  for (const Slot& slot : slots_) {
    slot.item->on_press = on_press;
  }
  expand_->on_press = on_expand;
}

void InfoLine::SetRecords(const Records& records) {
  for (std::size_t i = 0; i + 1 < slots_.size(); ++i) {
    const EventKey key = slots_[i].item->Key();
    slots_[i].shown = IsShown(key, records, {});
    if (slots_[i].shown) {
      slots_[i].item->SetRecord(records.at(key));
    }
  }
  const auto info = records.find(EventKey::InfoText);
  has_expand_ = AreaOf(EventKey::InfoText) && HasExpandPart(info->second);
  if (has_expand_) {
    expand_->SetRecord(records, info->second);
  }
  Place();
}

void InfoLine::SetClock(const QString& clock) {
  slots_.back().shown = !clock.isEmpty();
  slots_.back().item->SetClock(clock);
  Place();
}

int InfoLine::WidthOf(const Slot& slot) const {
  const bool expands = has_expand_ && slot.item->Key() == EventKey::InfoText;
  return slot.shown ? slot.item->NaturalWidth() + (expands ? style::kExpandWidth : 0) : 0;
}

int InfoLine::NaturalWidth() const {
  return std::accumulate(slots_.begin(), slots_.end(), 2 * kSidePadding,
                         [this](int sum, const Slot& slot) {
                           return sum + (slot.shown ? WidthOf(slot) + kItemGap : 0);
                         });
}

// Where the line is too narrow the names give way, each by the same share.
std::vector<int> InfoLine::Widths() const {
  const auto gives_way = [](const Slot& slot) {
    return slot.shown && slot.can_elide && !slot.item->Text().isEmpty();
  };
  int excess = std::max(0, NaturalWidth() - width());
  auto elastic = static_cast<int>(std::count_if(slots_.begin(), slots_.end(), gives_way));
  std::vector<int> widths;
  for (const Slot& slot : slots_) {
    widths.push_back(WidthOf(slot));
    if (gives_way(slot)) {
      const int give = std::min(excess / elastic, std::max(0, widths.back() - kLeastText));
      widths.back() -= give;
      excess -= give;
      --elastic;
    }
  }
  return widths;
}

void InfoLine::Place() {
  const std::vector<int> widths = Widths();
  int left = std::max(kSidePadding, (width() - NaturalWidth()) / 2 + kSidePadding);
  const auto visual = [this](int x, int item_width) {
    return QStyle::visualRect(layoutDirection(), rect(), QRect(x, 0, item_width, height()));
  };
  for (std::size_t i = 0; i < slots_.size(); ++i) {
    if (slots_[i].shown) {
      const bool expands = has_expand_ && slots_[i].item->Key() == EventKey::InfoText;
      const int text_width = widths[i] - (expands ? style::kExpandWidth : 0);
      slots_[i].item->setGeometry(visual(left, text_width));
      if (expands) {
        expand_->setGeometry(visual(left + text_width, style::kExpandWidth));
        expand_->SetCenter(height() / 2);
      }
      left += widths[i] + kItemGap;
    }
    slots_[i].item->setVisible(slots_[i].shown);
  }
  expand_->setVisible(has_expand_);
}

std::optional<QRect> InfoLine::AreaOf(EventKey key) const {
  const auto slot = std::find_if(slots_.begin(), slots_.end(), [key](const Slot& candidate) {
    return candidate.shown && candidate.item->Key() == key;
  });
  if (slot == slots_.end()) {
    return std::nullopt;
  }
  const bool expands = has_expand_ && key == EventKey::InfoText;
  const QRect area = slot->item->geometry();
  return (expands ? area | expand_->geometry() : area) & rect();
}

bool InfoLine::event(QEvent* event) {
  if (event->type() == QEvent::LayoutDirectionChange) {
    Place();
  }
  return QWidget::event(event);
}

void InfoLine::resizeEvent(QResizeEvent* /*event*/) {
  Place();
}

}  // namespace vellomar_widgets::qt
