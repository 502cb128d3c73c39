// SPDX-License-Identifier: MIT
#include "data/meeting_state.h"

#include <fmt/format.h>

#include <utility>

#include "vellomar/lorimel.h"

namespace VELLOMAR_CONTROLBAR {
namespace {

using VELLOMAR_LORIMEL::kStatusDisabled;
using VELLOMAR_LORIMEL::kStatusHidden;
using VELLOMAR_LORIMEL::kStatusOn;

constexpr std::int32_t WithBit(std::int32_t status, std::int32_t bit, bool set) {
  return set ? status | bit : status & ~bit;
}

}  // namespace

void MeetingState::SetAudioDevices(DeviceList new_microphones, DeviceList new_speakers) {
  SharedDevices shared = std::make_shared<const DeviceList>(std::move(new_microphones));
  speakers = std::make_shared<const DeviceList>(std::move(new_speakers));
  microphones = std::move(shared);
}

void MeetingState::SetInterpretation(InterpretationInfo info) {
  languages = std::make_shared<const DeviceList>(std::move(info.languages));
  info.languages = {};
  interpretation = std::move(info);
}

void MeetingState::SetChatCount(std::int64_t count) {
  if (count <= 0) {
    chat_count_text.clear();
  } else if (count < 1000) {
    chat_count_text = fmt::format("{}", count);
  } else {
    chat_count_text = "...";
  }
}

void MeetingState::Forget() noexcept {
  microphones = speakers = cameras = languages = no_devices;
  interpretation = {};
  remote_controller.reset();
  window_title.reset();
  participant_count_text.clear();
  chat_count_text.clear();
  move_new_text.clear();
  sub_room_name.clear();
  sub_room_id.clear();
}

bool MeetingState::HasLiveStreamPermission() const {
  return host_type == kHostTypeHost || host_type == kHostTypeAttendee;
}

std::int32_t MeetingState::SharingPermissionsStatus() const {
  return host_info.showShareAccess != 0 ? 0 : kStatusHidden;
}

std::int32_t MeetingState::OnlyHostShareStatus() const {
  if (host_info.showShareAccess == 0) {
    return kStatusHidden;
  }
  return only_host_can_share ? kStatusOn : 0;
}

std::int32_t MeetingState::OnlyHostReshareStatus() const {
  std::int32_t status = kStatusHidden;
  if (host_info.showShareAccess != 0) {
    status = only_host_can_reshare ? kStatusOn : 0;
  }
  return only_host_can_share ? status | kStatusDisabled : status;
}

std::int32_t MeetingState::PresenterAnnotateStatus() const {
  return only_presenter_can_annotate ? kStatusOn : 0;
}

std::int32_t MeetingState::NewParticipantMicStatus() const {
  return host_info.entryOnMuted != 0 ? kStatusOn : 0;
}

std::int32_t MeetingState::MicOperateStatus() const {
  if (host_info.showEnableOpenMicBySelf == 0) {
    return kStatusHidden;
  }
  if (host_info.enableUseEnableOpenMicBySelf == 0) {
    return kStatusDisabled;
  }
  return host_info.enableOpenMicBySelf != 0 ? kStatusOn : 0;
}

std::int32_t MeetingState::ManageInterpretationStatus() const {
  return host_type == kHostTypeHost && interpretation.can_manage ? 0 : kStatusHidden;
}

std::int32_t MeetingState::MoveNewStatus(std::int32_t own) const {
  return own | (host_info.enableNeedMoveToLobby != 0 ? 0 : kStatusDisabled) |
         (host_info.needMoveToLobby != 0 ? kStatusOn : 0);
}

std::int32_t MeetingState::SubtitlesStatus(std::int32_t own) const {
  return WithBit(own, kStatusOn, is_subtitle_opened);
}

std::int32_t MeetingState::LiveStreamStatus(std::int32_t own) const {
  return WithBit(own, kStatusOn, is_live);
}

}  // namespace VELLOMAR_CONTROLBAR
