/* SPDX-License-Identifier: MIT */
/* The commands' event ids and payload records, and the records of requests and responses.
 *
 * Every record is plain, naturally aligned and little-endian; 64-bit fields are aligned on 8. Texts
 * are NUL-terminated UTF-8. Record, texts and arrays belong to the host; the plug-in copies them
 * before ExportedCallEvent returns. A null text is read as empty, except by "setWindowTitle", which
 * refuses it; a null array or a count of 0 or less is an empty list. A flag is one byte, 0 or not.
 * The offsets asserted here are those of the 32-bit interface. All of it is [loop thread].
 *
 * Which command takes which record stands in vellomar/command_table.def. */
#ifndef VELLOMAR_COMMAND_RECORDS_H
#define VELLOMAR_COMMAND_RECORDS_H

#include <stdint.h>

#include "vellomar/record_layout.h"

/* VELLOMAR_COMMAND_setTextMap = 28200737 and so on, one for each row of the table. */
enum VellomarCommandId {
#define VELLOMAR_COMMAND(id, name, record, route, operation, fields, meaning) \
  VELLOMAR_COMMAND_##name = id,
#include "vellomar/command_table.def"
};

typedef struct VellomarFlag {
  uint8_t value;
} VellomarFlag;

typedef struct VellomarInt {
  int32_t value; /* sign-extended to 64 bits */
} VellomarInt;

typedef struct VellomarLong {
  int64_t value;
} VellomarLong;

typedef struct VellomarText {
  const char* text;
} VellomarText;

/* The seconds that the meeting has lasted, as decimal digits. Anything else counts as 0. */
typedef struct VellomarDuration {
  const char* seconds;
} VellomarDuration;

/* For commands without arguments: the payload is not read, but must not be null. */
typedef struct VellomarNone {
  uint8_t unread;
} VellomarNone;

/* A record that the plug-in accepts and does not read. */
typedef struct VellomarUnread {
  uint8_t unread;
} VellomarUnread;

/* A rectangle on the virtual screen, in pixels. */
typedef struct VellomarRect {
  int64_t x, y, width, height;
} VellomarRect;
VELLOMAR_FIXED_SIZE(VellomarRect, 32)

/* In: the display that is shared. Out: whether the bar is shown. */
typedef struct VellomarShowControlbar {
  VellomarRect display;
  uint8_t result;
} VellomarShowControlbar;
VELLOMAR_FIXED_OFFSET(VellomarShowControlbar, result, 32)

/* Out: whether it worked. */
typedef struct VellomarResult {
  uint8_t result;
} VellomarResult;

typedef struct VellomarShowSketch {
  uint8_t show;
  uint8_t result; /* out */
} VellomarShowSketch;
VELLOMAR_FIXED_OFFSET(VellomarShowSketch, result, 1)

typedef struct VellomarInteraction {
  uint8_t enable;
  uint8_t isShow;
} VellomarInteraction;
VELLOMAR_FIXED_OFFSET(VellomarInteraction, isShow, 1)

/* Settings as numbers, on when 1. The low 32 bits of each slot are read and sign-extended. */
typedef struct VellomarShareAccess {
  int64_t onlyHost;
  int64_t onlyHostCanStartAnyTime;
  int64_t onlyThePresenterCanAnnotate;
} VellomarShareAccess;
VELLOMAR_FIXED_OFFSET(VellomarShareAccess, onlyHostCanStartAnyTime, 8)
VELLOMAR_FIXED_OFFSET(VellomarShareAccess, onlyThePresenterCanAnnotate, 16)

/* A button and what becomes of it. The key's low 32 bits are an EventKey (vellomar/lorimel.h). */
typedef struct VellomarButtonFlag {
  int64_t key;
  uint8_t value;
} VellomarButtonFlag;
VELLOMAR_FIXED_OFFSET(VellomarButtonFlag, value, 8)

/* The sketch tool to select, an EventKey in the low 32 bits. The flag is there and not read. */
typedef struct VellomarSketchButton {
  int64_t key;
  uint8_t unread;
} VellomarSketchButton;
VELLOMAR_FIXED_OFFSET(VellomarSketchButton, unread, 8)

