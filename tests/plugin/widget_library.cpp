// SPDX-License-Identifier: MIT
#include "plugin/widget_library.h"

#include <fmt/format.h>

#include <utility>

namespace streams {

WidgetLibrary& TheLibrary() {
  static WidgetLibrary library;
  return library;
}

void WidgetLibrary::ReportCreated() {
  const auto [x, y, width, height] = places[1000];
  on_created(bar, x, y, width, height, true, handles.size());
}

void WidgetLibrary::ReportClosed() {
  rows.clear();
  on_closed(bar);
}

namespace {

// Reports a call; returns whether it is accepted.
template <typename... Arguments>
bool Call(const std::string& member, const Arguments&... arguments) {
  std::string line = "lib " + member;
  (line.append(fmt::format(" {}", arguments)), ...);
  const bool accepted = TheLibrary().refused.count(member) == 0;
  TheLibrary().report(accepted ? line : line + " = false");
  return accepted;
}

std::string Handle(const void* handle) {
  const std::deque<char>& handles = TheLibrary().handles;
  for (std::size_t i = 0; i < handles.size(); ++i) {
    if (&handles[i] == handle) {
      return fmt::format("bar{}", i + 1);
    }
  }
  return handle == nullptr ? "null" : "unknown";
}

const char* Given(const void* callback) {
  return callback != nullptr ? "given" : "null";
}

// The records that a bar starts with; those that are not as usual are shown.
void TakeRecords(const VELLOMAR_LORIMEL::BtnParams* records, int count) {
  WidgetLibrary& library = TheLibrary();
  library.last.clear();
  for (int i = 0; i < count; ++i) {
    const int key = static_cast<int>(records[i].key);
    const auto index = static_cast<std::size_t>(i);
    const Fields fields = FieldsOf(records[i]);
    const bool has_usual = index < library.usual.size();
    const Fields usual = has_usual ? library.usual[index] : FieldsOf({});
    if (key != 1000 + i || fields != usual) {
      library.report(fmt::format("  record {}{}", key, Changes(usual, fields)));
    }
    library.last[key] = fields;
  }
}

}  // namespace
}  // namespace streams

namespace VELLOMAR_LORIMEL {

using streams::Call;
using streams::Changes;
using streams::Given;
using streams::Handle;
using streams::Quoted;
using streams::TheLibrary;
using streams::WidgetLibrary;

static int Number(EventKey key) {
  return static_cast<int>(key);
}

Lorimel* Lorimel::GetInstance() {
  static Lorimel instance;
  return &instance;
}

bool Lorimel::CreateControlbar(const char* title, std::int64_t x, std::int64_t y,
                               std::int64_t width, std::int64_t height, CreatedCallback* on_created,
                               ClosedCallback* on_closed, bool unused, BtnParams* params,
                               int params_count, int type, bool simplify) {
  WidgetLibrary& library = TheLibrary();
  const bool accepted =
      Call("CreateControlbar", Quoted(title), x, y, width, height,
           Given(reinterpret_cast<void*>(on_created)), Given(reinterpret_cast<void*>(on_closed)),
           unused, params_count, type, simplify);
  streams::TakeRecords(params, params_count);
  if (!accepted) {
    return false;
  }
  library.records = {params, static_cast<std::size_t>(params_count)};
  library.on_created = on_created;
  library.on_closed = on_closed;
  library.bar = &library.handles.emplace_back();
  library.open = true;
  if (!library.created_later) {
    library.ReportCreated();
  }
  return true;
}

bool Lorimel::ShowControlbar(void*& handle, bool show) {
  return Call("ShowControlbar", Handle(handle), show);
}

bool Lorimel::CloseSharedControlbar() {
  WidgetLibrary& library = TheLibrary();
  if (!Call("CloseSharedControlbar") || !std::exchange(library.open, false)) {
    return false;
  }
  if (!library.closed_later) {
    library.ReportClosed();
  }
  return true;
}

bool Lorimel::SetControlbarEventCallback(EventCallback* callback) {
  TheLibrary().on_event = callback;
  return Call("SetControlbarEventCallback", Given(reinterpret_cast<void*>(callback)));
}

bool Lorimel::SetShowWindowCallback(ShowWindowCallback* callback) {
  TheLibrary().on_show_window = callback;
  return Call("SetShowWindowCallback", Given(reinterpret_cast<void*>(callback)));
}

bool Lorimel::SetEventKey(BtnParams& params) {
  const streams::Fields fields = streams::FieldsOf(params);
  auto& before =
      TheLibrary().last.try_emplace(Number(params.key), streams::FieldsOf({})).first->second;
  TheLibrary().report(fmt::format("push {}{}", Number(params.key), Changes(before, fields)));
  before = fields;
  return TheLibrary().refused.count("SetEventKey") == 0;
}

bool Lorimel::GetPositionByEventKey(EventKey key, int& x, int& y, int& width, int& height) {
  const auto place = TheLibrary().places.find(Number(key));
  if (!Call("GetPositionByEventKey", Number(key)) || place == TheLibrary().places.end()) {
    return false;
  }
  x = place->second.x;
  y = place->second.y;
  width = place->second.width;
  height = place->second.height;
  return true;
}

void Lorimel::SetMeetingDuration(std::uint64_t seconds) {
  Call("SetMeetingDuration", seconds);
}

bool Lorimel::SetMicVolume(int volume) {
  return Call("SetMicVolume", volume);
}

void Lorimel::ShowControlbarButtonTip(EventKey key, const char* text, bool a, int b, bool c) {
  Call("ShowControlbarButtonTip", Number(key), Quoted(text), a, b, c);
}

void Lorimel::ShowControlbarButtonTipByInfo(EventKey key, TipWindowInfo& info) {
  Call("ShowControlbarButtonTipByInfo", Number(key), Quoted(info.avatarPath),
       Quoted(info.senderName), Quoted(info.text), Quoted(info.participantKey));
}

bool Lorimel::ShowControlbarButtonConfirmTipByInfo(EventKey key, ConfirmTipWindowInfo& info) {
  return Call("ShowControlbarButtonConfirmTipByInfo", Number(key), Quoted(info.title),
              Quoted(info.text), Quoted(info.confirmText), info.x, info.y, info.width, info.height);
}

std::uint64_t Lorimel::GetWidgetNativeHandle(void*& handle) {
  return Call("GetWidgetNativeHandle", Handle(handle)) ? 4711 : 0;
}

bool Lorimel::ShowSketchControlbar(bool show) {
  return Call("ShowSketchControlbar", show);
}

bool Lorimel::ClearSketchDropDown() {
  return Call("ClearSketchDropDown");
}

bool Lorimel::CloseSketchControlbar() {
  return Call("CloseSketchControlbar");
}

}  // namespace VELLOMAR_LORIMEL
