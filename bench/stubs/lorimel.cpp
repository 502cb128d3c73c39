// SPDX-License-Identifier: MIT
#include "vellomar/lorimel.h"

#include <cstdint>
#include <initializer_list>
#include <string>
#include <utility>

#include "stubs/observer.h"

namespace bench {
namespace {

Observer* widget_observer = nullptr;
Observer* text_reader = nullptr;
WidgetCallbacks callbacks;
char window = 0;  // its address is the bar's handle

void Tell(const char* change, std::int64_t a, std::int64_t b, const char* text) {
  if (widget_observer == nullptr) {
    return;
  }
  const std::string line = std::string(change) + ' ' + std::to_string(a) + ' ' + std::to_string(b) +
                           ' ' + (text != nullptr ? text : "(none)");
  widget_observer(line.c_str());
}

// Asks for no memory: some is refused while it is used.
void Read(std::initializer_list<const char*> texts) {
  if (text_reader == nullptr) {
    return;
  }
  for (const char* text : texts) {
    if (text != nullptr) {
      text_reader(text);
    }
  }
}

}  // namespace

void ReadTexts(Observer* reader) {
  text_reader = reader;
}

void ObserveWidgets(Observer* observer) {
  widget_observer = observer;
}

const WidgetCallbacks& Callbacks() {
  return callbacks;
}

}  // namespace bench

namespace VELLOMAR_LORIMEL {

Lorimel* Lorimel::GetInstance() {
  static Lorimel instance;
  return &instance;
}

bool Lorimel::CreateControlbar(const char* title, std::int64_t, std::int64_t, std::int64_t,
                               std::int64_t, CreatedCallback* on_created, ClosedCallback* on_closed,
                               bool, BtnParams* params, int, int, bool) {
  bench::Read({title});
  bench::callbacks.on_closed = on_closed;
  bench::callbacks.records = params;
  on_created(&bench::window, 0, 0, 800, 60, true, 1);
  return true;
}

bool Lorimel::CloseSharedControlbar() {
  ClosedCallback* const closed = std::exchange(bench::callbacks.on_closed, nullptr);
  if (closed != nullptr) {
    closed(&bench::window);
  }
  return true;
}

bool Lorimel::SetControlbarEventCallback(EventCallback* callback) {
  bench::callbacks.on_event = callback;
  return true;
}

bool Lorimel::SetShowWindowCallback(ShowWindowCallback* callback) {
  bench::callbacks.on_show_window = callback;
  return true;
}

bool Lorimel::SetEventKey(BtnParams& params) {
  bench::Read({params.objectName, params.text, params.valueText, params.toolTip,
               params.secondToolTip, params.iconPath, params.subLabel, params.extraText});
  bench::Tell("button", static_cast<std::int32_t>(params.key), params.status, params.text);
  return true;
}

bool Lorimel::SetMicVolume(int volume) {
  bench::Tell("volume", volume, 0, "");
  return true;
}

bool Lorimel::ShowControlbar(void*&, bool) {
  return true;
}
bool Lorimel::GetPositionByEventKey(EventKey, int&, int&, int&, int&) {
  return false;
}
void Lorimel::SetMeetingDuration(std::uint64_t) {}
void Lorimel::ShowControlbarButtonTip(EventKey, const char* text, bool, int, bool) {
  bench::Read({text});
}
void Lorimel::ShowControlbarButtonTipByInfo(EventKey, TipWindowInfo& info) {
  bench::Read({info.avatarPath, info.senderName, info.text, info.participantKey});
}
bool Lorimel::ShowControlbarButtonConfirmTipByInfo(EventKey, ConfirmTipWindowInfo& info) {
  bench::Read({info.title, info.text, info.confirmText});
  return true;
}
std::uint64_t Lorimel::GetWidgetNativeHandle(void*&) {
  return 1;
}
bool Lorimel::ShowSketchControlbar(bool) {
  return true;
}
bool Lorimel::ClearSketchDropDown() {
  return true;
}
bool Lorimel::CloseSketchControlbar() {
  return true;
}

}  // namespace VELLOMAR_LORIMEL
