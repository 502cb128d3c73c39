// SPDX-License-Identifier: MIT
// The state of the meeting as the host last reported it.
#include <fmt/format.h>

#include <utility>

#include "common/text.h"
#include "data/control_bar_data_manager.h"

namespace VELLOMAR_CONTROLBAR {
namespace {

constexpr std::uint64_t kMeetingNumberText = 10069;

constexpr std::int32_t kOn = VELLOMAR_LORIMEL::kStatusOn;
constexpr std::int32_t kHidden = VELLOMAR_LORIMEL::kStatusHidden;

}  // namespace

void ControlBarDataManager::SetShareAudioStatus(bool is_start) {
  const Scope scope(__func__);
  VELLOMAR_LOG::Info("SetShareAudioStatus isStart = {}", is_start);
  m_isShareAudioOpened = is_start;
  const std::int32_t status = GetEventKeyStatus(EventKey::ShareAudio);
  SetEventKeyParams(EventKey::ShareAudio, is_start ? status | kOn : status & ~kOn);
}

void ControlBarDataManager::UpdateHostInfo(const VellomarHostControlInfo& info) {
  const Scope scope(__func__);
  m_hostInfo = info;
  VELLOMAR_LOG::Info(
      "host operation: selectedSecurityLevel {},enableNeedMoveToLobby {},needMoveToLobby {},"
      "showShareAccess {},entryOnMuted {},showEnableOpenMicBySelf {},enableUseEnableOpenMicBySelf "
      "{},enableOpenMicBySelf {}",
      info.selectedSecurityLevel, info.enableNeedMoveToLobby != 0, info.needMoveToLobby != 0,
      info.showShareAccess != 0, info.entryOnMuted != 0, info.showEnableOpenMicBySelf != 0,
      info.enableUseEnableOpenMicBySelf != 0, info.enableOpenMicBySelf != 0);
  SetOnlyHostCanShare(IsOn(info.onlyHostCanShare));
  SetOnlyHostCanReshare(IsOn(info.onlyHostCanReshare));
}

void ControlBarDataManager::UpdateAudioItems(DeviceList microphones, DeviceList speakers) {
  const Scope scope(__func__);
  m_microphones = std::make_shared<const DeviceList>(std::move(microphones));
  m_speakers = std::make_shared<const DeviceList>(std::move(speakers));
}

void ControlBarDataManager::UpdateCameraItems(DeviceList cameras) {
  const Scope scope(__func__);
  m_cameras = std::make_shared<const DeviceList>(std::move(cameras));
}

std::size_t ControlBarDataManager::GetAudioCount() const {
  const Scope scope(__func__);
  return m_microphones->devices.size();
}

std::size_t ControlBarDataManager::GetPlaybackCount() const {
  const Scope scope(__func__);
  return m_speakers->devices.size();
}

std::size_t ControlBarDataManager::GetCameraItemCount() const {
  const Scope scope(__func__);
  return m_cameras->devices.size();
}

void ControlBarDataManager::SetInterpretationInfo(InterpretationInfo info) {
  const Scope scope(__func__);
  m_languages = std::make_shared<const DeviceList>(std::move(info.languages));
  info.languages = {};
  m_interpretationFlags = std::move(info);
}

void ControlBarDataManager::SetMeetingDetailInfo(MeetingDetail detail) {
  Store(__func__, m_meetingDetail, std::move(detail));
}

const MeetingDetail& ControlBarDataManager::GetMeetingDetailInfo() const {
  const Scope scope(__func__);
  return m_meetingDetail;
}

void ControlBarDataManager::SetWindowTitle(const char* title) {
  const Scope scope(__func__);
  if (title == nullptr) {
    VELLOMAR_LOG::Fault("set windows title is nullptr");
    return;
  }
  m_windowTitle = title;
}

void ControlBarDataManager::SetParticipantCount(std::uint32_t count) {
  Store(__func__, m_participantCountText, fmt::format("{}", count));
}

const char* ControlBarDataManager::GetParticipantCountString() const {
  const Scope scope(__func__);
  return m_participantCountText.c_str();
}

void ControlBarDataManager::SetMeetingNumber(const std::string& number) {
  const Scope scope(__func__);
  m_meetingNumber = number;
  m_meetingNumberText = VELLOMAR_COMMON::FillPlaceholder(GetNativeText(kMeetingNumberText), number);
  SetComposedLabel(EventKey::InfoText, m_meetingNumberText);
}

const char* ControlBarDataManager::GetMeetingNumberFormat() const {
  const Scope scope(__func__);
  return m_meetingNumberText.c_str();
}

void ControlBarDataManager::SetChatMessageCount(std::int64_t count) {
  const Scope scope(__func__);
  if (count <= 0) {
    m_chatMessageCountText.clear();
  } else if (count < 1000) {
    m_chatMessageCountText = fmt::format("{}", count);
  } else {
    m_chatMessageCountText = "...";
  }
  SetButtonSubLabelText(EventKey::Chat, m_chatMessageCountText.c_str());
}

void ControlBarDataManager::UpdateChatMessageCount() {
  const Scope scope(__func__);
  SetButtonSubLabelText(EventKey::Chat, m_chatMessageCountText.c_str());
}

void ControlBarDataManager::SetEnterSubRoom(std::string name, std::string id) {
  const Scope scope(__func__);
  m_subRoomName = std::move(name);
  m_subRoomId = std::move(id);
}

void ControlBarDataManager::SetLeaveSubRoom() {
  const Scope scope(__func__);
  m_subRoomName.clear();
  m_subRoomId.clear();
}

bool ControlBarDataManager::IsInSubRoom() const {
  const Scope scope(__func__);
  return !m_subRoomName.empty() || !m_subRoomId.empty();
}

bool ControlBarDataManager::HasLiveStreamPermission() const {
  const Scope scope(__func__);
  return m_hostType == kHostTypeHost || m_hostType == kHostTypeAttendee;
}

void ControlBarDataManager::UpdateBtnShareNewExpandStatus() {
  const Scope scope(__func__);
  const auto offered = [this](EventKey key) { return (GetEventKeyStatus(key) & kHidden) == 0; };
  const bool share_audio = offered(EventKey::ShareAudio);
  const bool video_clips = offered(EventKey::OptimizeForVideoClips);
  const bool keep_video = offered(EventKey::KeepMyVideoOnTheScreen);
  const bool expand = GetShowShareAccess() || share_audio || video_clips || keep_video;
  m_records[*Index(EventKey::ShareNew)].hasExpand = expand && m_meetingSubType != kSubTypeScreenBox;
}

void ControlBarDataManager::ClearDataCache() {
  const Scope scope(__func__);
  m_participants.clear();
  m_avatars.clear();
  m_microphones = std::make_shared<DeviceList>();
  m_speakers = std::make_shared<DeviceList>();
  m_cameras = std::make_shared<DeviceList>();
  m_languages = std::make_shared<DeviceList>();
  m_interpretationFlags = {};
  m_closedLists.clear();
  for (ItemList* list :
       {&m_audioItems, &m_cameraItems, &m_hostControlItems, &m_sharingPermissionItems,
        &m_sharingOptionItems, &m_moreItems, &m_participantItems, &m_sketchPenItems,
        &m_sketchClearItems, &m_interpretationItems, &m_shareAudioItems}) {
    m_closedLists.push_back(std::exchange(*list, {}));
  }
  m_remoteController.reset();
  m_participantCountText.clear();
  m_controllingText.clear();
  m_windowTitle = kDefaultWindowTitle;
  m_chatMessageCountText.clear();
  m_moveNewText.clear();
  m_subRoomName.clear();
  m_subRoomId.clear();
}

}  // namespace VELLOMAR_CONTROLBAR
