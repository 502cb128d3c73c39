// SPDX-License-Identifier: MIT
// The Ui's pop-up windows: drop-down windows and bubbles.
#include <utility>

#include "names.h"
#include "observer.h"
#include "screen.h"
#include "style.h"
#include "ui.h"
#include "user_action.h"

namespace lorimel_qt {
namespace {

using VELLOMAR_LORIMEL::EventKey;
using vellomar_widgets::OwnedButton;

constexpr QMargins kMargins(8, 8, 8, 8);  // between a list and the edge of the screen

bool IsOnSketchBar(EventKey key) {
  return key >= EventKey::SketchSelect && key <= EventKey::SketchClear;
}

// The drop-down window's key; the colour button's palette is this library's own.
EventKey WindowFor(EventKey opener) {
  return opener == EventKey::SketchColor ? opener : vellomar_widgets::WindowOf(opener);
}

}  // namespace

Rows Ui::PaletteRows() const {
  Rows rows;
  const OwnedButton* button = Record(EventKey::SketchColor);
  for (int key = static_cast<int>(EventKey::SketchColorNone);
       key <= static_cast<int>(EventKey::SketchColor4); ++key) {
    OwnedButton row;
    row.key = static_cast<EventKey>(key);
    const bool chosen = button != nullptr && ChosenSketchColor(*button) == row.key;
    row.status = chosen ? VELLOMAR_LORIMEL::kStatusOn : 0;
    rows.push_back(row);
  }
  return rows;
}

Rows Ui::AskForRows(EventKey opener) {
  if (opener == EventKey::SketchColor) {
    return PaletteRows();
  }
  if (on_show_window_ == nullptr) {
    return {};
  }
  int count = 0;
  ++callback_depth_;
  const VELLOMAR_LORIMEL::BtnParams* rows = on_show_window_(WindowFor(opener), count);
  --callback_depth_;
  if (rows == nullptr || count <= 0) {
    return {};
  }
  return {rows, rows + count};
}

void Ui::ToggleList(EventKey opener) {
  if (list_ != nullptr && list_opener_ == opener) {
    CloseList();
  } else {
    Open(opener);
  }
}

int Ui::Open(EventKey opener) {
  const ButtonSpec* spec = SpecOf(opener);
  if (!CanUse(opener) || WindowFor(opener) == EventKey::GroupHeader ||
      !(HasExpandPart(*Record(opener)) ||
        (spec != nullptr && (spec->traits & kOpensOnPress) != 0))) {
    return -1;
  }
  const unsigned generation = generation_;
  CloseList();
  Rows rows;
  if (generation == generation_) {
    rows = AskForRows(opener);
  }
  if (generation != generation_ || BarWith(opener) == nullptr) {
    return -1;  // the plug-in has closed the bar meanwhile
  }
  const int count = static_cast<int>(rows.size());
  if (count > 0) {
    ShowList(opener, std::move(rows));
  }
  return count;
}

void Ui::ShowList(EventKey opener, Rows rows) {
  CloseBubble();
  BarWindow* bar = BarWith(opener);
  const bool by_key = bar->IsOpenerFocused(opener) && bar->isActiveWindow();
  list_ = new ListWindow(std::move(rows),
                         {.name = NameOf(*Record(opener)), .direction = bar->layoutDirection()});
  list_opener_ = opener;
  list_->on_pick = [this](std::size_t row) {
    if (const OwnedButton& chosen = list_->AllRows()[row]; vellomar_widgets::CanPress(chosen)) {
      ObserveUser("pick", chosen.key, chosen.value_text.c_str());
      Pick(row);
    }
  };
  list_->on_dismiss = [this] {
    ObserveUser("closeList", list_opener_);
    CloseList();
  };
  list_->on_escape = [this, opener] {
    ObserveUser("closeList", opener);
    CloseList();
    BackToBar(opener);
  };
  list_->ShowAt(bar->OpenerArea(opener), bar->geometry(), bar->Area() - kMargins);
  bar->SetOpen(opener);
  if (by_key) {
    list_->FocusFirstRow();
  }
  const unsigned generation = generation_;
  ReportCreated(*list_, false);
  if (opener == EventKey::InfoText && generation == generation_) {
    ReportInfoExpanded(true);
  }
}

void Ui::BackToBar(EventKey opener) {
  if (BarWindow* bar = BarWith(opener); bar != nullptr) {
    bar->FocusOpener(opener);
  }
}

// Stays with a button that moves.
void Ui::FollowList() {
  const BarWindow* bar = list_ != nullptr ? BarWith(list_opener_) : nullptr;
  if (bar != nullptr) {
    list_->MoveTo(bar->OpenerArea(list_opener_), bar->geometry(), bar->Area() - kMargins);
  }
}

void Ui::RefreshList() {
  if (list_ == nullptr) {
    return;
  }
  const EventKey opener = list_opener_;
  const ListWindow* const list = list_;
  if (!CanUse(opener)) {
    CloseList();
    return;
  }
  Rows rows = AskForRows(opener);
  if (list_ != list) {
    return;  // the plug-in has closed it meanwhile
  }
  if (rows.empty()) {
    CloseList();
  } else {
    list_->SetRows(std::move(rows), BarWith(opener)->layoutDirection());
  }
}

void Ui::ReportInfoExpanded(bool expanded) {
  OwnedButton event;
  if (const OwnedButton* record = Record(EventKey::MeetingIdExpand); record != nullptr) {
    event = *record;
  }
  event.key = EventKey::MeetingIdExpand;
  event.status = expanded ? VELLOMAR_LORIMEL::kStatusOn : 0;
  Report(event);
}

void Ui::CloseList() {
  if (list_ == nullptr) {
    return;
  }
  const EventKey opener = list_opener_;
  void* const handle = list_;
  const unsigned generation = generation_;
  Discard(std::exchange(list_, nullptr));
  for (BarWindow* bar : {bar_, sketch_bar_}) {
    if (bar != nullptr) {
      bar->SetOpen(EventKey::GroupHeader);
    }
  }
  // A button that is "on" while its window is open goes off with it, however the window closed.
  const ButtonSpec* spec = SpecOf(opener);
  const auto record = request_.records.find(opener);
  if (spec != nullptr && (spec->traits & kOpensOnPress) != 0 && !IsOnSketchBar(opener) &&
      record != request_.records.end()) {
    record->second.status &= ~VELLOMAR_LORIMEL::kStatusOn;
    Refresh();
  }
  ReportClosed(request_.on_closed, handle);
  if (opener == EventKey::InfoText && generation == generation_) {
    ReportInfoExpanded(false);
  }
}

bool Ui::CloseSketchList() {
  if (list_ == nullptr || !IsOnSketchBar(list_opener_)) {
    return false;
  }
  CloseList();
  return true;
}

bool Ui::Pick(std::size_t row) {
  if (list_ == nullptr || row >= list_->AllRows().size() ||
      !vellomar_widgets::CanPress(list_->AllRows()[row])) {
    return false;
  }
  const unsigned generation = generation_;
  OwnedButton picked = vellomar_widgets::AfterPick(list_->AllRows(), row);
  if (StaysOpenAfterPick(picked.key)) {
    MarkPicked(*list_, row, picked);
  } else {
    const bool by_key = list_->isActiveWindow() && list_->View().IsCurrentByKey();
    const EventKey opener = list_opener_;
    CloseList();
    if (by_key) {
      BackToBar(opener);
    }
  }
  if (generation == generation_) {
    Report(picked);
  }
  return true;
}

void Ui::MarkPicked(ListWindow& list, std::size_t row, const OwnedButton& picked) {
  Rows rows = list.AllRows();
  rows[row] = picked;
  for (OwnedButton& other : rows) {
    if (other.key == picked.key) {
      other.group_value = picked.group_value;
    }
  }
  list.View().SetRows(std::move(rows));
}

const Rows* Ui::ListRows() const {
  return list_ != nullptr ? &list_->AllRows() : nullptr;
}

bool Ui::ShowBubble(EventKey key, const BubbleContent& content, const QRect& button_pixels) {
  if (!IsBarVisible()) {
    return false;
  }
  CloseBubble();
  const BarWindow* bar = BarWith(key);
  if (bar != nullptr) {
    bubble_at_ = *bar->AreaOf(key);
  } else {
    bubble_at_ = button_pixels.isEmpty() ? bar_->geometry() : ToLogical(button_pixels);
  }
  bubble_button_ = bar != nullptr ? key : EventKey::GroupHeader;
  bubble_content_ = content;
  PutBubble();
  return true;
}

void Ui::PutBubble() {
  bubble_ = new Bubble(bubble_content_);
  bubble_asks_ = bubble_content_.is_question;
  const EventKey key = bubble_button_;
  bubble_->on_closed = [this] { CloseBubble(); };
  bubble_->on_confirm = [this] {
    if (bubble_asks_) {
      ObserveUser("press", EventKey::LeaveSubRoom);
      Press(EventKey::LeaveSubRoom);
    }
  };
  bubble_->on_escape = [this, key] {
    CloseBubble();
    BackToBar(key);
  };
  bubble_->ShowAt(bubble_at_, bar_->Area());
}

// A bubble that says what its button says goes on doing so in another language.
void Ui::TranslateBubble(const OwnedButton& before, const OwnedButton& after) {
  if (bubble_ == nullptr || bubble_button_ != after.key) {
    return;
  }
  for (const auto& [old_text, new_text] :
       {std::pair(before.text, after.text), std::pair(before.tool_tip, after.tool_tip)}) {
    if (old_text != new_text && !new_text.empty() &&
        bubble_content_.text == style::Message(old_text)) {
      bubble_content_.text = style::Message(new_text);
      Discard(std::exchange(bubble_, nullptr));
      PutBubble();
      return;
    }
  }
}

// Stays with a button that moves, goes with a button that goes.
void Ui::FollowBubble() {
  if (bubble_ == nullptr || bubble_button_ == EventKey::GroupHeader) {
    return;
  }
  const BarWindow* bar = BarWith(bubble_button_);
  if (bar == nullptr) {
    CloseBubble();
  } else if (const QRect area = *bar->AreaOf(bubble_button_); area != bubble_at_) {
    bubble_at_ = area;
    bubble_->ShowAt(area, bar_->Area());
  }
}

void Ui::CloseBubble() {
  Discard(std::exchange(bubble_, nullptr));
}

}  // namespace lorimel_qt
