// SPDX-License-Identifier: MIT
// A widget library of a few lines, compiled for the Microsoft C++ ABI as the one in the field is,
// and without any run-time library. It remembers what the plug-in passes, and answers values that
// show whether they arrive whole.
#include "msvc_abi/tiny_lorimel.h"

#define TINY_EXPORT extern "C" __declspec(dllexport)

// The compiler makes calls of these from plain assignments.
extern "C" void* memcpy(void* to, const void* from, size_t size) {
  auto* target = static_cast<unsigned char*>(to);
  const auto* source = static_cast<const unsigned char*>(from);
  for (size_t i = 0; i < size; ++i) {
    target[i] = source[i];
  }
  return to;
}

namespace {

using VELLOMAR_LORIMEL::EventKey;
using VELLOMAR_LORIMEL::Lorimel;

TinyReceived received;
Lorimel instance;
char bar;  // its address is the bar's handle

VELLOMAR_LORIMEL::EventCallback* on_event;
VELLOMAR_LORIMEL::ShowWindowCallback* on_show_window;
VELLOMAR_LORIMEL::ClosedCallback* on_closed;

bool Check(const Lorimel* self) {
  if (self != &instance) {
    ++received.wrongThis;
  }
  return self == &instance;
}

}  // namespace

namespace VELLOMAR_LORIMEL {

Lorimel* Lorimel::GetInstance() {
  return &instance;
}

bool Lorimel::CreateControlbar(const char* title, int64_t x, int64_t y, int64_t width,
                               int64_t height, CreatedCallback* created, ClosedCallback* closed,
                               bool /*unused*/, BtnParams* params, int count, int type,
                               bool /*simplify*/) {
  const int room = sizeof received.title - 1;
  for (int i = 0; i < room && title[i] != '\0'; ++i) {
    received.title[i] = title[i];
  }
  received.display = {x, y, width, height};
  received.count = count;
  received.type = type;
  received.first = params[0];
  received.last = params[count - 1];
  on_closed = closed;
  created(&bar, -1, 2, 3, 4, true, 0x0102030405060708);
  return Check(this);
}

bool Lorimel::ShowControlbar(void*& handle, bool show) {
  received.shownHandle = handle;
  received.shown = show;
  return Check(this);
}

bool Lorimel::CloseSharedControlbar() {
  on_closed(&bar);
  return Check(this);
}

bool Lorimel::SetControlbarEventCallback(EventCallback* callback) {
  on_event = callback;
  return Check(this);
}

bool Lorimel::SetShowWindowCallback(ShowWindowCallback* callback) {
  on_show_window = callback;
  return Check(this);
}

bool Lorimel::SetEventKey(BtnParams& params) {
  received.pushed = params;
  return Check(this);
}

bool Lorimel::GetPositionByEventKey(EventKey key, int& x, int& y, int& width, int& height) {
  x = static_cast<int>(key);
  y = -2;
  width = 30;
  height = 2147483647;
  return Check(this);
}

void Lorimel::SetMeetingDuration(uint64_t seconds) {
  received.duration = seconds;
  Check(this);
}

bool Lorimel::SetMicVolume(int volume) {
  received.volume = volume;
  return Check(this);
}

uint64_t Lorimel::GetWidgetNativeHandle(void*& handle) {
  Check(this);
  return handle == &bar ? 0x1122334455667788 : 0;
}

// Looked up when the plug-in is loaded, and not called here.
void Lorimel::ShowControlbarButtonTip(EventKey, const char*, bool, int, bool) {}

void Lorimel::ShowControlbarButtonTipByInfo(EventKey, TipWindowInfo&) {}

bool Lorimel::ShowControlbarButtonConfirmTipByInfo(EventKey, ConfirmTipWindowInfo&) {
  return false;
}

bool Lorimel::ShowSketchControlbar(bool) {
  return false;
}

bool Lorimel::ClearSketchDropDown() {
  return false;
}

bool Lorimel::CloseSketchControlbar() {
  return false;
}

}  // namespace VELLOMAR_LORIMEL

TINY_EXPORT const TinyReceived* TinyReceivedSoFar() {
  return &received;
}

TINY_EXPORT void TinyPressButton(EventKey key) {
  VELLOMAR_LORIMEL::BtnParams params = {};
  params.key = key;
  on_event(params);
}

TINY_EXPORT const VELLOMAR_LORIMEL::BtnParams* TinyOpenList(EventKey key, int* count) {
  return on_show_window(key, *count);
}