/* Texts by id, or by key for "setTestContentMap". The i-th text belongs to the i-th id; lists of
 * different lengths are refused as a whole. */
typedef struct VellomarTextMap {
  const int64_t* ids;
  int32_t idCount;
  const char* const* texts;
  int32_t textCount;
} VellomarTextMap;
VELLOMAR_FIXED_OFFSET(VellomarTextMap, idCount, 4)
VELLOMAR_FIXED_OFFSET(VellomarTextMap, texts, 8)
VELLOMAR_FIXED_OFFSET(VellomarTextMap, textCount, 12)

/* The host's security settings. The low 32 bits of the slots are read and sign-extended; the two
 * share settings are on when 1. */
typedef struct VellomarHostControlInfo {
  int64_t selectedSecurityLevel; /* 1 to 4 */
  uint8_t enableNeedMoveToLobby;
  uint8_t needMoveToLobby;
  uint8_t showShareAccess;
  int64_t onlyHostCanReshare;
  int64_t onlyHostCanShare;
  int64_t reserved; /* passed on, not used */
  uint8_t entryOnMuted;
  uint8_t showEnableOpenMicBySelf;
  uint8_t enableUseEnableOpenMicBySelf;
  uint8_t enableOpenMicBySelf;
} VellomarHostControlInfo;
VELLOMAR_FIXED_OFFSET(VellomarHostControlInfo, enableNeedMoveToLobby, 8)
VELLOMAR_FIXED_OFFSET(VellomarHostControlInfo, showShareAccess, 10)
VELLOMAR_FIXED_OFFSET(VellomarHostControlInfo, onlyHostCanReshare, 16)
VELLOMAR_FIXED_OFFSET(VellomarHostControlInfo, onlyHostCanShare, 24)
VELLOMAR_FIXED_OFFSET(VellomarHostControlInfo, reserved, 32)
VELLOMAR_FIXED_OFFSET(VellomarHostControlInfo, entryOnMuted, 40)
VELLOMAR_FIXED_OFFSET(VellomarHostControlInfo, enableOpenMicBySelf, 43)
VELLOMAR_FIXED_SIZE(VellomarHostControlInfo, 48)

/* A tip bubble at a button. Flags and number go to the widget library as they are; bHigh is the
 * upper half of b's slot and is not used. */
typedef struct VellomarButtonTip {
  int64_t key;
  const char* text;
  uint8_t a;
  int32_t b;
  int32_t bHigh;
  uint8_t c;
} VellomarButtonTip;
VELLOMAR_FIXED_OFFSET(VellomarButtonTip, text, 8)
VELLOMAR_FIXED_OFFSET(VellomarButtonTip, a, 12)
VELLOMAR_FIXED_OFFSET(VellomarButtonTip, b, 16)
VELLOMAR_FIXED_OFFSET(VellomarButtonTip, bHigh, 20)
VELLOMAR_FIXED_OFFSET(VellomarButtonTip, c, 24)

typedef struct VellomarLiveStatus {
  int32_t status; /* live unless 0 */
  int32_t count;  /* of viewers */
} VellomarLiveStatus;

typedef struct VellomarSharingStatus {
  uint8_t pause;
  int32_t sta; /* sharing unless 0 */
} VellomarSharingStatus;
VELLOMAR_FIXED_OFFSET(VellomarSharingStatus, sta, 4)

/* A camera, microphone, speaker or language. */
typedef struct VellomarDevice {
  const char* id;
  const char* name;
} VellomarDevice;
VELLOMAR_FIXED_SIZE(VellomarDevice, 8)

typedef struct VellomarInterpretationInfo {
  const VellomarDevice* languages;
  int32_t languageCount;
  const char* currentLanguageId;
  uint8_t first;
  uint8_t second;
  uint8_t canManage; /* the host's list offers to manage the channels */
} VellomarInterpretationInfo;
VELLOMAR_FIXED_OFFSET(VellomarInterpretationInfo, currentLanguageId, 8)
VELLOMAR_FIXED_OFFSET(VellomarInterpretationInfo, canManage, 14)

