// SPDX-License-Identifier: MIT
// The members that the plug-in calls: each tells the observer, checks what it was given, and hands
// on to the Ui.
#include "vellomar/lorimel.h"

#include <utility>

#include "application.h"
#include "observer.h"
#include "screen.h"
#include "style.h"
#include "ui.h"

namespace VELLOMAR_LORIMEL {
namespace {

using lorimel_qt::BubbleContent;
using lorimel_qt::Ui;
using vellomar_widgets::OwnedButton;

constexpr int kFirstKey = 1000;
constexpr int kLastKey = 1091;

Ui* Called(const char* member) {
  lorimel_qt::Observe(member);
  return lorimel_qt::CurrentUi(member);
}

lorimel_qt::Records CopyRecords(const BtnParams* params, int count) {
  lorimel_qt::Records records;
  for (int i = 0; i < count; ++i) {
    const int key = static_cast<int>(params[i].key);
    if (key >= kFirstKey && key <= kLastKey) {
      records.insert_or_assign(params[i].key, OwnedButton(params[i]));
    }
  }
  return records;
}

QString MessageText(const char* utf8) {
  return utf8 != nullptr ? lorimel_qt::style::Message(utf8) : QString();
}

QString Text(const char* utf8) {
  return utf8 != nullptr ? lorimel_qt::style::Label(utf8) : QString();
}

}  // namespace

Lorimel* Lorimel::GetInstance() {
  static Lorimel instance;
  lorimel_qt::CurrentUi("GetInstance");
  return &instance;
}

bool Lorimel::CreateControlbar(const char* title, std::int64_t x, std::int64_t y,
                               std::int64_t width, std::int64_t height, CreatedCallback* onCreated,
                               ClosedCallback* onClosed, bool /*unused*/, BtnParams* params,
                               int paramsCount, int /*type*/, bool simplify) {
  Ui* ui = Called("CreateControlbar");
  if (ui == nullptr || paramsCount < 0 || (params == nullptr && paramsCount > 0)) {
    return false;
  }
  return ui->Create({.title = Text(title),
                     .display = lorimel_qt::DisplayPixels(x, y, width, height),
                     .on_created = onCreated,
                     .on_closed = onClosed,
                     .records = CopyRecords(params, paramsCount),
                     .simplify = simplify});
}

bool Lorimel::ShowControlbar(void*& handle, bool show) {
  Ui* ui = Called("ShowControlbar");
  return ui != nullptr && ui->Show(handle, show);
}

bool Lorimel::CloseSharedControlbar() {
  Ui* ui = Called("CloseSharedControlbar");
  return ui != nullptr && ui->Close();
}

bool Lorimel::SetControlbarEventCallback(EventCallback* callback) {
  Ui* ui = Called("SetControlbarEventCallback");
  if (ui != nullptr) {
    ui->SetEventCallback(callback);
  }
  return ui != nullptr;
}

bool Lorimel::SetShowWindowCallback(ShowWindowCallback* callback) {
  Ui* ui = Called("SetShowWindowCallback");
  if (ui != nullptr) {
    ui->SetShowWindowCallback(callback);
  }
  return ui != nullptr;
}

bool Lorimel::SetEventKey(BtnParams& params) {
  const OwnedButton record(params);
  lorimel_qt::Observe("SetEventKey", &record);
  Ui* ui = lorimel_qt::CurrentUi("SetEventKey");
  return ui != nullptr && ui->SetRecord(record);
}

bool Lorimel::GetPositionByEventKey(EventKey key, int& x, int& y, int& width, int& height) {
  const Ui* ui = Called("GetPositionByEventKey");
  const std::optional<QRect> area = ui != nullptr ? ui->AreaOf(key) : std::nullopt;
  if (area) {
    x = area->x();
    y = area->y();
    width = area->width();
    height = area->height();
  }
  return area.has_value();
}

void Lorimel::SetMeetingDuration(std::uint64_t seconds) {
  if (Ui* ui = Called("SetMeetingDuration"); ui != nullptr) {
    ui->SetDuration(seconds);
  }
}

bool Lorimel::SetMicVolume(int volume) {
  Ui* ui = Called("SetMicVolume");
  return ui != nullptr && ui->SetMicVolume(volume);
}

void Lorimel::ShowControlbarButtonTip(EventKey key, const char* text, bool a, int b, bool c) {
  Ui* ui = Called("ShowControlbarButtonTip");
  if (ui != nullptr && text != nullptr && *text != '\0') {
    BubbleContent content{.text = MessageText(text), .is_warning = c};
    content.time.stays = a;
    if (b > 0) {
      content.time.life_ms = b;
    }
    ui->ShowBubble(key, content, {});
  }
}

void Lorimel::ShowControlbarButtonTipByInfo(EventKey key, TipWindowInfo& info) {
  if (Ui* ui = Called("ShowControlbarButtonTipByInfo"); ui != nullptr) {
    const BubbleContent content{.title = Text(info.senderName),
                                .text = MessageText(info.text),
                                .has_avatar = true,
                                .avatar_path = Text(info.avatarPath)};
    ui->ShowBubble(key, content, {});
  }
}

bool Lorimel::ShowControlbarButtonConfirmTipByInfo(EventKey key, ConfirmTipWindowInfo& info) {
  Ui* ui = Called("ShowControlbarButtonConfirmTipByInfo");
  if (ui == nullptr) {
    return false;
  }
  const BubbleContent content{.title = Text(info.title),
                              .text = MessageText(info.text),
                              .confirm = Text(info.confirmText),
                              .is_question = true};
  return ui->ShowBubble(key, content, {info.x, info.y, info.width, info.height});
}

std::uint64_t Lorimel::GetWidgetNativeHandle(void*& handle) {
  const Ui* ui = Called("GetWidgetNativeHandle");
  return ui != nullptr ? ui->NativeHandle(handle) : 0;
}

bool Lorimel::ShowSketchControlbar(bool show) {
  Ui* ui = Called("ShowSketchControlbar");
  return ui != nullptr && ui->ShowSketchBar(show);
}

bool Lorimel::ClearSketchDropDown() {
  Ui* ui = Called("ClearSketchDropDown");
  return ui != nullptr && ui->CloseSketchList();
}

bool Lorimel::CloseSketchControlbar() {
  Ui* ui = Called("CloseSketchControlbar");
  return ui != nullptr && ui->CloseSketchBar();
}

}  // namespace VELLOMAR_LORIMEL
