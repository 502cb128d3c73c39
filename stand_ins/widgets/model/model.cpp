// SPDX-License-Identifier: MIT
// The bars, and the calls of the plug-in.
#include "model/model.h"

#include <algorithm>
#include <utility>

#include "model/user_action.h"

namespace vellomar_widgets {

using VELLOMAR_LORIMEL::EventKey;

bool Model::Create(BarRequest request) {
  if (bar_ != nullptr) {
    return false;
  }
  ++generation_;
  request_ = std::move(request);
  mode_ = {.simplify = request_.simplify, .collapsed = false};
  const Window window = view_.MakeBar();
  bar_ = window.handle;
  ReportCreated(window, true);
  return true;
}

bool Model::Show(void* handle, bool show) {
  if (bar_ == nullptr || handle != bar_) {
    return false;
  }
  if (!show) {
    CloseBubble();
    CloseList();
  }
  if (handle == bar_) {  // the plug-in was told of the list's closing
    bar_visible_ = show;
    view_.ShowBar(show);
  }
  return true;
}

bool Model::Close() {
  if (bar_ == nullptr) {
    return false;
  }
  ++generation_;
  void* const bar = std::exchange(bar_, nullptr);
  const std::optional<List> list = std::exchange(list_, std::nullopt);
  bubble_.reset();
  bar_visible_ = false;
  sketch_bar_ = SketchBar::kNone;
  view_.CloseBar();
  // From here on the next bar may be created.
  auto* const on_closed = std::exchange(request_, {}).on_closed;
  if (list) {
    ReportClosed(on_closed, list->handle);
  }
  ReportClosed(on_closed, bar);
  return true;
}

bool Model::ShowSketchBar(bool show) {
  if (bar_ == nullptr || (sketch_bar_ == SketchBar::kNone && !show)) {
    return false;
  }
  if (!show) {
    CloseSketchList();
  }
  if (bar_ != nullptr && (show || sketch_bar_ != SketchBar::kNone)) {
    sketch_bar_ = show ? SketchBar::kVisible : SketchBar::kHidden;
    view_.ShowSketchBar(show);
  }
  return true;
}

bool Model::CloseSketchBar() {
  if (sketch_bar_ == SketchBar::kNone) {
    return false;
  }
  CloseSketchList();
  if (sketch_bar_ != SketchBar::kNone) {
    sketch_bar_ = SketchBar::kNone;
    view_.CloseSketchBar();
  }
  return true;
}

void Model::Refresh() {
  view_.RefreshBars();
  FollowBubble();
}

bool Model::SetRecord(const OwnedButton& record) {
  const auto found = request_.records.find(record.key);
  if (bar_ == nullptr || found == request_.records.end()) {
    return false;
  }
  const OwnedButton before = std::exchange(found->second, record);
  Refresh();
  if (before.text != record.text || before.tool_tip != record.tool_tip) {
    TranslateBubble(before, record);
  }
  if (list_ && (before.text != record.text || record.key == list_->opener)) {
    view_.RefreshListSoon();
  }
  return true;
}

bool Model::SetDuration(std::uint64_t seconds) {
  if (bar_ != nullptr) {
    view_.StartClock(seconds);
  }
  return bar_ != nullptr;
}

bool Model::SetMicVolume(int percent) {
  if (bar_ != nullptr) {
    view_.SetMicVolume(std::clamp(percent, 0, 100));
  }
  return bar_ != nullptr;
}

const OwnedButton* Model::Record(EventKey key) const {
  const auto found = request_.records.find(key);
  return found != request_.records.end() ? &found->second : nullptr;
}

std::optional<Rectangle> Model::AreaOf(EventKey key) const {
  if (list_ && SpecOf(key) == nullptr && WindowOf(list_->opener) == key) {
    return view_.ListArea();
  }
  return IsShown(key) ? view_.AreaOf(key) : std::nullopt;
}

bool Model::IsShown(EventKey key) const {
  const bool is_visible = IsOnSketchBar(key) ? IsSketchBarVisible() : IsBarVisible();
  return is_visible &&
         (key == EventKey::MainWindow || vellomar_widgets::IsShown(key, request_.records, mode_));
}

bool Model::CanUse(EventKey key) const {
  const OwnedButton* record = Record(key);
  return record != nullptr && CanPress(*record) && IsShown(key);
}

bool Model::PressOutsideButtons(EventKey key) {
  if (key == EventKey::LeaveSubRoom && bubble_ && bubble_->is_question) {
    CloseBubble();
    OwnedButton event;
    event.key = key;
    Report(event);
    return true;
  }
  // The bar itself, when it is dragged.
  if (key == EventKey::WidgetMoving && IsBarVisible() && Record(key) != nullptr) {
    Report(*Record(key));
    return true;
  }
  return false;
}

bool Model::Press(EventKey key) {
  if (SpecOf(key) == nullptr && key != EventKey::InfoText) {
    return PressOutsideButtons(key);
  }
  const bool opens = OpensOnPress(key);
  if (CanUse(key) && list_ && !(opens && list_->opener == key)) {
    CloseList();  // as every click elsewhere does
  }
  if (!CanUse(key)) {
    return false;
  }
  OwnedButton& record = request_.records.at(key);
  record = AfterPress(record);
  if (key == EventKey::ControlbarSwitch) {
    mode_.collapsed = !mode_.collapsed;
  }
  Refresh();
  const unsigned generation = generation_;
  Report(record);
  if (opens && generation == generation_ && IsShown(key)) {
    ToggleList(key);
  }
  return true;
}

// By value: the plug-in may push the same button's record meanwhile.
// NOLINTNEXTLINE(performance-unnecessary-value-param)
void Model::Report(OwnedButton event) {
  if (on_event_ != nullptr) {
    VELLOMAR_LORIMEL::BtnParams params = event.Params();
    ++callback_depth_;
    on_event_(params);
    --callback_depth_;
  }
}

void Model::ReportCreated(const Window& window, bool is_main) {
  if (request_.on_created != nullptr) {
    const auto& [x, y, width, height] = window.area;
    ++callback_depth_;
    request_.on_created(window.handle, x, y, width, height, is_main, window.id);
    --callback_depth_;
  }
}

void Model::ReportClosed(VELLOMAR_LORIMEL::ClosedCallback* callback, void* handle) {
  if (callback != nullptr) {
    ++callback_depth_;
    callback(handle);
    --callback_depth_;
  }
}

}  // namespace vellomar_widgets