typedef struct VellomarAudioInfo {
  const VellomarDevice* microphones;
  int32_t microphoneCount;
  const char* currentMicrophoneId;
  const VellomarDevice* speakers;
  int32_t speakerCount;
  const char* currentSpeakerId;
} VellomarAudioInfo;
VELLOMAR_FIXED_OFFSET(VellomarAudioInfo, speakers, 12)
VELLOMAR_FIXED_SIZE(VellomarAudioInfo, 24)

typedef struct VellomarCameraInfo {
  const VellomarDevice* cameras;
  int32_t cameraCount;
  const char* currentCameraId;
} VellomarCameraInfo;
VELLOMAR_FIXED_SIZE(VellomarCameraInfo, 12)

typedef struct VellomarMeetingDetail {
  const char* topic;
  const char* hostName;
  const char* meetingLink;
} VellomarMeetingDetail;
VELLOMAR_FIXED_SIZE(VellomarMeetingDetail, 12)

/* userId, instanceId and number together identify a participant. */
typedef struct VellomarParticipant {
  const char* userId;
  const char* instanceId;
  int64_t number;
  const char* displayName;
  const char* room; /* of the sub-room, empty in the main meeting */
  const char* avatarKey;
  const char* avatarPath;
  uint8_t flag; /* may be given remote control */
} VellomarParticipant;
VELLOMAR_FIXED_OFFSET(VellomarParticipant, number, 8)
VELLOMAR_FIXED_OFFSET(VellomarParticipant, displayName, 16)
VELLOMAR_FIXED_OFFSET(VellomarParticipant, flag, 32)
VELLOMAR_FIXED_SIZE(VellomarParticipant, 40)

/* All participants of the meeting: whoever is missing has left. */
typedef struct VellomarParticipants {
  const VellomarParticipant* participants;
  int32_t count;
} VellomarParticipants;

typedef struct VellomarUnderControl {
  int32_t status; /* under control unless 0 */
  const char* userId;
  const char* displayName;
} VellomarUnderControl;
VELLOMAR_FIXED_SIZE(VellomarUnderControl, 12)

typedef struct VellomarItemValue {
  int32_t key;
  uint8_t hasExpend;
  const char* itemName;
  const char* itemText;
  const char* tag;
  int32_t sta;
} VellomarItemValue;
VELLOMAR_FIXED_OFFSET(VellomarItemValue, itemName, 8)
VELLOMAR_FIXED_OFFSET(VellomarItemValue, sta, 20)

/* userId, instanceId and number as in VellomarParticipant. */
typedef struct VellomarChatMessageTip {
  const char* userId;
  const char* instanceId;
  int64_t number;
  const char* senderName;
  const char* message;
} VellomarChatMessageTip;
VELLOMAR_FIXED_OFFSET(VellomarChatMessageTip, number, 8)
VELLOMAR_FIXED_OFFSET(VellomarChatMessageTip, message, 20)

typedef struct VellomarVideoOption {
  int32_t visible;
  int32_t enabled;
  int32_t checked;
} VellomarVideoOption;

typedef struct VellomarSubRoom {
  const char* roomName;
  const char* roomId;
} VellomarSubRoom;
VELLOMAR_FIXED_OFFSET(VellomarSubRoom, roomId, 4)

/* Sent to the host, through SendRequest, for every new participant. The text belongs to the plug-in
 * and is freed when the call returns. Only the low 32 bits of the answer are read; -1 means that
 * there is no avatar. */
#define VELLOMAR_REQUEST_PARTICIPANT 38250895u
typedef struct VellomarParticipantRequest {
  const char* userId;
  uint32_t unused;
  int64_t answer; /* out; 0 before the call */
} VellomarParticipantRequest;
VELLOMAR_FIXED_OFFSET(VellomarParticipantRequest, answer, 8)

/* Sent by the host, through ExportedOnReceive, when an avatar has been stored: sets the path of
 * every participant with this avatar key. */
#define VELLOMAR_RESPONSE_AVATAR 15000555u
typedef struct VellomarAvatarResponse {
  const char* avatarKey;
  const char* avatarPath;
} VellomarAvatarResponse;

#endif /* VELLOMAR_COMMAND_RECORDS_H */
