// SPDX-License-Identifier: MIT
// The bars and what the plug-in asks of them.
#include "headless.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <ostream>
#include <utility>

#include "catalog.h"

namespace vellomar_widgets {
namespace {

using VELLOMAR_LORIMEL::BtnParams;
using VELLOMAR_LORIMEL::EventKey;

constexpr int kButtonWidth = 32;

// What the info line above the buttons shows.
constexpr std::array kInfoLine = {
    EventKey::NetworkStrength,  EventKey::RecordIndicator, EventKey::InfoText,
    EventKey::SharingIndicator, EventKey::PauseIndicator,  EventKey::ShareMeetingName,
    EventKey::LiveIndicator,    EventKey::SubRoomName,
};

std::size_t ReadTexts(const BtnParams* records, int count) {
  std::size_t length = 0;
  for (int i = 0; i < count; ++i) {
    const BtnParams& record = records[i];
    for (const char* text :
         {record.objectName, record.text, record.valueText, record.toolTip, record.secondToolTip,
          record.iconPath, record.subLabel, record.extraText}) {
      length += text != nullptr ? std::strlen(text) : 0;
    }
  }
  return length;
}

}  // namespace

std::ostream& operator<<(std::ostream& out, const Call& call) {
  return out << call.member << '(' << call.arguments << ')';
}

Headless& TheHeadless() {
  static Headless library;
  return library;
}

void Headless::Reset() {
  *this = Headless();
}

void Headless::DeliverPending() {
  while (!pending_.empty()) {
    const std::function<void()> callback = std::move(pending_.front());
    pending_.pop_front();
    callback();
  }
}

void Headless::Later(bool later, std::function<void()> callback) {
  if (later) {
    pending_.push_back(std::move(callback));
  } else {
    callback();
  }
}

void Headless::Keep(const char* member, std::string arguments, const OwnedButton* record) {
  calls_.push_back({member, std::move(arguments)});
  if (observer_ != nullptr) {
    const LorimelButton view = record != nullptr ? record->View() : LorimelButton{};
    observer_(observer_context_, member, record != nullptr ? &view : nullptr);
  }
}

std::size_t Headless::CallCount(const std::string& member) const {
  return static_cast<std::size_t>(std::count_if(
      calls_.begin(), calls_.end(), [&member](const Call& call) { return call.member == member; }));
}

std::vector<Push> Headless::Pushed(EventKey key) const {
  std::vector<Push> found;
  std::copy_if(pushed_.begin(), pushed_.end(), std::back_inserter(found),
               [key](const Push& push) { return push.copy.key == key; });
  return found;
}

void* Headless::NewHandle() {
  return &handles_.emplace_back();
}

bool Headless::Create(Creation creation) {
  const bool refused = behaviour.refuse_create || bar_;
  kept_records_ = {creation.params, static_cast<int>(creation.records.size())};
  creations_.push_back(creation);
  if (refused) {
    return false;
  }
  buttons_.clear();
  for (OwnedButton& record : creation.records) {
    buttons_[record.key] = std::move(record);
  }
  Bar bar;
  bar.handle = NewHandle();
  bar.on_created = creation.on_created;
  bar.on_closed = creation.on_closed;
  bar.simplify = creation.simplify;
  bar_ = bar;
  Later(behaviour.created_later, [this, handle = bar.handle] {
    if (bar_ && bar_->handle == handle && bar_->on_created != nullptr) {
      const Rectangle area = behaviour.bar;
      bar_->on_created(handle, area.x, area.y, area.width, area.height, true, handles_.size());
    }
  });
  return true;
}

bool Headless::Show(void* handle, bool show) {
  if (behaviour.refuse_show || !bar_ || handle != bar_->handle) {
    return false;
  }
  bar_->visible = show;
  if (!show) {
    CloseList();
  }
  return true;
}

bool Headless::Close() {
  kept_lists_.clear();  // the plug-in drops its lists when it closes the bar
  return !behaviour.refuse_close && CloseBar();
}

bool Headless::CloseBar() {
  if (!bar_) {
    return false;
  }
  const Bar bar = *bar_;
  const std::optional<List> list = std::exchange(list_, std::nullopt);
  bar_.reset();
  buttons_.clear();
  // From here on the next bar may be created.
  if (bar.on_closed == nullptr) {
    return true;
  }
  if (list) {
    bar.on_closed(list->handle);
  }
  Later(behaviour.closed_later, [bar] { bar.on_closed(bar.handle); });
  return true;
}

bool Headless::SetRecord(const BtnParams& params) {
  const auto found = buttons_.find(params.key);
  if (found == buttons_.end()) {
    return false;
  }
  found->second = OwnedButton(params);
  return true;
}

bool Headless::ShowSketch(bool show) {
  if (behaviour.refuse_sketch || !bar_ || (!show && !bar_->sketch_visible)) {
    return false;
  }
  if (!show) {
    return CloseSketch();
  }
  bar_->sketch_visible = true;
  return true;
}

bool Headless::ClearSketchList() {
  if (behaviour.refuse_sketch || !list_ || !IsOnSketchBar(list_->opener)) {
    return false;
  }
  CloseList();
  return true;
}

bool Headless::CloseSketch() {
  if (behaviour.refuse_sketch || !bar_ || !bar_->sketch_visible) {
    return false;
  }
  bar_->sketch_visible = false;
  ClearSketchList();
  return true;
}

void Headless::ShowBubble(bool asks) {
  if (bar_) {
    bar_->asks = asks;
  }
}

std::optional<Rectangle> Headless::AreaOf(EventKey key) const {
  if (!IsBarVisible()) {
    return std::nullopt;
  }
  const Rectangle& bar = behaviour.bar;
  if (key == EventKey::MainWindow) {
    return bar;
  }
  const auto button = buttons_.find(key);
  if (button == buttons_.end() || !IsOnABar(key)) {
    return std::nullopt;
  }
  const auto place = static_cast<int>(std::distance(buttons_.begin(), button));
  return Rectangle{bar.x + place * kButtonWidth, bar.y, kButtonWidth, bar.height};
}

bool Headless::IsOnABar(EventKey key) const {
  const lorimel_qt::ButtonSpec* spec = lorimel_qt::SpecOf(key);
  if (spec == nullptr) {
    const OwnedButton* record = Button(key);
    return IsBarVisible() && record != nullptr && !record->Has(VELLOMAR_LORIMEL::kStatusHidden) &&
           std::find(kInfoLine.begin(), kInfoLine.end(), key) != kInfoLine.end();
  }
  if (IsOnSketchBar(key)) {
    return IsSketchBarVisible() && lorimel_qt::IsShown(*spec, buttons_, {});
  }
  return IsBarVisible() &&
         lorimel_qt::IsShown(*spec, buttons_,
                             {.simplify = bar_->simplify, .collapsed = bar_->collapsed});
}

const OwnedButton* Headless::Button(EventKey key) const {
  const auto found = buttons_.find(key);
  return found != buttons_.end() ? &found->second : nullptr;
}

std::size_t Headless::ReadEveryText() const {
  std::size_t length = ReadTexts(kept_records_.records, kept_records_.count);
  for (const auto& [window, kept] : kept_lists_) {
    length += ReadTexts(kept.records, kept.count);
  }
  return length;
}

}  // namespace vellomar_widgets
