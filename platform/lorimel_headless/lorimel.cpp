// SPDX-License-Identifier: MIT
// The members that the plug-in calls: each keeps the call, then answers.
#include "vellomar/lorimel.h"

#include <iomanip>
#include <sstream>
#include <type_traits>
#include <utility>

#include "headless.h"

namespace VELLOMAR_LORIMEL {
namespace {

using vellomar_widgets::Headless;
using vellomar_widgets::OwnedButton;
using vellomar_widgets::TheHeadless;

std::string OrEmpty(const char* text) {
  return text != nullptr ? text : "";
}

template <typename Value>
void Print(std::ostream& out, const Value& value) {
  if constexpr (std::is_enum_v<Value>) {
    out << static_cast<std::int32_t>(value);
  } else if constexpr (std::is_convertible_v<Value, std::string>) {
    out << std::quoted(std::string(value));
  } else {
    out << value;
  }
}

template <typename... Values>
std::string Arguments(const Values&... values) {
  std::ostringstream out;
  out << std::boolalpha;
  const char* separator = "";
  ((out << std::exchange(separator, ", "), Print(out, values)), ...);
  return out.str();
}

}  // namespace

Lorimel* Lorimel::GetInstance() {
  static Lorimel instance;
  return &instance;
}

bool Lorimel::CreateControlbar(const char* title, std::int64_t x, std::int64_t y,
                               std::int64_t width, std::int64_t height, CreatedCallback* onCreated,
                               ClosedCallback* onClosed, bool unused, BtnParams* params,
                               int paramsCount, int type, bool simplify) {
  vellomar_widgets::Creation creation;
  creation.title = OrEmpty(title);
  creation.x = x;
  creation.y = y;
  creation.width = width;
  creation.height = height;
  creation.on_created = onCreated;
  creation.on_closed = onClosed;
  creation.unused = unused;
  creation.params = params;
  creation.type = type;
  creation.simplify = simplify;
  if (params != nullptr && paramsCount > 0) {
    creation.records = std::vector<OwnedButton>(params, params + paramsCount);
  }
  TheHeadless().Keep("CreateControlbar", Arguments(creation.title, x, y, width, height, unused,
                                                   paramsCount, type, simplify));
  return TheHeadless().Create(std::move(creation));
}

bool Lorimel::ShowControlbar(void*& handle, bool show) {
  TheHeadless().Keep("ShowControlbar", Arguments(show));
  return TheHeadless().Show(handle, show);
}

bool Lorimel::CloseSharedControlbar() {
  TheHeadless().Keep("CloseSharedControlbar", "");
  return TheHeadless().Close();
}

bool Lorimel::SetControlbarEventCallback(EventCallback* callback) {
  Headless& library = TheHeadless();
  library.Keep("SetControlbarEventCallback", "");
  if (library.behaviour.refuse_callbacks) {
    return false;
  }
  library.on_event_ = callback;
  return true;
}

bool Lorimel::SetShowWindowCallback(ShowWindowCallback* callback) {
  Headless& library = TheHeadless();
  library.Keep("SetShowWindowCallback", "");
  if (library.behaviour.refuse_callbacks) {
    return false;
  }
  library.on_show_window_ = callback;
  return true;
}

bool Lorimel::SetEventKey(BtnParams& params) {
  Headless& library = TheHeadless();
  const OwnedButton copy(params);
  library.pushed_.push_back({copy, &params});
  const bool known = library.SetRecord(params);
  library.Keep("SetEventKey", Arguments(params.key), &copy);
  return known;
}

bool Lorimel::GetPositionByEventKey(EventKey key, int& x, int& y, int& width, int& height) {
  Headless& library = TheHeadless();
  library.Keep("GetPositionByEventKey", Arguments(key));
  const auto area = library.AreaOf(key);
  if (library.behaviour.refuse_position || !area) {
    return false;
  }
  x = area->x;
  y = area->y;
  width = area->width;
  height = area->height;
  return true;
}

void Lorimel::SetMeetingDuration(std::uint64_t seconds) {
  TheHeadless().duration_ = seconds;
  TheHeadless().Keep("SetMeetingDuration", Arguments(seconds));
}

bool Lorimel::SetMicVolume(int volume) {
  TheHeadless().mic_volume_ = volume;
  TheHeadless().Keep("SetMicVolume", Arguments(volume));
  return TheHeadless().BarHandle() != nullptr;
}

void Lorimel::ShowControlbarButtonTip(EventKey key, const char* text, bool a, int b, bool c) {
  TheHeadless().button_tips_.push_back({key, OrEmpty(text), a, b, c});
  TheHeadless().ShowBubble(false);
  TheHeadless().Keep("ShowControlbarButtonTip", Arguments(key, OrEmpty(text), a, b, c));
}

void Lorimel::ShowControlbarButtonTipByInfo(EventKey key, TipWindowInfo& info) {
  const vellomar_widgets::ChatTip tip = {key, OrEmpty(info.avatarPath), OrEmpty(info.senderName),
                                         OrEmpty(info.text), OrEmpty(info.participantKey)};
  TheHeadless().chat_tips_.push_back(tip);
  TheHeadless().ShowBubble(false);
  TheHeadless().Keep(
      "ShowControlbarButtonTipByInfo",
      Arguments(key, tip.avatar_path, tip.sender_name, tip.text, tip.participant_key));
}

bool Lorimel::ShowControlbarButtonConfirmTipByInfo(EventKey key, ConfirmTipWindowInfo& info) {
  Headless& library = TheHeadless();
  const vellomar_widgets::ConfirmTip tip = {key,
                                            OrEmpty(info.title),
                                            OrEmpty(info.text),
                                            OrEmpty(info.confirmText),
                                            {info.x, info.y, info.width, info.height}};
  library.confirm_tips_.push_back(tip);
  library.Keep("ShowControlbarButtonConfirmTipByInfo",
               Arguments(key, tip.title, tip.text, tip.confirm_text, info.x, info.y, info.width,
                         info.height));
  if (library.behaviour.refuse_confirm_tip || !library.IsBarVisible()) {
    return false;
  }
  library.ShowBubble(true);
  return true;
}

std::uint64_t Lorimel::GetWidgetNativeHandle(void*& handle) {
  Headless& library = TheHeadless();
  library.Keep("GetWidgetNativeHandle", "");
  const bool is_bar = library.BarHandle() != nullptr && library.BarHandle() == handle;
  return is_bar ? library.behaviour.native_handle : 0;
}

bool Lorimel::ShowSketchControlbar(bool show) {
  TheHeadless().Keep("ShowSketchControlbar", Arguments(show));
  return TheHeadless().ShowSketch(show);
}

bool Lorimel::ClearSketchDropDown() {
  TheHeadless().Keep("ClearSketchDropDown", "");
  return TheHeadless().ClearSketchList();
}

bool Lorimel::CloseSketchControlbar() {
  TheHeadless().Keep("CloseSketchControlbar", "");
  return TheHeadless().CloseSketch();
}

}  // namespace VELLOMAR_LORIMEL
