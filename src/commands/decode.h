// SPDX-License-Identifier: MIT
// Payload records to owned arguments, one overload a record, and answers back into the record.
//
//     auto [key, visible] = Decode(*static_cast<const VellomarButtonFlag*>(payload));
//
// A null text is empty, unless it is all that the record holds: there the operation decides. A null
// array or a count of 0 or less is an empty list.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <tuple>
#include <vector>

#include "common/text.h"
#include "data/meeting_types.h"
#include "data/participant.h"
#include "vellomar/command_records.h"
#include "vellomar/lorimel.h"

namespace VELLOMAR_CONTROLBAR {

using VELLOMAR_LORIMEL::EventKey;

// Of a 64-bit slot that holds a widened value only the low half counts.
constexpr std::int32_t LowWord(std::int64_t slot) {
  return static_cast<std::int32_t>(slot);
}
constexpr EventKey KeyOf(std::int64_t slot) {
  return static_cast<EventKey>(LowWord(slot));
}

inline std::string Owned(const char* text) {
  return std::string(VELLOMAR_COMMON::OrEmpty(text));
}

DeviceList Owned(const VellomarDevice* devices, std::int32_t count, const char* current);
std::vector<std::uint64_t> Owned(const std::int64_t* numbers, std::int32_t count);
std::vector<std::string> Owned(const char* const* texts, std::int32_t count);
SharedParticipantList Owned(const VellomarParticipant* participants, std::int32_t count);

inline std::tuple<> Decode(const VellomarNone&) {
  return {};
}
inline std::tuple<> Decode(const VellomarResult&) {
  return {};
}
inline std::tuple<> Decode(const VellomarRect&) {
  return {};
}
inline std::tuple<bool> Decode(const VellomarFlag& r) {
  return {r.value != 0};
}
inline std::tuple<std::int64_t> Decode(const VellomarInt& r) {
  return {r.value};
}
inline std::tuple<std::int64_t> Decode(const VellomarLong& r) {
  return {r.value};
}
inline std::tuple<std::optional<std::string>> Decode(const VellomarText& r) {
  if (r.text == nullptr) {
    return {std::nullopt};
  }
  return {r.text};
}
inline std::tuple<std::uint64_t> Decode(const VellomarDuration& r) {
  return {VELLOMAR_COMMON::ParseNumber(VELLOMAR_COMMON::OrEmpty(r.seconds))};
}
inline auto Decode(const VellomarShowControlbar& r) {
  return std::tuple(r.display.x, r.display.y, r.display.width, r.display.height);
}
inline std::tuple<bool> Decode(const VellomarShowSketch& r) {
  return {r.show != 0};
}
inline auto Decode(const VellomarInteraction& r) {
  return std::tuple(r.enable != 0, r.isShow != 0);
}
inline auto Decode(const VellomarButtonFlag& r) {
  return std::tuple(KeyOf(r.key), r.value != 0);
}
inline auto Decode(const VellomarSketchButton& r) {
  return std::tuple(KeyOf(r.key));
}
inline auto Decode(const VellomarShareAccess& r) {
  return std::tuple(std::int64_t{LowWord(r.onlyHost)},
                    std::int64_t{LowWord(r.onlyHostCanStartAnyTime)},
                    std::int64_t{LowWord(r.onlyThePresenterCanAnnotate)});
}
inline auto Decode(const VellomarTextMap& r) {
  return std::tuple(Owned(r.ids, r.idCount), Owned(r.texts, r.textCount));
}
inline std::tuple<VellomarHostControlInfo> Decode(VellomarHostControlInfo r) {
  r.selectedSecurityLevel = LowWord(r.selectedSecurityLevel);
  r.onlyHostCanReshare = LowWord(r.onlyHostCanReshare);
  r.onlyHostCanShare = LowWord(r.onlyHostCanShare);
  r.reserved = LowWord(r.reserved);
  return {r};
}
inline auto Decode(const VellomarButtonTip& r) {
  return std::tuple(KeyOf(r.key), Owned(r.text), r.a != 0, r.b, r.c != 0);
}
inline auto Decode(const VellomarLiveStatus& r) {
  return std::tuple(std::int64_t{r.status}, std::int64_t{r.count});
}
inline auto Decode(const VellomarSharingStatus& r) {
  return std::tuple(r.pause != 0, std::int64_t{r.sta});
}
inline auto Decode(const VellomarInterpretationInfo& r) {
  return std::tuple(InterpretationInfo{Owned(r.languages, r.languageCount, r.currentLanguageId),
                                       r.first != 0, r.second != 0, r.canManage != 0});
}
inline auto Decode(const VellomarAudioInfo& r) {
  return std::tuple(Owned(r.microphones, r.microphoneCount, r.currentMicrophoneId),
                    Owned(r.speakers, r.speakerCount, r.currentSpeakerId));
}
inline auto Decode(const VellomarCameraInfo& r) {
  return std::tuple(Owned(r.cameras, r.cameraCount, r.currentCameraId));
}
inline auto Decode(const VellomarMeetingDetail& r) {
  return std::tuple(MeetingDetail{Owned(r.topic), Owned(r.hostName), Owned(r.meetingLink)});
}
inline auto Decode(const VellomarParticipants& r) {
  return std::tuple(Owned(r.participants, r.count));
}
inline auto Decode(const VellomarUnderControl& r) {
  return std::tuple(std::int64_t{r.status}, Owned(r.userId), Owned(r.displayName));
}
inline auto Decode(const VellomarItemValue& r) {
  return std::tuple(KeyOf(r.key), r.hasExpend != 0, Owned(r.itemName), Owned(r.itemText),
                    Owned(r.tag), r.sta);
}
inline auto Decode(const VellomarChatMessageTip& r) {
  return std::tuple(Owned(r.userId), Owned(r.instanceId), r.number, Owned(r.senderName),
                    Owned(r.message));
}
inline auto Decode(const VellomarVideoOption& r) {
  return std::tuple(r.visible, r.enabled, r.checked);
}
inline auto Decode(const VellomarSubRoom& r) {
  return std::tuple(Owned(r.roomName), Owned(r.roomId));
}

inline void Answer(VellomarShowControlbar& r, bool result) {
  r.result = result ? 1 : 0;
}
inline void Answer(VellomarResult& r, bool result) {
  r.result = result ? 1 : 0;
}
inline void Answer(VellomarShowSketch& r, bool result) {
  r.result = result ? 1 : 0;
}
inline void Answer(VellomarRect& r, const VellomarRect& result) {
  r = result;
}

}  // namespace VELLOMAR_CONTROLBAR
