// SPDX-License-Identifier: MIT
// A widget library of a few lines, compiled for the Microsoft C++ ABI as the one in the field is,
// and without any run-time library. It remembers what the plug-in passes, and answers values that
// show whether they arrive whole.
#include "tiny_lorimel.h"

#include "vellomar/lorimel.h"

#define TINY_EXPORT extern "C" __declspec(dllexport)

// The compiler makes calls of these from plain assignments.
extern "C" void* memcpy(void* to, const void* from, size_t size) {
  auto* target = static_cast<unsigned char*>(to);
  const auto* source = static_cast<const unsigned char*>(from);
  for (size_t i = 0; i < size; ++i) target[i] = source[i];
  return to;
}

namespace {

using VELLOMAR_LORIMEL::BtnParams;
using VELLOMAR_LORIMEL::EventKey;
using VELLOMAR_LORIMEL::Lorimel;

TinyReceived received;
Lorimel* instance;
char bar;  // its address is the bar's handle

VELLOMAR_LORIMEL::EventCallback* on_event;
VELLOMAR_LORIMEL::ShowWindowCallback* on_show_window;
VELLOMAR_LORIMEL::ClosedCallback* on_closed;

void CopyText(char (&to)[kTinyTextSize], const char* text) {
  int length = 0;
  for (; text != nullptr && text[length] != '\0' && length < kTinyTextSize - 1; ++length) {
    to[length] = text[length];
  }
  to[length] = '\0';
}

void CopyRecord(TinyRecord& to, const BtnParams& params) {
  static_assert(sizeof(BtnParams) == sizeof to.bytes);
  memcpy(to.bytes, &params, sizeof params);
  CopyText(to.text, params.text);
}

bool Check(const Lorimel* self) {
  if (self != instance) ++received.wrongThis;
  return self == instance;
}

}  // namespace

namespace VELLOMAR_LORIMEL {

Lorimel* Lorimel::GetInstance() {
  static char object;
  instance = reinterpret_cast<Lorimel*>(&object);
  return instance;
}

bool Lorimel::CreateControlbar(const char* title, int64_t x, int64_t y, int64_t width,
                               int64_t height, CreatedCallback* created, ClosedCallback* closed,
                               bool unused, BtnParams* params, int count, int type, bool simplify) {
  CopyText(received.title, title);
  received.x = x;
  received.y = y;
  received.width = width;
  received.height = height;
  received.paramsCount = count;
  received.type = type;
  received.unused = unused ? 1 : 0;
  received.simplify = simplify ? 1 : 0;
  CopyRecord(received.first, params[0]);
  CopyRecord(received.last, params[count - 1]);
  on_closed = closed;
  created(&bar, -1, 2, 3, 4, true, 0x0102030405060708);
  return Check(this);
}

bool Lorimel::ShowControlbar(void*& handle, bool show) {
  received.shownHandle = handle;
  received.shown = show ? 1 : 0;
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
  if (received.pushes < kTinyPushes) CopyRecord(received.pushed[received.pushes], params);
  ++received.pushes;
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

void Lorimel::ShowControlbarButtonTip(EventKey key, const char* text, bool a, int b, bool c) {
  received.tipKey = static_cast<int32_t>(key);
  CopyText(received.tip, text);
  received.tipFlagA = a ? 1 : 0;
  received.tipNumber = b;
  received.tipFlagC = c ? 1 : 0;
  Check(this);
}

void Lorimel::ShowControlbarButtonTipByInfo(EventKey /*key*/, TipWindowInfo& /*info*/) {
  Check(this);
}

bool Lorimel::ShowControlbarButtonConfirmTipByInfo(EventKey /*key*/,
                                                   ConfirmTipWindowInfo& /*info*/) {
  return Check(this);
}

uint64_t Lorimel::GetWidgetNativeHandle(void*& handle) {
  Check(this);
  return handle == &bar ? 0x1122334455667788 : 0;
}

bool Lorimel::ShowSketchControlbar(bool /*show*/) {
  return Check(this);
}

bool Lorimel::ClearSketchDropDown() {
  return Check(this);
}

bool Lorimel::CloseSketchControlbar() {
  return Check(this);
}

}  // namespace VELLOMAR_LORIMEL

TINY_EXPORT const TinyReceived* TinyReceivedSoFar() {
  return &received;
}

TINY_EXPORT void TinyPressButton(int32_t key, int32_t status) {
  BtnParams params = {};
  params.key = static_cast<EventKey>(key);
  params.status = status;
  params.text = "Pressed";
  on_event(params);
}

TINY_EXPORT int32_t TinyOpenList(int32_t key, char* lastText) {
  int count = -1;
  const BtnParams* rows = on_show_window(static_cast<EventKey>(key), count);
  char text[kTinyTextSize] = {};
  if (rows != nullptr && count > 0) CopyText(text, rows[count - 1].text);
  memcpy(lastText, text, sizeof text);
  return rows != nullptr ? count : -1;
}
