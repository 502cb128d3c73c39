// SPDX-License-Identifier: MIT
// What is told of the meeting, with what it changes in the records.
#include <fmt/format.h>

#include "common/text.h"
#include "data/button_defaults.h"
#include "data/control_bar_data_manager.h"

namespace VELLOMAR_CONTROLBAR {
namespace {

using VELLOMAR_COMMON::FillPlaceholder;
using VELLOMAR_LOG::Info;

// The leave button keeps pointers to them.
constexpr char kLeaveRoomIcon[] = "icon_leaveroom_filled.icon";
constexpr char kCallEndIcon[] = "icon_call_end_filled.icon";

using VELLOMAR_LORIMEL::kStatusHidden;
using VELLOMAR_LORIMEL::kStatusOn;
using VELLOMAR_LORIMEL::kStatusUnread;

}  // namespace

// --- Flags that log their value

void ControlBarDataManager::SetLiveStatus(bool is_start) {
  const Scope scope(__func__);
  Info("SetLiveStatus isStart:{}", is_start);
  m_meeting.is_live = is_start;
}

bool ControlBarDataManager::GetLiveStatus() const {
  const Scope scope(__func__);
  Info("GetLiveStatus m_isLiveStart = {}", m_meeting.is_live);
  return m_meeting.is_live;
}

void ControlBarDataManager::SetShareAudioStatus(bool is_start) {
  const Scope scope(__func__);
  Info("SetShareAudioStatus isStart = {}", is_start);
  m_meeting.is_share_audio_opened = is_start;
  const std::int32_t status = GetEventKeyStatus(EventKey::ShareAudio);
  SetEventKeyParams(EventKey::ShareAudio, is_start ? status | kStatusOn : status & ~kStatusOn);
}

bool ControlBarDataManager::GetShareAudioStatus() const {
  const Scope scope(__func__);
  Info("GetShareAudioStatus m_isShareAudioOpened = {}", m_meeting.is_share_audio_opened);
  return m_meeting.is_share_audio_opened;
}

void ControlBarDataManager::SetOnlyHostCanShare(bool on) {
  const Scope scope(__func__);
  Info("SetOnlyHostCanShare {}", on);
  m_meeting.only_host_can_share = on;
}

void ControlBarDataManager::SetOnlyHostCanReshare(bool on) {
  const Scope scope(__func__);
  Info("SetOnlyHostCanReshare {}", on);
  m_meeting.only_host_can_reshare = on;
}

void ControlBarDataManager::SetInterpretationSwitchEnable(bool enable) {
  const Scope scope(__func__);
  Info("SetInterpretationSwitchEnable enable = {}", enable);
  m_meeting.interpretation_switch_enabled = enable;
}

void ControlBarDataManager::SetControllbarSwitch(bool open) {
  const Scope scope(__func__);
  Info("SetControllbarSwitch bOpen = {}", open);
  m_meeting.is_expanded = open;
}

void ControlBarDataManager::SetSketchEnabled(bool enabled) {
  const Scope scope(__func__);
  Info("datamanager setsketchenable {}", enabled);
  m_meeting.sketch_enabled = enabled;
}

bool ControlBarDataManager::GetSketchEnabled() const {
  const Scope scope(__func__);
  Info("datamanager getsketchenabled {}", m_meeting.sketch_enabled);
  return m_meeting.sketch_enabled;
}

void ControlBarDataManager::SetSketchVisible(bool visible) {
  const Scope scope(__func__);
  Info("datamanager setsketchvisible {}", visible);
  m_meeting.sketch_visible = visible;
}

bool ControlBarDataManager::GetSketchVisible() const {
  const Scope scope(__func__);
  Info("datamanager getsketchvisible {}", m_meeting.sketch_visible);
  return m_meeting.sketch_visible;
}

// --- Settings, devices, texts

void ControlBarDataManager::UpdateHostInfo(const VellomarHostControlInfo& info) {
  const Scope scope(__func__);
  Host() = info;
  Info(
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
  m_meeting.SetAudioDevices(std::move(microphones), std::move(speakers));
}

void ControlBarDataManager::UpdateCameraItems(DeviceList cameras) {
  const Scope scope(__func__);
  m_meeting.cameras = std::make_shared<const DeviceList>(std::move(cameras));
}

std::size_t ControlBarDataManager::GetAudioCount() const {
  const Scope scope(__func__);
  return m_meeting.microphones->devices.size();
}

std::size_t ControlBarDataManager::GetPlaybackCount() const {
  const Scope scope(__func__);
  return m_meeting.speakers->devices.size();
}

std::size_t ControlBarDataManager::GetCameraItemCount() const {
  const Scope scope(__func__);
  return m_meeting.cameras->devices.size();
}

void ControlBarDataManager::SetInterpretationInfo(InterpretationInfo info) {
  const Scope scope(__func__);
  m_meeting.SetInterpretation(std::move(info));
}

void ControlBarDataManager::SetMeetingDetailInfo(MeetingDetail detail) {
  Store(__func__, m_meeting.detail, std::move(detail));
}

const MeetingDetail& ControlBarDataManager::GetMeetingDetailInfo() const {
  const Scope scope(__func__);
  return m_meeting.detail;
}

void ControlBarDataManager::SetWindowTitle(const char* title) {
  const Scope scope(__func__);
  if (title == nullptr) {
    VELLOMAR_LOG::Fault("set windows title is nullptr");
    return;
  }
  m_meeting.window_title = title;
}

std::string ControlBarDataManager::GetWindowTitle() const {
  const Scope scope(__func__);
  return m_meeting.window_title.value_or(MeetingState::kDefaultWindowTitle);
}

void ControlBarDataManager::SetParticipantCount(std::uint32_t count) {
  Store(__func__, m_meeting.participant_count_text, fmt::format("{}", count));
}

void ControlBarDataManager::UpdateParticipantsLabel() {
  const Scope scope(__func__);
  const std::string& count = m_meeting.participant_count_text;
  if (count.empty()) {
    return;
  }
  const char* const text = GetNativeText(text_id::kParticipants);
  SetComposedLabel(EventKey::Participants, fmt::format("{}{}({})", VELLOMAR_COMMON::OrEmpty(text),
                                                       text != nullptr ? " " : "", count));
}

const char* ControlBarDataManager::GetParticipantCountString() const {
  const Scope scope(__func__);
  return m_meeting.participant_count_text.c_str();
}

void ControlBarDataManager::SetMeetingNumber(const std::string& number) {
  const Scope scope(__func__);
  std::string text = FillPlaceholder(GetNativeText(text_id::kMeetingNumber), number);
  std::string label = text;
  m_meeting.number = number;
  m_meeting.number_text = std::move(text);
  SetComposedLabel(EventKey::InfoText, std::move(label));
}

void ControlBarDataManager::UpdateMeetingNumberLabel() {
  const Scope scope(__func__);
  if (!m_meeting.number.empty()) {
    SetMeetingNumber(std::string(m_meeting.number));
  }
}

void ControlBarDataManager::UpdateShareMeetingNameLabel() {
  const Scope scope(__func__);
  m_buttons.RestoreComposedLabel(EventKey::ShareMeetingName);
}

const char* ControlBarDataManager::GetMeetingNumberFormat() const {
  const Scope scope(__func__);
  return m_meeting.number_text.c_str();
}

void ControlBarDataManager::SetChatMessageCount(std::int64_t count) {
  const Scope scope(__func__);
  m_meeting.SetChatCount(count);
  SetButtonSubLabelText(EventKey::Chat, m_meeting.chat_count_text.c_str());
}

void ControlBarDataManager::UpdateChatMessageCount() {
  const Scope scope(__func__);
  SetButtonSubLabelText(EventKey::Chat, m_meeting.chat_count_text.c_str());
}

void ControlBarDataManager::SetEnterSubRoom(std::string name, std::string id) {
  const Scope scope(__func__);
  m_meeting.sub_room_name = std::move(name);
  m_meeting.sub_room_id = std::move(id);
}

void ControlBarDataManager::SetLeaveSubRoom() {
  const Scope scope(__func__);
  m_meeting.sub_room_name.clear();
  m_meeting.sub_room_id.clear();
}

void ControlBarDataManager::SetRemoteControler(bool under_control, std::string user_id,
                                               std::string display_name) {
  const Scope scope(__func__);
  std::string text;
  std::optional<Participant> controller;
  if (under_control) {
    text = FillPlaceholder(GetNativeText(text_id::kControlledBy), display_name);
    controller.emplace();
    controller->user_id = std::move(user_id);
    controller->display_name = std::move(display_name);
  }
  std::string label = text;
  m_meeting.is_under_control = under_control;
  m_meeting.remote_controller_text = std::move(text);
  m_meeting.remote_controller = std::move(controller);
  SetComposedLabel(EventKey::StopRemoteControl, std::move(label));
}

const char* ControlBarDataManager::GetRemoteControllerTextFormat() const {
  const Scope scope(__func__);
  return m_meeting.remote_controller_text.c_str();
}

// --- What follows

bool ControlBarDataManager::HasLiveStreamPermission() const {
  const Scope scope(__func__);
  return m_meeting.HasLiveStreamPermission();
}

bool ControlBarDataManager::IsInSubRoom() const {
  const Scope scope(__func__);
  return m_meeting.IsInSubRoom();
}

bool ControlBarDataManager::LeavesSubRoom() const {
  const Scope scope(__func__);
  return IsInSubRoom() && GetHostType() == kHostTypeParticipant;
}

void ControlBarDataManager::UpdateBtnShareNewExpandStatus() {
  const Scope scope(__func__);
  const auto offered = [this](EventKey key) {
    return (GetEventKeyStatus(key) & kStatusHidden) == 0;
  };
  const bool share_audio = offered(EventKey::ShareAudio);
  const bool video_clips = offered(EventKey::OptimizeForVideoClips);
  const bool keep_video = offered(EventKey::KeepMyVideoOnTheScreen);
  const bool expand = GetShowShareAccess() || share_audio || video_clips || keep_video;
  m_buttons.At(EventKey::ShareNew).hasExpand = expand && m_meeting.sub_type != kSubTypeScreenBox;
}

void ControlBarDataManager::UpdateSubTypeLabels() {
  const Scope scope(__func__);
  if (m_texts.IsEmpty()) {
    return;  // the first text map writes them
  }
  const bool screen_share = IsScreenShareOrBox(m_meeting.sub_type);
  for (const ButtonDefault& row : ButtonDefaults()) {
    if (!row.NamesWhatIsShared()) {
      continue;
    }
    m_buttons.SetLabel(row.key, GetNativeText(row.Label(screen_share)));
  }
}

void ControlBarDataManager::UpdateLeaveButton() {
  const Scope scope(__func__);
  // Outside a sub-room only what was changed inside is put back.
  if (!IsInSubRoom() && m_buttons.At(EventKey::Leave).iconPath == nullptr) {
    return;
  }
  const bool leaves_room = LeavesSubRoom();
  SetButtonIconPath(EventKey::Leave, leaves_room ? kLeaveRoomIcon : kCallEndIcon);
  SetButtonContent(EventKey::Leave, leaves_room ? text_id::kLeaveRoom : text_id::kLeave);
}

void ControlBarDataManager::ClearDataCache() {
  const Scope scope(__func__);
  m_lists.CloseAll();  // the one that may fail
  m_participants.Clear();
  m_meeting.Forget();
  ForgetShownValues();
}

// A bar that is shown again must not show what was forgotten.
void ControlBarDataManager::ForgetShownValues() {
  if (m_buttons.ForgetComposedLabel(EventKey::Participants)) {
    m_buttons.SetLabel(EventKey::Participants, GetNativeText(text_id::kParticipants));
  }
  m_buttons.At(EventKey::ControlbarSwitch).status &= ~kStatusUnread;
  UpdateLeaveButton();
  SetComposedLabel(EventKey::SubRoomName, {});
  m_buttons.At(EventKey::SubRoomName).status |= kStatusHidden;
}

}  // namespace VELLOMAR_CONTROLBAR
