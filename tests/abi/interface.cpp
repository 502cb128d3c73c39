// SPDX-License-Identifier: MIT
// What crosses the exports behind a pointer to void, given a type that debug information describes:
// a function for each command and notification that takes the record of its row, the ids and keys,
// and the log library's functions. Nobody calls them; check_abi.sh reads what the compiler says of
// them.
#include "vellomar/controlbar.h"
#include "vellomar/log.h"
#include "vellomar/lorimel.h"

#define DESCRIBED extern "C" __attribute__((visibility("default"))) void

#define VELLOMAR_COMMAND(id, name, record, route, operation, fields, meaning) \
  DESCRIBED described_command_##name(record*) {}
#include "vellomar/command_table.def"

#define VELLOMAR_NOTIFICATION(id, name, record, fields, meaning) \
  DESCRIBED described_notification_##name(record*) {}
#include "vellomar/notification_table.def"

DESCRIBED described_request(VellomarParticipantRequest*) {}
DESCRIBED described_response(VellomarAvatarResponse*) {}

enum class Number {
  ParticipantRequest = VELLOMAR_REQUEST_PARTICIPANT,
  AvatarResponse = VELLOMAR_RESPONSE_AVATAR,
  LogInfo = VELLOMAR_LOG_INFO,
  LogFault = VELLOMAR_LOG_FAULT,
  LogRefused = VELLOMAR_LOG_REFUSED,
};
DESCRIBED described_numbers(VellomarCommandId, VellomarNotificationId, VELLOMAR_LORIMEL::EventKey,
                            Number) {}

DESCRIBED described_log(decltype(CreateVellomarLogger)*, decltype(VellomarLogWrite)*) {}
