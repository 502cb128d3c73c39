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

ControlbarManager::ButtonChange ControlbarManager::Bit(EventKey key, std::int32_t bit, bool on) {
  return {key, on ? bit : 0, on ? 0 : bit};
}

ControlbarManager::ButtonChange ControlbarManager::Whole(EventKey key, std::int32_t status,
                                                         std::uint64_t text_id) {
  return {key, status, kWholeStatus, text_id};
}

void ControlbarManager::Change(const ButtonChange& change) {
  const std::int32_t status = m_data->GetEventKeyStatus(change.key);
  m_data->SetEventKeyParams(change.key, (status & ~change.clear) | change.set);
  if (change.text_id == ControlBarDataManager::kNoText) return;
  m_data->SetEventKeyParams(change.key, m_data->GetNativeText(change.text_id), 0);
}

void ControlbarManager::Apply(const ButtonChange& change) {
  Change(change);
  UpdateUIElement(change.key);
}

void ControlbarManager::Run(const FlagCommand& command, bool flag) {
  const Scope scope(command.name);
  Info(command.log, flag);
  const std::int32_t status = flag == command.set_when ? command.bit : 0;
  Apply({command.key, status, command.whole ? kWholeStatus : command.bit, command.text_id});
}

void ControlbarManager::SetDeviceStatus(EventKey key, std::uint64_t text_id, std::int64_t status,
                                        VELLOMAR_LOG::FormatString<const char*&> log) {
  std::int32_t word = 0;
  if (status == 0) word = VELLOMAR_LORIMEL::kStatusDeviceMuted;
  if (status == 2) word = VELLOMAR_LORIMEL::kStatusDeviceUnavailable;
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
  Apply(Bit(EventKey::ShareAudio, kStatusDisabled, !enable));
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
  const char* const text = m_data->GetNativeText(text_id::kParticipants);
  std::string label =
      fmt::format("{}{}({})", VELLOMAR_COMMON::OrEmpty(text), text != nullptr ? " " : "", shown);
  m_data->SetParticipantCount(shown);
  m_data->SetComposedLabel(EventKey::Participants, std::move(label));
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
  Apply(Bit(EventKey::LiveIndicator, kStatusHidden, !live));
}

void ControlbarManager::SetRecordStatus(bool recording) {
  const Scope scope(__func__);
  Info("[Controlbar] Set record status {}.", recording);
  m_data->SetRecording(recording);
  Apply(Bit(EventKey::Record, kStatusOn, recording));
  Apply(Bit(EventKey::RecordIndicator, kStatusHidden, !recording));
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
  if (params == nullptr) return;
  params->groupValue = static_cast<std::int32_t>(level - 1);
  UpdateUIElement(EventKey::JoinPermission);
}

void ControlbarManager::SetVideoOption(EventKey key, int visible, int enabled, int checked) {
  const bool on = checked != 0;
  Change({key, on ? kStatusOn : 0, kStatusOn | kStatusHidden | kStatusDisabled});
  Change(Bit(key, kStatusHidden, visible == 0));
  Change(Bit(key, kStatusDisabled, enabled == 0));
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
  if (Record(key) != nullptr) Apply(Bit(key, kStatusDisabled, !enable));
}

void ControlbarManager::SetButtonVisible(EventKey key, bool visible) {
  const Scope scope(__func__);
  Info("SetButtonVisible: {},{}", static_cast<int>(key), visible);
  if (Record(key) != nullptr) Apply(Bit(key, kStatusHidden, !visible));
}

void ControlbarManager::RefreshShareNew() {
  m_data->UpdateBtnShareNewExpandStatus();
  UpdateUIElement(EventKey::ShareNew);
}

}  // namespace VELLOMAR_CONTROLBAR
