// SPDX-License-Identifier: MIT
// Sends notifications to the host: one send operation for each row of the notification table, typed
// by the row's record.
//
//     Notifier::GetInstance()->Send<VELLOMAR_NOTIFY_muteAudio>(mute);
//     Notifier::GetInstance()->Send<VELLOMAR_NOTIFY_stopSharing>();
//
// [UI thread of the widgets, or loop thread]
#pragma once

#include <type_traits>

#include "bridge/resources.h"
#include "common/singleton.h"
#include "vellomar/controlbar.h"

namespace VELLOMAR_CONTROLBAR {

// NotificationRecord<VELLOMAR_NOTIFY_muteAudio> is VellomarNotifyFlag.
template <VellomarNotificationId id>
struct NotificationRow;
#define VELLOMAR_NOTIFICATION(id, name, record, fields, meaning) \
  template <>                                                    \
  struct NotificationRow<VELLOMAR_NOTIFY_##name> {               \
    using Record = record;                                       \
  };
#include "vellomar/notification_table.def"

template <VellomarNotificationId id>
using NotificationRecord = typename NotificationRow<id>::Record;

class Notifier : public VELLOMAR_COMMON::Singleton<Notifier> {
 public:
  // Null is allowed: notifications are then dropped.
  void SetNotify(Notify* notify) { m_notify = notify; }

  // Sends the row's record with these fields. Texts are copied and freed when the host returns; a
  // null text goes out as an empty one.
  template <VellomarNotificationId id, typename... Fields>
  void Send(Fields... fields) {
    using Record = NotificationRecord<id>;
    if constexpr (std::is_same_v<Record, VellomarNone>) {
      static_assert(sizeof...(Fields) == 0, "this notification has no payload");
      Call(id, nullptr);
    } else {
      auto record = Record{fields...};
      __ResourceCollection__ texts;
      OwnTexts(record, texts);
      Call(id, &record);
    }
  }

 private:
  void Call(VellomarNotificationId id, void* payload);

  template <typename Record>
  static void OwnTexts(Record&, __ResourceCollection__&) {}
  static void OwnTexts(VellomarNotifyText& record, __ResourceCollection__& texts);
  static void OwnTexts(VellomarUiEvent& record, __ResourceCollection__& texts);
  static void OwnTexts(VellomarParticipant& record, __ResourceCollection__& texts);

  Notify* m_notify = nullptr;
};

}  // namespace VELLOMAR_CONTROLBAR
