// SPDX-License-Identifier: MIT
// The model's pop-up windows: drop-down windows and bubbles.
#include <utility>

#include "model/model.h"
#include "model/user_action.h"

namespace vellomar_widgets {
namespace {

using VELLOMAR_LORIMEL::EventKey;

// The drop-down window's key; the colour button's palette is the library's own.
EventKey WindowFor(EventKey opener) {
  return opener == EventKey::SketchColor ? opener : WindowOf(opener);
}

// Takes the key of a button or of its window.
EventKey OpenerFor(EventKey key) {
  const EventKey opener = OpenerOf(key);
  return opener != EventKey::GroupHeader && WindowFor(key) == EventKey::GroupHeader ? opener : key;
}

Rows PaletteRows(const OwnedButton& color_button) {
  Rows rows;
  for (int key = static_cast<int>(EventKey::SketchColorNone);
       key <= static_cast<int>(EventKey::SketchColor4); ++key) {
    OwnedButton row;
    row.key = static_cast<EventKey>(key);
    row.status = ChosenSketchColor(color_button) == row.key ? VELLOMAR_LORIMEL::kStatusOn : 0;
    rows.push_back(row);
  }
  return rows;
}

}  // namespace

Rows Model::AskForRows(EventKey opener) {
  if (opener == EventKey::SketchColor) {
    return PaletteRows(*Record(opener));
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

void Model::ToggleList(EventKey opener) {
  if (list_ && list_->opener == opener) {
    CloseList();
  } else {
    Open(opener);
  }
}

int Model::Open(EventKey key) {
  const EventKey opener = OpenerFor(key);
  if (!CanUse(opener) || WindowFor(opener) == EventKey::GroupHeader ||
      !(HasExpandPart(*Record(opener)) || OpensOnPress(opener))) {
    return -1;
  }
  const unsigned generation = generation_;
  CloseList();
  Rows rows;
  if (generation == generation_) {
    rows = AskForRows(opener);
  }
  if (generation != generation_ || !IsShown(opener)) {
    return -1;  // the plug-in has closed the bar meanwhile
  }
  const int count = static_cast<int>(rows.size());
  if (count > 0) {
    ShowList(opener, std::move(rows));
  }
  return count;
}

void Model::ShowList(EventKey opener, Rows rows) {
  CloseBubble();
  list_ = List{opener, std::move(rows)};
  const Window window = view_.MakeList();
  list_->handle = window.handle;
  const unsigned generation = generation_;
  ReportCreated(window, false);
  if (opener == EventKey::InfoText && generation == generation_ && list_ &&
      list_->handle == window.handle) {
    ReportInfoExpanded(true);
  }
}

void Model::RefreshList() {
  if (!list_) {
    return;
  }
  const EventKey opener = list_->opener;
  const void* const handle = list_->handle;
  if (!CanUse(opener)) {
    CloseList();
    return;
  }
  Rows rows = AskForRows(opener);
  if (!list_ || list_->handle != handle) {
    return;  // the plug-in has closed it meanwhile
  }
  if (rows.empty()) {
    CloseList();
  } else {
    list_->rows = std::move(rows);
    view_.RefreshList();
  }
}

void Model::ReportInfoExpanded(bool expanded) {
  OwnedButton event;
  if (const OwnedButton* record = Record(EventKey::MeetingIdExpand); record != nullptr) {
    event = *record;
  }
  event.key = EventKey::MeetingIdExpand;
  event.status = expanded ? VELLOMAR_LORIMEL::kStatusOn : 0;
  Report(event);
}

void Model::CloseList() {
  if (!list_) {
    return;
  }
  const List list = *std::exchange(list_, std::nullopt);
  const unsigned generation = generation_;
  view_.CloseList();
  // A button that is "on" while its window is open goes off with it, however the window closed.
  const auto record = request_.records.find(list.opener);
  if (OpensOnPress(list.opener) && !IsOnSketchBar(list.opener) &&
      record != request_.records.end()) {
    record->second.status &= ~VELLOMAR_LORIMEL::kStatusOn;
    Refresh();
  }
  ReportClosed(request_.on_closed, list.handle);
  if (list.opener == EventKey::InfoText && generation == generation_) {
    ReportInfoExpanded(false);
  }
}

bool Model::CloseSketchList() {
  if (!list_ || !IsOnSketchBar(list_->opener)) {
    return false;
  }
  CloseList();
  return true;
}

bool Model::Pick(std::size_t row) {
  if (!list_ || row >= list_->rows.size() || !CanPress(list_->rows[row])) {
    return false;
  }
  const unsigned generation = generation_;
  const OwnedButton picked = AfterPick(list_->rows, row);
  if (StaysOpenAfterPick(picked.key)) {
    MarkPicked(row, picked);
  } else {
    CloseList();
  }
  if (generation == generation_) {
    Report(picked);
  }
  return true;
}

void Model::MarkPicked(std::size_t row, const OwnedButton& picked) {
  list_->rows[row] = picked;
  for (OwnedButton& other : list_->rows) {
    if (other.key == picked.key) {
      other.group_value = picked.group_value;
    }
  }
  view_.RefreshList();
}

bool Model::ShowBubble(Bubble bubble) {
  if (!IsBarVisible()) {
    return false;
  }
  CloseBubble();
  if (!IsShown(bubble.button)) {
    bubble.button = EventKey::GroupHeader;
  }
  bubble_ = std::move(bubble);
  view_.MakeBubble();
  return true;
}

// A bubble that says what its button says goes on doing so in another language.
void Model::TranslateBubble(const OwnedButton& before, const OwnedButton& after) {
  if (!bubble_ || bubble_->button != after.key) {
    return;
  }
  for (const auto& [old_text, new_text] :
       {std::pair(before.text, after.text), std::pair(before.tool_tip, after.tool_tip)}) {
    if (old_text != new_text && !new_text.empty() && bubble_->text == old_text) {
      bubble_->text = new_text;
      view_.MakeBubble();
      return;
    }
  }
}

// Goes with a button that goes.
void Model::FollowBubble() {
  if (bubble_ && bubble_->button != EventKey::GroupHeader && !IsShown(bubble_->button)) {
    CloseBubble();
  }
}

void Model::CloseBubble() {
  if (bubble_) {
    bubble_.reset();
    view_.CloseBubble();
  }
}

}  // namespace vellomar_widgets
