// SPDX-License-Identifier: MIT
// The members that the plug-in calls: each tells the observer, checks what it was given, and hands
// on to the model.
#include "vellomar/lorimel.h"

#include <utility>

#include "model/library.h"

namespace VELLOMAR_LORIMEL {
namespace {

using vellomar_widgets::Bubble;
using vellomar_widgets::Model;
using vellomar_widgets::OwnedButton;

// Null where the member is to fail.
Model* Called(const char* member, const OwnedButton* record = nullptr) {
  vellomar_widgets::Observe(member, record);
  return vellomar_widgets::IsRefused(member) ? nullptr : vellomar_widgets::CurrentModel(member);
}

vellomar_widgets::Records CopyRecords(const BtnParams* params, int count) {
  vellomar_widgets::Records records;
  for (int i = 0; i < count; ++i) {
    const int key = static_cast<int>(params[i].key);
    if (key >= kFirstKey && key <= kLastKey) {
      records.insert_or_assign(params[i].key, OwnedButton(params[i]));
    }
  }
  return records;
}

std::string OrEmpty(const char* text) {
  return text != nullptr ? text : "";
}

}  // namespace

Lorimel* Lorimel::GetInstance() {
  static Lorimel instance;
  vellomar_widgets::CurrentModel("GetInstance");
  return &instance;
}

bool Lorimel::CreateControlbar(const char* title, std::int64_t x, std::int64_t y,
                               std::int64_t width, std::int64_t height, CreatedCallback* on_created,
                               ClosedCallback* on_closed, bool /*unused*/, BtnParams* params,
                               int params_count, int /*type*/, bool simplify) {
  Model* model = Called("CreateControlbar");
  if (model == nullptr || params_count < 0 || (params == nullptr && params_count > 0)) {
    return false;
  }
  return model->Create({.title = OrEmpty(title),
                        .x = x,
                        .y = y,
                        .width = width,
                        .height = height,
                        .on_created = on_created,
                        .on_closed = on_closed,
                        .records = CopyRecords(params, params_count),
                        .simplify = simplify});
}

bool Lorimel::ShowControlbar(void*& handle, bool show) {
  Model* model = Called("ShowControlbar");
  return model != nullptr && model->Show(handle, show);
}

bool Lorimel::CloseSharedControlbar() {
  Model* model = Called("CloseSharedControlbar");
  return model != nullptr && model->Close();
}

bool Lorimel::SetControlbarEventCallback(EventCallback* callback) {
  Model* model = Called("SetControlbarEventCallback");
  if (model != nullptr) {
    model->SetEventCallback(callback);
  }
  return model != nullptr;
}

bool Lorimel::SetShowWindowCallback(ShowWindowCallback* callback) {
  Model* model = Called("SetShowWindowCallback");
  if (model != nullptr) {
    model->SetShowWindowCallback(callback);
  }
  return model != nullptr;
}

bool Lorimel::SetEventKey(BtnParams& params) {
  const OwnedButton record(params);
  Model* model = Called("SetEventKey", &record);
  return model != nullptr && model->SetRecord(record);
}

bool Lorimel::GetPositionByEventKey(EventKey key, int& x, int& y, int& width, int& height) {
  const Model* model = Called("GetPositionByEventKey");
  const auto area = model != nullptr ? model->AreaOf(key) : std::nullopt;
  if (area) {
    x = area->x;
    y = area->y;
    width = area->width;
    height = area->height;
  }
  return area.has_value();
}

void Lorimel::SetMeetingDuration(std::uint64_t seconds) {
  if (Model* model = Called("SetMeetingDuration"); model != nullptr) {
    model->SetDuration(seconds);
  }
}

bool Lorimel::SetMicVolume(int volume) {
  Model* model = Called("SetMicVolume");
  return model != nullptr && model->SetMicVolume(volume);
}

void Lorimel::ShowControlbarButtonTip(EventKey key, const char* text, bool a, int b, bool c) {
  Model* model = Called("ShowControlbarButtonTip");
  if (model != nullptr && text != nullptr && *text != '\0') {
    Bubble bubble{.button = key, .text = text, .is_warning = c, .stays = a};
    if (b > 0) {
      bubble.life_ms = b;
    }
    model->ShowBubble(std::move(bubble));
  }
}

void Lorimel::ShowControlbarButtonTipByInfo(EventKey key, TipWindowInfo& info) {
  if (Model* model = Called("ShowControlbarButtonTipByInfo"); model != nullptr) {
    model->ShowBubble({.button = key,
                       .title = OrEmpty(info.senderName),
                       .text = OrEmpty(info.text),
                       .has_avatar = true,
                       .avatar_path = OrEmpty(info.avatarPath)});
  }
}

bool Lorimel::ShowControlbarButtonConfirmTipByInfo(EventKey key, ConfirmTipWindowInfo& info) {
  Model* model = Called("ShowControlbarButtonConfirmTipByInfo");
  return model != nullptr && model->ShowBubble({.button = key,
                                                .at = {info.x, info.y, info.width, info.height},
                                                .title = OrEmpty(info.title),
                                                .text = OrEmpty(info.text),
                                                .confirm = OrEmpty(info.confirmText),
                                                .is_question = true});
}

std::uint64_t Lorimel::GetWidgetNativeHandle(void*& handle) {
  const Model* model = Called("GetWidgetNativeHandle");
  return model != nullptr ? model->NativeHandle(handle) : 0;
}

bool Lorimel::ShowSketchControlbar(bool show) {
  Model* model = Called("ShowSketchControlbar");
  return model != nullptr && model->ShowSketchBar(show);
}

bool Lorimel::ClearSketchDropDown() {
  Model* model = Called("ClearSketchDropDown");
  return model != nullptr && model->CloseSketchList();
}

bool Lorimel::CloseSketchControlbar() {
  Model* model = Called("CloseSketchControlbar");
  return model != nullptr && model->CloseSketchBar();
}

}  // namespace VELLOMAR_LORIMEL
