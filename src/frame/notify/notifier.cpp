// SPDX-License-Identifier: MIT
#include "frame/notify/notifier.h"

#include "common/text.h"

namespace VELLOMAR_CONTROLBAR {
namespace {

void Own(const char*& text, __ResourceCollection__& texts) {
  MakeCString(VELLOMAR_COMMON::OrEmpty(text), text, texts);
}

}  // namespace

void Notifier::Call(VellomarNotificationId id, void* payload) {
  if (m_notify == nullptr) {
    return;
  }
  m_notify(VELLOMAR_SENDER, static_cast<std::uint32_t>(id), 0, payload);
}

void Notifier::OwnTexts(VellomarNotifyText& record, __ResourceCollection__& texts) {
  Own(record.text, texts);
}

void Notifier::OwnTexts(VellomarUiEvent& record, __ResourceCollection__& texts) {
  texts.Reserve(3);
  Own(record.itemName, texts);
  Own(record.itemText, texts);
  Own(record.tag, texts);
}

void Notifier::OwnTexts(VellomarParticipant& record, __ResourceCollection__& texts) {
  texts.Reserve(6);
  Own(record.userId, texts);
  Own(record.instanceId, texts);
  Own(record.displayName, texts);
  Own(record.room, texts);
  Own(record.avatarKey, texts);
  Own(record.avatarPath, texts);
}

}  // namespace VELLOMAR_CONTROLBAR
