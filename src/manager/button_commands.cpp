// SPDX-License-Identifier: MIT
// Commands that change how a button looks: a status bit, a whole status word, a label.
#include <fmt/format.h>

#include <algorithm>
#include <utility>

#include "common/text.h"
#include "data/text_ids.h"
#include "manager/controlbar_manager.h"

namespace VELLOMAR_CONTROLBAR {

using VELLOMAR_LOG::Info;
using VELLOMAR_LORIMEL::kStatusDisabled;
using VELLOMAR_LORIMEL::kStatusHidden;
using VELLOMAR_LORIMEL::kStatusOn;

void ControlbarManager::FollowFlag(const char* operation, VELLOMAR_LOG::FormatString<bool&> log,
                                   bool flag, const ButtonChange& change) {
  const Scope scope(operation);
  Info(log, flag);
  Apply(change);
}

void ControlbarManager::SetParticipantsStatus(bool open) {
  FollowFlag(__func__, "SetParticipantsStatus:{}", open, TurnedOn(EventKey::Participants, open));
}

void ControlbarManager::SetRemoteControlEnabled(bool enable) {
  FollowFlag(__func__, "[Controlbar] Set remote control enable {}.", enable,
             Offered(EventKey::RemoteControl, enable, text_id::kRemoteControl));
}

void ControlbarManager::SetSubtitleEnable(bool enable) {
  FollowFlag(__func__, "[Controlbar] Set subtitle enable {}.", enable,
             Offered(EventKey::Subtitles, enable));
}

void ControlbarManager::SetPhoneInviteEnable(bool enable) {
  FollowFlag(__func__, "[Controlbar] Set phone invite enable {}.", enable,
             Offered(EventKey::PhoneInvite, enable, text_id::kPhoneInvite));
}

void ControlbarManager::SetSipInviteEnable(bool enable) {
  FollowFlag(__func__, "[Controlbar] Set sip invite enable {}.", enable,
             Enabled(EventKey::SipInvite, enable));
}

void ControlbarManager::SetLiveEnable(bool enable) {
  FollowFlag(__func__, "[Controlbar] Set live enable {}.", enable,
             Enabled(EventKey::LiveStream, enable));
}

void ControlbarManager::SetRecordVisible(bool visible) {
  FollowFlag(__func__, "[Controlbar] Set record visible {}.", visible,
             Shown(EventKey::Record, visible));
}

void ControlbarManager::SetReactionVisible(bool visible) {
  FollowFlag(__func__, "SetReactionVisible: {}", visible, Shown(EventKey::Reaction, visible));
}

void ControlbarManager::SetExternalMeeting(bool external) {
  FollowFlag(__func__, "SetExternalMeeting: {}", external,
             Shown(EventKey::ExternalMeeting, external));
}

void ControlbarManager::SetAskHostForHelpVisible(bool visible) {
  FollowFlag(__func__, "SetAskHostForHelpVisible: {}", visible,
             Shown(EventKey::AskHostForHelp, visible));
}

void ControlbarManager::SetAskHostForHelpEnable(bool enable) {
  FollowFlag(__func__, "SetAskHostForHelpEnable: {}", enable,
             Enabled(EventKey::AskHostForHelp, enable));
}

void ControlbarManager::SetInterpretationOriginEnable(bool enable) {
  FollowFlag(__func__, "SetInterpretationOriginEnable: enable = {}", enable,
             Enabled(EventKey::MuteOrigin, enable));
}

void ControlbarManager::SetInterpretationCloseOrigin(bool status) {
  FollowFlag(__func__, "SetInterpretationCloseOrigin: status = {}", status,
             TurnedOn(EventKey::MuteOrigin, status));
}

void ControlbarManager::SetDeviceStatus(EventKey key, std::uint64_t text_id, std::int64_t status,
                                        VELLOMAR_LOG::FormatString<const char*&> log) {
  std::int32_t word = 0;
  if (status == 0) {
    word = VELLOMAR_LORIMEL::kStatusDeviceMuted;
  }
  if (status == 2) {
    word = VELLOMAR_LORIMEL::kStatusDeviceUnavailable;
  }
  const char* state = word != 0 ? "Mute" : "Unmute";
  Info(log, state);
  Apply(Whole(key, word, text_id));
}

void ControlbarManager::SetAudioStatus(std::int64_t status) {
  const Scope scope(__func__);
  Info("AudioStatus:{}", status);
  SetDeviceStatus(EventKey::MuteAudio, text_id::kMuteAudio, status, "[Controlbar] {} audio.");
}

void ControlbarManager::SetCameraStatus(std::int64_t status) {
  const Scope scope(__func__);
  Info("CameraStatus:{}", status);
  SetDeviceStatus(EventKey::MuteCamera, text_id::kMuteCamera, status, "[Controlbar] {} camera.");
}

void ControlbarManager::SetInteraction(bool enable, bool is_show) {
  const Scope scope(__func__);
  Info("SetInteraction: enable = {}, isShow = {}", enable, is_show);
  Info("[Controlbar] Set chat enable {}.", enable);
  const std::int32_t status = (is_show ? 0 : kStatusHidden) | (enable ? 0 : kStatusDisabled);
  Apply({EventKey::Chat, status, kStatusHidden | kStatusDisabled, text_id::kChat});
}

void ControlbarManager::SetShareAudioEnable(bool enable) {
  const Scope scope(__func__);
  Apply(Enabled(EventKey::ShareAudio, enable));
  RefreshShareNew();
}

void ControlbarManager::SetNetworkStrength(std::int64_t sta) {
  const Scope scope(__func__);
  Info("SetNetworkStrength sta = {}", sta);
  Apply(Whole(EventKey::NetworkStrength, static_cast<std::int32_t>(sta)));
}

void ControlbarManager::SetShareScreenMeetingName(const std::string& name) {
  const Scope scope(__func__);
  Info("SetSharingMeetingNumber = {}", name);
  m_data->SetComposedLabel(EventKey::ShareMeetingName, name);
  Apply(Whole(EventKey::ShareMeetingName, 0));
}

void ControlbarManager::SetParticipantsCount(int count) {
  const Scope scope(__func__);
  Info("SetParticipantsCount:{}", count);
  Info("[Controlbar] Set participants count {}.", count);
  const auto shown = static_cast<std::uint32_t>(std::max(count, 0));
  m_data->SetParticipantCount(shown);
  m_data->UpdateParticipantsLabel();
  UpdateUIElement(EventKey::Participants);
  UpdateUIElement(EventKey::RemoteControl);
}

void ControlbarManager::SetChatMessageCount(int count) {
  const Scope scope(__func__);
  Info("SetChatMessageCount: {}", count);
  m_data->SetChatMessageCount(count);
  UpdateUIElement(EventKey::Chat);
  const bool waiting = !m_data->GetChatMessageCount().empty();
  Apply(Bit(EventKey::ControlbarSwitch, VELLOMAR_LORIMEL::kStatusUnread, waiting));
}

void ControlbarManager::SetLiveStatus(std::int64_t status, std::int64_t count) {
  const Scope scope(__func__);
  Info("[Controlbar] Set live status {},count {}.", status, count);
  const bool live = status != 0;
  std::string label = VELLOMAR_COMMON::FillPlaceholder(m_data->GetNativeText(text_id::kLive),
                                                       fmt::format("{}", count));
  m_data->SetLiveStatus(live);
  m_data->SetComposedLabel(EventKey::LiveIndicator, std::move(label));
  Apply(Shown(EventKey::LiveIndicator, live));
}

void ControlbarManager::SetRecordStatus(bool recording) {
  const Scope scope(__func__);
  Info("[Controlbar] Set record status {}.", recording);
  m_data->SetRecording(recording);
  Apply(TurnedOn(EventKey::Record, recording));
  Apply(Shown(EventKey::RecordIndicator, recording));
}

void ControlbarManager::SetShareAudioStatus(bool started) {
  const Scope scope(__func__);
  Info("[Controlbar] SetShareAudioStatus status {}.", started);
  m_data->SetShareAudioStatus(started);
  UpdateUIElement(EventKey::ShareAudio);
}

void ControlbarManager::SetJoinPermission(std::int64_t level) {
  const Scope scope(__func__);
  if (!IsSecurityLevel(level)) {
    VELLOMAR_LOG::Fault("Security level is nil!");
    return;
  }
  BtnParams* const params = Record(EventKey::JoinPermission);
  if (params == nullptr) {
    return;
  }
  params->groupValue = static_cast<std::int32_t>(level - 1);
  UpdateUIElement(EventKey::JoinPermission);
}

void ControlbarManager::SetVideoOption(EventKey key, int visible, int enabled, int checked) {
  const bool on = checked != 0;
  Change({key, on ? kStatusOn : 0, kStatusOn | kStatusHidden | kStatusDisabled});
  Change(Shown(key, visible != 0));
  Change(Enabled(key, enabled != 0));
  RefreshShareNew();
}

void ControlbarManager::SetOptimizeForVideoClipsStatus(int visible, int enabled, int checked) {
  const Scope scope(__func__);
  Info("SetOptimizeForVideoClipsStatus: {},{},{}", visible, enabled, checked);
  SetVideoOption(EventKey::OptimizeForVideoClips, visible, enabled, checked);
}

void ControlbarManager::SetKeepMyVideoOnTheScreenStatus(int visible, int enabled, int checked) {
  const Scope scope(__func__);
  Info("SetKeepMyVideoOnTheScreenStatus: {},{},{}", visible, enabled, checked);
  SetVideoOption(EventKey::KeepMyVideoOnTheScreen, visible, enabled, checked);
}

void ControlbarManager::SetButtonEnable(EventKey key, bool enable) {
  const Scope scope(__func__);
  Info("SetButtonEnable: {},{}", static_cast<int>(key), enable);
  if (Record(key) != nullptr) {
    Apply(Enabled(key, enable));
  }
}

void ControlbarManager::SetButtonVisible(EventKey key, bool visible) {
  const Scope scope(__func__);
  Info("SetButtonVisible: {},{}", static_cast<int>(key), visible);
  if (Record(key) != nullptr) {
    Apply(Shown(key, visible));
  }
}

void ControlbarManager::RefreshShareNew() {
  m_data->UpdateBtnShareNewExpandStatus();
  UpdateUIElement(EventKey::ShareNew);
}

}  // namespace VELLOMAR_CONTROLBAR
