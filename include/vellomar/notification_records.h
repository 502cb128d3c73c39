/* SPDX-License-Identifier: MIT */
/* The notifications' ids and payload records.
 *
 * Records and texts belong to the plug-in and are freed when the host's Notify returns; the host
 * copies what it keeps. Layout as in vellomar/command_records.h. Which notification carries which
 * record, and what its fields mean, stands in vellomar/notification_table.def. */
#ifndef VELLOMAR_NOTIFICATION_RECORDS_H
#define VELLOMAR_NOTIFICATION_RECORDS_H

#include <stdint.h>

#include "vellomar/command_records.h"

/* VELLOMAR_NOTIFY_muteAudio = 18200594 and so on, one for each row of the table. */
enum VellomarNotificationId {
#define VELLOMAR_NOTIFICATION(id, name, record, fields, meaning) VELLOMAR_NOTIFY_##name = id,
#include "vellomar/notification_table.def"
};

typedef struct VellomarNotifyFlag {
  uint8_t value; /* what it says stands in the table */
} VellomarNotifyFlag;

typedef struct VellomarNotifyNumber {
  int64_t value; /* a level or a key */
} VellomarNotifyNumber;

typedef struct VellomarNotifyText {
  const char* text; /* an id of a device or a language */
} VellomarNotifyText;

/* `handle` is the native handle of the bar's window, or the id of a pop-up window. */
typedef struct VellomarWindowCreated {
  uint64_t handle;
  VellomarRect position; /* in pixels */
} VellomarWindowCreated;
VELLOMAR_FIXED_OFFSET(VellomarWindowCreated, position, 8)

/* A user action as the widget library reported it. Texts are empty where the item has none. */
typedef struct VellomarUiEvent {
  int64_t key;          /* an EventKey */
  const char* itemName; /* style name */
  const char* itemText; /* label */
  const char* tag;      /* value text */
} VellomarUiEvent;
VELLOMAR_FIXED_OFFSET(VellomarUiEvent, itemName, 8)
VELLOMAR_FIXED_OFFSET(VellomarUiEvent, tag, 16)

typedef struct VellomarShareRights {
  uint8_t onlyHostCanShare;   /* at all */
  uint8_t onlyHostCanReshare; /* while another shares */
} VellomarShareRights;

typedef struct VellomarOpenAt {
  uint8_t open;          /* it is opened now */
  VellomarRect position; /* of the button, in pixels; zeros where it is not told */
} VellomarOpenAt;
VELLOMAR_FIXED_OFFSET(VellomarOpenAt, position, 8)

/* `shareOption`: where the setting was shown; 0 the host-control list, 1 the list of the share
 * button, 2 the sharing options. */
typedef struct VellomarPresenterAnnotate {
  uint8_t checked;     /* on now */
  int64_t shareOption; /* as above */
} VellomarPresenterAnnotate;
VELLOMAR_FIXED_OFFSET(VellomarPresenterAnnotate, shareOption, 8)

#endif /* VELLOMAR_NOTIFICATION_RECORDS_H */
