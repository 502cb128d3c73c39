// SPDX-License-Identifier: MIT
// What the user does, and the calls of the plug-in that come of it. A callback may close the bar or
// the drop-down window that was acted on, hence the looks at the handle after each.
#include <algorithm>
#include <utility>

#include "catalog.h"
#include "headless.h"
#include "user_action.h"

namespace vellomar_widgets {
namespace {

using VELLOMAR_LORIMEL::BtnParams;
using VELLOMAR_LORIMEL::EventKey;

constexpr Rectangle kListArea = {100, 90, 240, 320};

// The drop-down window's key; the palette of the colour button is the library's own.
EventKey WindowFor(EventKey opener) {
  return opener == EventKey::SketchColor ? opener : WindowOf(opener);
}

bool OpensOnPress(EventKey key) {
  const lorimel_qt::ButtonSpec* spec = lorimel_qt::SpecOf(key);
  return spec != nullptr && (spec->traits & lorimel_qt::kOpensOnPress) != 0;
}

std::vector<OwnedButton> Palette(const OwnedButton& color_button) {
  std::vector<OwnedButton> rows;
  for (const EventKey key :
       {EventKey::SketchColorNone, EventKey::SketchColor1, EventKey::SketchColor2,
        EventKey::SketchColor3, EventKey::SketchColor4}) {
    OwnedButton row;
    row.key = key;
    row.status =
        lorimel_qt::ChosenSketchColor(color_button) == key ? VELLOMAR_LORIMEL::kStatusOn : 0;
    rows.push_back(std::move(row));
  }
  return rows;
}

// Check and radio rows: the user sees the change in the open window.
bool StaysOpen(const OwnedButton& before, const OwnedButton& after) {
  return after.key == EventKey::JoinPermission || before.status != after.status;
}

}  // namespace

bool Headless::CanUse(EventKey key) const {
  const OwnedButton* record = Button(key);
  return record != nullptr && CanPress(*record) && IsOnABar(key);
}

bool Headless::IsOnSketchBar(EventKey key) {
  return key >= EventKey::SketchSelect && key <= EventKey::SketchClear;
}

bool Headless::Fire(BtnParams& params) {
  if (on_event_ == nullptr) {
    return false;
  }
  on_event_(params);
  return true;
}

BtnParams* Headless::Ask(EventKey window, int& count) {
  if (on_show_window_ == nullptr) {
    return nullptr;
  }
  BtnParams* rows = on_show_window_(window, count);
  kept_lists_[window] = {rows, rows != nullptr ? count : 0};
  return rows;
}

// A copy: the callback may change or remove the button that the event came from.
// NOLINTNEXTLINE(performance-unnecessary-value-param)
bool Headless::Report(OwnedButton event) {
  BtnParams params = event.Params();
  return Fire(params);
}

void Headless::ReportInfoExpanded(bool expanded) {
  const OwnedButton* record = Button(EventKey::MeetingIdExpand);
  OwnedButton event = record != nullptr ? *record : OwnedButton();
  event.key = EventKey::MeetingIdExpand;
  event.status = expanded ? VELLOMAR_LORIMEL::kStatusOn : 0;
  Report(event);
}

bool Headless::PressOutsideButtons(EventKey key) {
  if (key == EventKey::LeaveSubRoom && bar_ && bar_->asks) {
    bar_->asks = false;
    OwnedButton event;
    event.key = key;
    return Report(event);
  }
  // The bar itself, when it is dragged.
  if (key == EventKey::WidgetMoving && IsBarVisible() && Button(key) != nullptr) {
    return Report(*Button(key));
  }
  return false;
}

bool Headless::Press(EventKey key) {
  if (lorimel_qt::SpecOf(key) == nullptr && key != EventKey::InfoText) {
    return PressOutsideButtons(key);
  }
  const bool has_list = list_ && list_->opener == key && OpensOnPress(key);
  if (CanUse(key) && !has_list) {
    CloseList();  // as every click elsewhere does
  }
  if (!CanUse(key)) {
    return false;
  }
  OwnedButton& button = buttons_[key];
  button = AfterPress(button);
  if (key == EventKey::ControlbarSwitch) {
    bar_->collapsed = !bar_->collapsed;
  }
  const void* const bar = BarHandle();
  Report(button);
  if (OpensOnPress(key) && bar == BarHandle() && IsOnABar(key)) {
    if (list_ && list_->opener == key) {
      CloseList();
    } else {
      Open(key);
    }
  }
  return true;
}

std::vector<OwnedButton> Headless::RowsOf(EventKey opener) {
  if (opener == EventKey::SketchColor) {
    return Palette(buttons_[opener]);
  }
  int count = 0;
  const BtnParams* rows = Ask(WindowFor(opener), count);
  if (rows == nullptr || count <= 0) {
    return {};
  }
  return {rows, rows + count};
}

int Headless::Open(EventKey key) {
  const EventKey opener =
      OpenerOf(key) != EventKey::GroupHeader && WindowFor(key) == EventKey::GroupHeader
          ? OpenerOf(key)
          : key;
  if (!CanUse(opener) || WindowFor(opener) == EventKey::GroupHeader ||
      !(lorimel_qt::HasExpandPart(buttons_[opener]) || OpensOnPress(opener))) {
    return -1;
  }
  const void* const bar = BarHandle();
  CloseList();
  if (bar != BarHandle()) {
    return -1;
  }
  std::vector<OwnedButton> rows = RowsOf(opener);
  if (bar != BarHandle()) {
    return -1;
  }
  if (rows.empty()) {
    return 0;
  }
  const int count = static_cast<int>(rows.size());
  void* const handle = NewHandle();
  list_ = List{handle, opener, std::move(rows)};
  bar_->asks = false;
  if (bar_->on_created != nullptr) {
    bar_->on_created(handle, kListArea.x, kListArea.y, kListArea.width, kListArea.height, false,
                     handles_.size());
  }
  if (opener == EventKey::InfoText && list_ && list_->handle == handle) {
    ReportInfoExpanded(true);
  }
  return count;
}

bool Headless::Pick(EventKey key, const char* value_text) {
  if (!list_) {
    return false;
  }
  std::vector<OwnedButton>& rows = list_->rows;
  const auto found = std::find_if(rows.begin(), rows.end(), [=](const OwnedButton& row) {
    return row.key == key && (value_text == nullptr || row.value_text == value_text);
  });
  if (found == rows.end() || !CanPress(*found)) {
    return false;
  }
  const void* const bar = BarHandle();
  const OwnedButton picked = AfterPick(rows, static_cast<std::size_t>(found - rows.begin()));
  if (StaysOpen(*found, picked)) {
    *found = picked;
    for (OwnedButton& row : rows) {
      row.group_value = row.key == key ? picked.group_value : row.group_value;
    }
  } else {
    CloseList();
  }
  if (bar == BarHandle()) {
    Report(picked);
  }
  return true;
}

void Headless::CloseList() {
  if (!list_) {
    return;
  }
  const List list = *std::exchange(list_, std::nullopt);
  // A button that is "on" while its window is open goes off with it, however the window closed.
  const auto opener = buttons_.find(list.opener);
  if (OpensOnPress(list.opener) && !IsOnSketchBar(list.opener) && opener != buttons_.end()) {
    opener->second.status &= ~VELLOMAR_LORIMEL::kStatusOn;
  }
  const void* const bar = BarHandle();
  if (bar_ && bar_->on_closed != nullptr) {
    bar_->on_closed(list.handle);
  }
  if (list.opener == EventKey::InfoText && bar == BarHandle()) {
    ReportInfoExpanded(false);
  }
}

void Headless::Observe(LorimelObserver* observer, void* context) {
  observer_ = observer;
  observer_context_ = context;
}

}  // namespace vellomar_widgets
