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
  VellomarRect display; /* in: of what is shared */
  uint8_t result;       /* out: whether the bar is shown */
} VellomarShowControlbar;
VELLOMAR_FIXED_OFFSET(VellomarShowControlbar, result, 32)

/* Out: whether it worked. */
typedef struct VellomarResult {
  uint8_t result; /* out */
} VellomarResult;

typedef struct VellomarShowSketch {
  uint8_t show;   /* in */
  uint8_t result; /* out */
} VellomarShowSketch;
VELLOMAR_FIXED_OFFSET(VellomarShowSketch, result, 1)

typedef struct VellomarInteraction {
  uint8_t enable; /* people may chat; else the button is greyed */
  uint8_t isShow; /* the button is shown */
} VellomarInteraction;
VELLOMAR_FIXED_OFFSET(VellomarInteraction, isShow, 1)

/* Settings as numbers, on when 1. The low 32 bits of each slot are read and sign-extended. */
typedef struct VellomarShareAccess {
  int64_t onlyHost;                    /* only the host may share */
  int64_t onlyHostCanStartAnyTime;     /* only the host, while another does */
  int64_t onlyThePresenterCanAnnotate; /* others may not draw */
} VellomarShareAccess;
VELLOMAR_FIXED_OFFSET(VellomarShareAccess, onlyHostCanStartAnyTime, 8)
VELLOMAR_FIXED_OFFSET(VellomarShareAccess, onlyThePresenterCanAnnotate, 16)

/* A button and what becomes of it. The key's low 32 bits are an EventKey (vellomar/lorimel.h). */
typedef struct VellomarButtonFlag {
  int64_t key;   /* of the button */
  uint8_t value; /* visible, or enabled */
} VellomarButtonFlag;
VELLOMAR_FIXED_OFFSET(VellomarButtonFlag, value, 8)

/* The sketch tool to select, an EventKey in the low 32 bits. The flag is there and not read. */
typedef struct VellomarSketchButton {
  int64_t key; /* SketchSelect, SketchMouse or neither */
  uint8_t unread;
} VellomarSketchButton;
VELLOMAR_FIXED_OFFSET(VellomarSketchButton, unread, 8)

/* Texts by id, or by key for "setTestContentMap". The i-th text belongs to the i-th id; lists of
 * different lengths are refused as a whole. */
typedef struct VellomarTextMap {
  const int64_t* ids;       /* of the texts, or keys */
  int32_t idCount;          /* of ids */
  const char* const* texts; /* null is empty */
  int32_t textCount;        /* as many as ids */
} VellomarTextMap;
VELLOMAR_FIXED_OFFSET(VellomarTextMap, idCount, 4)
VELLOMAR_FIXED_OFFSET(VellomarTextMap, texts, 8)
VELLOMAR_FIXED_OFFSET(VellomarTextMap, textCount, 12)

/* The host's security settings. The low 32 bits of the slots are read and sign-extended; the two
 * share settings are on when 1. */
typedef struct VellomarHostControlInfo {
  int64_t selectedSecurityLevel;        /* 1 to 4 */
  uint8_t enableNeedMoveToLobby;        /* the next may be used */
  uint8_t needMoveToLobby;              /* who joins waits in the lobby */
  uint8_t showShareAccess;              /* the sharing permissions are seen */
  int64_t onlyHostCanReshare;           /* while another shares */
  int64_t onlyHostCanShare;             /* at all */
  int64_t reserved;                     /* passed on, not used */
  uint8_t entryOnMuted;                 /* who joins is muted */
  uint8_t showEnableOpenMicBySelf;      /* the last of these is seen */
  uint8_t enableUseEnableOpenMicBySelf; /* it may be used */
  uint8_t enableOpenMicBySelf;          /* participants may unmute themselves */
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
  int64_t key;      /* of the button */
  const char* text; /* null or empty shows nothing */
  uint8_t a;        /* stays until the user closes it */
  int32_t b;        /* else: for how many ms; 0: the library's own time */
  int32_t bHigh;    /* not used */
  uint8_t c;        /* a warning */
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
  uint8_t pause; /* the sharing is paused */
  int32_t sta;   /* sharing unless 0 */
} VellomarSharingStatus;
VELLOMAR_FIXED_OFFSET(VellomarSharingStatus, sta, 4)

/* A camera, microphone, speaker or language. */
typedef struct VellomarDevice {
  const char* id;   /* comes back when it is chosen */
  const char* name; /* as the list shows it */
} VellomarDevice;
VELLOMAR_FIXED_SIZE(VellomarDevice, 8)

typedef struct VellomarInterpretationInfo {
  const VellomarDevice* languages; /* to choose from */
  int32_t languageCount;           /* of languages */
  const char* currentLanguageId;   /* the one that is heard */
  uint8_t first;                   /* stored */
  uint8_t second;                  /* stored */
  uint8_t canManage;               /* the host's list offers to manage the channels */
} VellomarInterpretationInfo;
VELLOMAR_FIXED_OFFSET(VellomarInterpretationInfo, currentLanguageId, 8)
VELLOMAR_FIXED_OFFSET(VellomarInterpretationInfo, canManage, 14)

