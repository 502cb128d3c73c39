// SPDX-License-Identifier: MIT
// The host's numeric codes that the plug-in tells apart. All others pass through.
#pragma once

#include <cstdint>

namespace VELLOMAR_CONTROLBAR {

inline constexpr std::int64_t kHostTypeParticipant = 0;
inline constexpr std::int64_t kHostTypeHost = 1;
inline constexpr std::int64_t kHostTypeCoHost = 2;
// May stream live like the host, and is not offered host control like a participant.
inline constexpr std::int64_t kHostTypeAttendee = 3;

inline constexpr std::int64_t kSubTypeScreenShare = 1;
inline constexpr std::int64_t kSubTypeScreenShareAlt = 2;
inline constexpr std::int64_t kSubTypeScreenBox = 5;

// A role that is not offered recording.
inline constexpr std::int64_t kRoleWithoutRecording = 2;

// Compared as whole 64-bit values, like all codes.
constexpr bool IsScreenShare(std::int64_t sub_type) {
  return sub_type == kSubTypeScreenShare || sub_type == kSubTypeScreenShareAlt;
}
constexpr bool IsScreenShareOrBox(std::int64_t sub_type) {
  return IsScreenShare(sub_type) || sub_type == kSubTypeScreenBox;
}

// Security levels are 1 to 4, in the order of the radio rows of the host-control list.
constexpr bool IsSecurityLevel(std::int64_t level) {
  return level >= 1 && level <= 4;
}

// A setting that arrives as a number is on when it is 1.
constexpr bool IsOn(std::int64_t setting) {
  return setting == 1;
}

// Where the sharing-permission rows were last opened from.
inline constexpr std::int64_t kShareOptionHostControl = 0;
inline constexpr std::int64_t kShareOptionShareNew = 1;
inline constexpr std::int64_t kShareOptionSharingOptions = 2;

}  // namespace VELLOMAR_CONTROLBAR
