// SPDX-License-Identifier: MIT
#include "plugin/widget_library.h"

#include <sstream>
#include <type_traits>
#include <utility>

namespace streams {

WidgetLibrary& TheLibrary() {
  static WidgetLibrary library;
  return library;
}

bool WidgetLibrary::Call(const std::string& member, const std::string& arguments) {
  const bool refuses = refused.count(member) != 0;
  if (report) report("lib " + member + arguments + (refuses ? " = false" : ""));
  return refuses;
}

std::string WidgetLibrary::HandleName(const void* handle) const {
  if (handle == nullptr) return "null";
  for (std::size_t i = 0; i < handles.size(); ++i) {
    if (&handles[i] == handle) return "bar" + std::to_string(i + 1);
  }
  return "unknown";
}

void WidgetLibrary::Created() {
  const Rectangle area = places[1000];
  if (on_created != nullptr) {
    on_created(bar, area.x, area.y, area.width, area.height, true, handles.size());
  }
}

void WidgetLibrary::CreatedPopup(std::uint64_t id, Rectangle place) {
  on_created(this, place.x, place.y, place.width, place.height, false, id);
}

}  // namespace streams

namespace VELLOMAR_LORIMEL {
namespace {

using streams::Quoted;
using streams::TheLibrary;
using streams::WidgetLibrary;

template <typename... Values>
std::string Words(const Values&... values) {
  std::ostringstream out;
  out << std::boolalpha;
  const auto print = [&out](const auto& value) {
    using Value = std::decay_t<decltype(value)>;
    if constexpr (std::is_enum_v<Value>) {
      out << ' ' << static_cast<std::int32_t>(value);
    } else if constexpr (std::is_same_v<Value, const char*>) {
      out << ' ' << Quoted(value);
    } else {
      out << ' ' << value;
    }
  };
  (print(values), ...);
  return out.str();
}

// The records that a bar starts with, where they are not as usual.
void TakeRecords(WidgetLibrary& library, const BtnParams* records, int count) {
  library.last.clear();
  for (int i = 0; i < count; ++i) {
    const int key = static_cast<int>(records[i].key);
    const auto index = static_cast<std::size_t>(i);
    const streams::Fields fields = streams::FieldsOf(records[i]);
    const bool known = index < library.usual.size();
    const std::string changes =
        streams::Changes(known ? library.usual[index] : streams::FieldsOf({}), fields);
    if (!changes.empty() || key != 1000 + i) {
      library.report("  record " + std::to_string(key) + changes);
    }
    library.last[key] = fields;
  }
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
  WidgetLibrary& library = TheLibrary();
  const bool refuses = library.Call(
      "CreateControlbar",
      Words(title, x, y, width, height, onCreated != nullptr ? "onCreated" : "null",
            onClosed != nullptr ? "onClosed" : "null", unused, paramsCount, type, simplify));
  TakeRecords(library, params, paramsCount);
  if (refuses) return false;
  library.on_created = onCreated;
  library.on_closed = onClosed;
  library.bar = &library.handles.emplace_back();
  library.open = true;
  if (!library.created_later) library.Created();
  return true;
}

bool Lorimel::ShowControlbar(void*& handle, bool show) {
  return !TheLibrary().Call("ShowControlbar", Words(TheLibrary().HandleName(handle).c_str(), show));
}

bool Lorimel::CloseSharedControlbar() {
  WidgetLibrary& library = TheLibrary();
  if (library.Call("CloseSharedControlbar") || !std::exchange(library.open, false)) return false;
  if (!library.closed_later) library.on_closed(library.bar);
  return true;
}

bool Lorimel::SetControlbarEventCallback(EventCallback* callback) {
  TheLibrary().on_event = callback;
  return !TheLibrary().Call("SetControlbarEventCallback", callback != nullptr ? "" : " null");
}

bool Lorimel::SetShowWindowCallback(ShowWindowCallback* callback) {
  TheLibrary().on_show_window = callback;
  return !TheLibrary().Call("SetShowWindowCallback", callback != nullptr ? "" : " null");
}

bool Lorimel::SetEventKey(BtnParams& params) {
  WidgetLibrary& library = TheLibrary();
  const int key = static_cast<int>(params.key);
  const streams::Fields fields = streams::FieldsOf(params);
  const auto before = library.last.try_emplace(key, streams::FieldsOf({})).first;
  library.report("push " + std::to_string(key) + streams::Changes(before->second, fields));
  before->second = fields;
  return library.refused.count("SetEventKey") == 0;
}

bool Lorimel::GetPositionByEventKey(EventKey key, int& x, int& y, int& width, int& height) {
  WidgetLibrary& library = TheLibrary();
  const auto place = library.places.find(static_cast<int>(key));
  if (library.Call("GetPositionByEventKey", Words(key)) || place == library.places.end()) {
    return false;
  }
  x = place->second.x;
  y = place->second.y;
  width = place->second.width;
  height = place->second.height;
  return true;
}

void Lorimel::SetMeetingDuration(std::uint64_t seconds) {
  TheLibrary().Call("SetMeetingDuration", Words(seconds));
}

bool Lorimel::SetMicVolume(int volume) {
  return !TheLibrary().Call("SetMicVolume", Words(volume));
}

void Lorimel::ShowControlbarButtonTip(EventKey key, const char* text, bool a, int b, bool c) {
  TheLibrary().Call("ShowControlbarButtonTip", Words(key, text, a, b, c));
}

void Lorimel::ShowControlbarButtonTipByInfo(EventKey key, TipWindowInfo& info) {
  TheLibrary().Call("ShowControlbarButtonTipByInfo",
                    Words(key, info.avatarPath, info.senderName, info.text, info.participantKey));
}

bool Lorimel::ShowControlbarButtonConfirmTipByInfo(EventKey key, ConfirmTipWindowInfo& info) {
  return !TheLibrary().Call(
      "ShowControlbarButtonConfirmTipByInfo",
      Words(key, info.title, info.text, info.confirmText, info.x, info.y, info.width, info.height));
}

std::uint64_t Lorimel::GetWidgetNativeHandle(void*& handle) {
  TheLibrary().Call("GetWidgetNativeHandle", Words(TheLibrary().HandleName(handle).c_str()));
  return 4711;
}

bool Lorimel::ShowSketchControlbar(bool show) {
  return !TheLibrary().Call("ShowSketchControlbar", Words(show));
}

bool Lorimel::ClearSketchDropDown() {
  return !TheLibrary().Call("ClearSketchDropDown");
}

bool Lorimel::CloseSketchControlbar() {
  return !TheLibrary().Call("CloseSketchControlbar");
}

}  // namespace VELLOMAR_LORIMEL