typedef struct VellomarAudioInfo {
  const VellomarDevice* microphones; /* to choose from */
  int32_t microphoneCount;           /* of microphones */
  const char* currentMicrophoneId;   /* in use */
  const VellomarDevice* speakers;    /* to choose from */
  int32_t speakerCount;              /* of speakers */
  const char* currentSpeakerId;      /* in use */
} VellomarAudioInfo;
VELLOMAR_FIXED_OFFSET(VellomarAudioInfo, speakers, 12)
VELLOMAR_FIXED_SIZE(VellomarAudioInfo, 24)

typedef struct VellomarCameraInfo {
  const VellomarDevice* cameras; /* to choose from */
  int32_t cameraCount;           /* of cameras */
  const char* currentCameraId;   /* in use */
} VellomarCameraInfo;
VELLOMAR_FIXED_SIZE(VellomarCameraInfo, 12)

typedef struct VellomarMeetingDetail {
  const char* topic;       /* named by the question on leaving */
  const char* hostName;    /* as it is shown */
  const char* meetingLink; /* to join by */
} VellomarMeetingDetail;
VELLOMAR_FIXED_SIZE(VellomarMeetingDetail, 12)

/* userId, instanceId and number together identify a participant. */
typedef struct VellomarParticipant {
  const char* userId;      /* of the account */
  const char* instanceId;  /* of the program that joined */
  int64_t number;          /* tells the same apart */
  const char* displayName; /* as lists show it */
  const char* room;        /* of the sub-room, empty in the main meeting */
  const char* avatarKey;   /* of the picture, for responses */
  const char* avatarPath;  /* file of the picture, if there is one */
  uint8_t flag;            /* may be given remote control */
} VellomarParticipant;
VELLOMAR_FIXED_OFFSET(VellomarParticipant, number, 8)
VELLOMAR_FIXED_OFFSET(VellomarParticipant, displayName, 16)
VELLOMAR_FIXED_OFFSET(VellomarParticipant, flag, 32)
VELLOMAR_FIXED_SIZE(VellomarParticipant, 40)

/* All participants of the meeting: whoever is missing has left. */
typedef struct VellomarParticipants {
  const VellomarParticipant* participants; /* each once */
  int32_t count;                           /* of participants */
} VellomarParticipants;

typedef struct VellomarUnderControl {
  int32_t status;          /* under control unless 0 */
  const char* userId;      /* of who controls */
  const char* displayName; /* as the bar shows it */
} VellomarUnderControl;
VELLOMAR_FIXED_SIZE(VellomarUnderControl, 12)

typedef struct VellomarItemValue {
  int32_t key;          /* an EventKey */
  uint8_t hasExpend;    /* has a part that opens a list */
  const char* itemName; /* style name */
  const char* itemText; /* label */
  const char* tag;      /* value text */
  int32_t sta;          /* the whole status word (vellomar/lorimel.h) */
} VellomarItemValue;
VELLOMAR_FIXED_OFFSET(VellomarItemValue, itemName, 8)
VELLOMAR_FIXED_OFFSET(VellomarItemValue, sta, 20)

/* userId, instanceId and number as in VellomarParticipant. */
typedef struct VellomarChatMessageTip {
  const char* userId;
  const char* instanceId;
  int64_t number;
  const char* senderName; /* as the bubble shows it */
  const char* message;    /* as the bubble shows it */
} VellomarChatMessageTip;
VELLOMAR_FIXED_OFFSET(VellomarChatMessageTip, number, 8)
VELLOMAR_FIXED_OFFSET(VellomarChatMessageTip, message, 20)

typedef struct VellomarVideoOption {
  int32_t visible; /* seen unless 0 */
  int32_t enabled; /* can be changed unless 0 */
  int32_t checked; /* on unless 0 */
} VellomarVideoOption;

typedef struct VellomarSubRoom {
  const char* roomName; /* as the info line shows it */
  const char* roomId;   /* as participants' room */
} VellomarSubRoom;
VELLOMAR_FIXED_OFFSET(VellomarSubRoom, roomId, 4)

/* Sent to the host, through SendRequest, for every new participant. The text belongs to the plug-in
 * and is freed when the call returns. Only the low 32 bits of the answer are read; -1 means that
 * there is no avatar. */
#define VELLOMAR_REQUEST_PARTICIPANT 38250895u
typedef struct VellomarParticipantRequest {
  const char* userId; /* who is new */
  uint32_t unused;    /* 0 */
  int64_t answer;     /* out; 0 before the call */
} VellomarParticipantRequest;
VELLOMAR_FIXED_OFFSET(VellomarParticipantRequest, answer, 8)

/* Sent by the host, through ExportedOnReceive, when an avatar has been stored: sets the path of
 * every participant with this avatar key. */
#define VELLOMAR_RESPONSE_AVATAR 15000555u
typedef struct VellomarAvatarResponse {
  const char* avatarKey;  /* as a participant has it */
  const char* avatarPath; /* file of the picture */
} VellomarAvatarResponse;

#endif /* VELLOMAR_COMMAND_RECORDS_H */
