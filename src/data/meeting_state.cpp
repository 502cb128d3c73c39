// SPDX-License-Identifier: MIT
// The state of the meeting as the host last reported it.
#include <fmt/format.h>

#include <iterator>
#include <utility>

#include "common/text.h"
#include "data/control_bar_data_manager.h"
#include "data/text_ids.h"

namespace VELLOMAR_CONTROLBAR {
namespace {

// The leave button keeps pointers to them.
constexpr char kLeaveRoomIcon[] = "icon_leaveroom_filled.icon";
constexpr char kCallEndIcon[] = "icon_call_end_filled.icon";

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
  SharedDevices new_microphones = std::make_shared<const DeviceList>(std::move(microphones));
  m_speakers = std::make_shared<const DeviceList>(std::move(speakers));
  m_microphones = std::move(new_microphones);
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
  std::string text =
      VELLOMAR_COMMON::FillPlaceholder(GetNativeText(text_id::kMeetingNumber), number);
  std::string label = text;
  m_meetingNumber = number;
  m_meetingNumberText = std::move(text);
  SetComposedLabel(EventKey::InfoText, std::move(label));
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

bool ControlBarDataManager::LeavesSubRoom() const {
  const Scope scope(__func__);
  return IsInSubRoom() && GetHostType() == kHostTypeParticipant;
}

void ControlBarDataManager::UpdateLeaveButton() {
  const Scope scope(__func__);
  // Outside a sub-room only what was changed inside is put back.
  if (!IsInSubRoom() && m_records[*Index(EventKey::Leave)].iconPath == nullptr) return;
  const bool leaves_room = LeavesSubRoom();
  SetButtonIconPath(EventKey::Leave, leaves_room ? kLeaveRoomIcon : kCallEndIcon);
  SetButtonContent(EventKey::Leave, leaves_room ? text_id::kLeaveRoom : text_id::kLeave);
}

void ControlBarDataManager::ClearDataCache() {
  const Scope scope(__func__);
  ItemList* const lists[] = {
      &m_audioItems,         &m_cameraItems,         &m_hostControlItems, &m_sharingPermissionItems,
      &m_sharingOptionItems, &m_moreItems,           &m_participantItems, &m_sketchPenItems,
      &m_sketchClearItems,   &m_interpretationItems, &m_shareAudioItems};
  // What may fail comes first.
  const auto none = std::make_shared<const DeviceList>();
  std::string title = kDefaultWindowTitle;
  m_closedLists.reserve(m_closedLists.size() + std::size(lists));

  for (ItemList* list : lists) {
    if (!list->rows.empty()) m_closedLists.push_back(std::exchange(*list, {}));
  }
  m_participants.clear();
  m_avatars.clear();
  m_questions.clear();
  m_microphones = m_speakers = m_cameras = m_languages = none;
  m_interpretationFlags = {};
  m_remoteController.reset();
  m_participantCountText.clear();
  m_controllingText.clear();
  m_windowTitle = std::move(title);
  m_chatMessageCountText.clear();
  m_moveNewText.clear();
  m_subRoomName.clear();
  m_subRoomId.clear();
  ForgetShownValues();
}

void ControlBarDataManager::DropClosedLists() {
  const Scope scope(__func__);
  m_closedLists.clear();
}

// A bar that is shown again must not show what was forgotten.
void ControlBarDataManager::ForgetShownValues() {
  std::string& count_label = m_slots[*Index(EventKey::Participants)];
  count_label.clear();  // which leaves it where it is
  BtnParams& participants = m_records[*Index(EventKey::Participants)];
  if (participants.text == count_label.c_str())
    participants.text = GetNativeText(text_id::kParticipants);
  m_records[*Index(EventKey::ControlbarSwitch)].status &= ~VELLOMAR_LORIMEL::kStatusUnread;
  UpdateLeaveButton();
  SetComposedLabel(EventKey::SubRoomName, {});
  m_records[*Index(EventKey::SubRoomName)].status |= kHidden;
}

}  // namespace VELLOMAR_CONTROLBAR
