// SPDX-License-Identifier: MIT
// Commands that tell what the meeting is like: who the user is, what is shared, which devices,
// rooms and participants there are.
#include <utility>

#include "data/text_ids.h"
#include "manager/controlbar_manager.h"

namespace VELLOMAR_CONTROLBAR {

using VELLOMAR_LOG::Info;
using VELLOMAR_LORIMEL::Lorimel;

void ControlbarManager::SetHostType(std::int64_t type) {
  const Scope scope(__func__);
  Info("SetHostType type:{}", type);
  const bool offers_host_control = type != kHostTypeParticipant && type != kHostTypeAttendee;
  Apply(Offered(EventKey::HostControl, offers_host_control, text_id::kHostControl));
  m_data->SetHostType(type);
  UpdateInterpreationBtnStatus();
  RefreshShareNew();
  SetRecordStatus(m_data->IsRecording());
  if (m_data->IsInSubRoom()) {
    Info(m_data->LeavesSubRoom() ? "sub room host: leave button icon switch"
                                 : "sub room participant: leave button icon switch");
    m_data->UpdateLeaveButton();
  }
  UpdateUIElement(EventKey::Leave);
}

void ControlbarManager::RefreshLeaveButton() {
  m_data->UpdateLeaveButton();
  UpdateUIElement(EventKey::Leave);
}

void ControlbarManager::SetParticipantRole(std::int64_t role) {
  const Scope scope(__func__);
  Info("SetParticipantRole type:{}", role);
  m_data->SetParticipantRole(role);
}

void ControlbarManager::SetMeetingSource(std::int64_t source) {
  const Scope scope(__func__);
  Info("SetMeetingSource type:{}", source);
  m_data->SetMeetingSource(source);
}

void ControlbarManager::SetSubtitleOpened(bool opened) {
  const Scope scope(__func__);
  Info("SetSubtitleOpened isOpen:{}", opened);
  m_data->SetSubtitleOpened(opened);
}

void ControlbarManager::SetInterpretationSwitchEnable(bool enable) {
  const Scope scope(__func__);
  Info("SetInterpretationSwitchEnable: enable = {}", enable);
  m_data->SetInterpretationSwitchEnable(enable);
}

void ControlbarManager::SwitchSubType(std::int64_t from, std::int64_t to) {
  const Scope scope(__func__);
  Info("switch form subtype:{} to {}", from, to);
  if (from == to) {
    Info("invalid switch,subtype:{}", to);
    return;
  }
  CloseSketchControlbar();
  // Before the call: the library may report the close while it lasts. With nothing to close there
  // is nothing to create anew, unless a close is still to be reported.
  const bool closing = std::exchange(m_recreatePending, true);
  if (!Lorimel::GetInstance()->CloseSharedControlbar() && !closing) {
    ForgetPending();
  }
}

void ControlbarManager::SetMeetingSubType(std::int64_t type) {
  const Scope scope(__func__);
  Info("SetMeetingSubType type:{}", type);
  const std::int64_t old = m_data->GetMeetingSubType();
  m_data->SetMeetingSubType(type);
  if (type != old) {
    m_data->UpdateSubTypeLabels();  // before the switch, which creates the bar anew
    if (m_handleControlbar != nullptr) {
      SwitchSubType(old, type);
    }
  }
  SetSketchEnable(m_data->GetSketchEnabled());
  SetSketchVisible(m_data->GetSketchVisible());
  RefreshParticipants();
  UpdateUIElement(EventKey::Annotate);
  RefreshShareNew();
  m_data->UpdateShareMeetingNameLabel();
  UpdateUIElement(EventKey::ShareMeetingName);
}

void ControlbarManager::RefreshParticipants() {
  m_data->UpdateParticipantsLabel();
  UpdateUIElement(EventKey::Participants);
}

void ControlbarManager::RefreshInfoText() {
  m_data->UpdateMeetingNumberLabel();
  UpdateUIElement(EventKey::InfoText);
}

void ControlbarManager::SetMeetingNumber(const std::string& number) {
  const Scope scope(__func__);
  Info("SetMeetingNumber meetingNumber:{}", number);
  Info("[Controlbar] Set meeting number {}", number);
  m_data->SetMeetingNumber(number);
  UpdateUIElement(EventKey::InfoText);
}

void ControlbarManager::SetMeetingDuration(std::uint64_t duration) {
  const Scope scope(__func__);
  Info("SetMeetingDuration duration:{}", duration);
  Info("[Controlbar] Set meeting duration {}", duration);
  m_meetingDuration = duration;
  Lorimel::GetInstance()->SetMeetingDuration(duration);
}

void ControlbarManager::SetMicVolume(int volume) {
  const Scope scope(__func__);
  Info("SetMicVolume volume:{}", volume);
  Lorimel::GetInstance()->SetMicVolume(volume);
}

void ControlbarManager::SetSketchEnable(bool enable) {
  const Scope scope(__func__);
  Info("[Controlbar] Set annotate enable {}.", enable);
  m_data->SetSketchEnabled(enable);
  if (!IsSketchLoading()) {
    Change(Enabled(EventKey::Annotate, enable));
  }
  UpdateUIElement(EventKey::Annotate);
}

void ControlbarManager::SetSketchVisible(bool visible) {
  const Scope scope(__func__);
  Info("[Controlbar] Set annotate visible {}.", visible);
  m_data->SetSketchVisible(visible);
  const bool screen_box = m_data->GetMeetingSubType() == kSubTypeScreenBox;
  if (screen_box) {
    Info("meeting sub type is SCREEN_BOX. sketch button is invalid.");
  }
  m_isAnnotateHidden = screen_box || !visible;
  if (!IsSketchLoading()) {
    Change(Shown(EventKey::Annotate, !m_isAnnotateHidden));
  }
  UpdateUIElement(EventKey::Annotate);
}

void ControlbarManager::SetInterpretationEnable(bool enable) {
  const Scope scope(__func__);
  Info("SetInterpretationEnable enable = {}", enable);
  m_data->SetInterpretationEnable(enable);
  UpdateInterpreationBtnStatus();
}

void ControlbarManager::UpdateInterpreationBtnStatus() {
  const Scope scope(__func__);
  bool shown = true;
  if (m_data->GetInterpretationEnable()) {
    Info("GetInterpretationEnable Show Interpreation");
  } else if (m_data->GetHostType() == kHostTypeHost) {
    Info("Show Host Interpreation");
  } else {
    Info("Hide Interpreation");
    shown = false;
  }
  Apply(Shown(EventKey::Interpretation, shown));
}

void ControlbarManager::SetShareAccess(std::int64_t only_host,
                                       std::int64_t only_host_can_start_any_time,
                                       std::int64_t only_the_presenter_can_annotate) {
  const Scope scope(__func__);
  Info("SetShareAccess onlyhost: {},onlyHostCanStartAnyTime: {}, onlyThePresenterCanAnnotate: {}",
       only_host, only_host_can_start_any_time, only_the_presenter_can_annotate);
  m_data->SetOnlyHostCanShare(IsOn(only_host));
  m_data->SetOnlyHostCanReshare(IsOn(only_host_can_start_any_time));
  m_data->SetOnlyPresenterCanAnnotate(IsOn(only_the_presenter_can_annotate));
  RefreshShareNew();
}

void ControlbarManager::SetSharingStatus(bool pause, std::int64_t sta) {
  const Scope scope(__func__);
  Info("SetSharingStatus pause = {}, sta = {}", pause, sta);
  m_isSharing = sta != 0;
  m_isSharingPaused = pause && m_isSharing;
  RefreshInfoText();
  Apply(PauseIndicator());
  Apply(SharingIndicator());
}

void ControlbarManager::SetUnderControl(std::int64_t status, std::string user_id,
                                        std::string display_name) {
  const Scope scope(__func__);
  Info("Set remote control status {},controler: {},{}.", status, user_id, display_name);
  const bool under_control = status != 0;
  m_data->SetRemoteControler(under_control, std::move(user_id), std::move(display_name));
  if (!under_control) {
    m_isRemoteControlPaused = false;
  }
  Apply(Shown(EventKey::StopRemoteControl, under_control));
  Apply(PauseIndicator());
  RefreshInfoText();
  Apply(SharingIndicator());
}

void ControlbarManager::SetRemoteControlPause(bool pause) {
  const Scope scope(__func__);
  Info("SetRemoteControlPause pause = {}", pause);
  m_isRemoteControlPaused = pause;
  Apply(PauseIndicator());
  Apply(SharingIndicator());
}

ButtonChange ControlbarManager::PauseIndicator() const {
  return Shown(EventKey::PauseIndicator, IsScreenSeen() && IsPaused());
}

ButtonChange ControlbarManager::SharingIndicator() const {
  return Shown(EventKey::SharingIndicator, IsScreenSeen() && !IsPaused());
}

void ControlbarManager::SetAudioAndPlaybackInfo(DeviceList microphones, DeviceList speakers) {
  const Scope scope(__func__);
  // The line comes twice: there are two lists, the microphones and the speakers.
  Info("[Controlbar] Start set audio info. Device count: {}, currentAudioDeviceId = {}",
       microphones.devices.size(), microphones.current_id);
  LogDevices(microphones);
  Info("[Controlbar] Start set audio info. Device count: {}, currentAudioDeviceId = {}",
       speakers.devices.size(), speakers.current_id);
  LogDevices(speakers);
  m_data->UpdateAudioItems(std::move(microphones), std::move(speakers));
}

void ControlbarManager::LogDevices(const DeviceList& list) {
  for (const Device& device : list.devices) {
    Info("Device: deviceId = {}, deviceName = {}", device.id, device.name);
  }
}

void ControlbarManager::SetCameraInfo(DeviceList cameras) {
  const Scope scope(__func__);
  Info("[Controlbar] Start set camera info. Device count: {}", cameras.devices.size());
  m_data->UpdateCameraItems(std::move(cameras));
}

void ControlbarManager::SetInterpretationInfo(InterpretationInfo info) {
  const Scope scope(__func__);
  for (const Device& language : info.languages.devices) {
    Info("LanguageInfo: languageId = {}, languageName = {}", language.id, language.name);
  }
  m_data->SetInterpretationInfo(std::move(info));
}

void ControlbarManager::SetMeetingDetailInfo(MeetingDetail detail) {
  const Scope scope(__func__);
  m_data->SetMeetingDetailInfo(std::move(detail));
}

void ControlbarManager::SetHostControlInfo(const VellomarHostControlInfo& info) {
  const Scope scope(__func__);
  m_data->UpdateHostInfo(info);
  // The rows of the host-control list add the host info to MoveNew's status word by themselves, so
  // it must not be in the word as well.
  UpdateUIElement(EventKey::MoveNew);
  Apply(Whole(EventKey::NewParticipantMic, m_data->NewParticipantMicStatus()));
  Apply(Whole(EventKey::MicOperate, m_data->MicOperateStatus()));
  RefreshShareNew();
}

void ControlbarManager::UpdateParticipants(const SharedParticipantList& participants) {
  const Scope scope(__func__);
  m_data->UpdateParticipants(*participants);
}

void ControlbarManager::EnterMeetingSubRoom(std::string room_name, std::string room_id) {
  const Scope scope(__func__);
  m_data->SetEnterSubRoom(room_name, std::move(room_id));
  RefreshSubRoom(std::move(room_name));
}

void ControlbarManager::LeaveMeetingSubRoom() {
  const Scope scope(__func__);
  m_data->SetLeaveSubRoom();
  RefreshSubRoom({});
}

void ControlbarManager::RefreshSubRoom(std::string name) {
  RefreshLeaveButton();
  m_data->SetComposedLabel(EventKey::SubRoomName, std::move(name));
  Apply(Shown(EventKey::SubRoomName, m_data->IsInSubRoom()));
}

}  // namespace VELLOMAR_CONTROLBAR
