// SPDX-License-Identifier: MIT
// The handlers of user actions that have a rule of their own.
#include "data/text_ids.h"
#include "manager/user_actions.h"

namespace VELLOMAR_CONTROLBAR {

using VELLOMAR_LOG::Info;

void UserActions::OnJoinPermissionChanged() {
  const Scope scope(__func__);
  // AnnotatePermission offers no choice: the level in force is reported.
  const bool chosen = event.key == EventKey::JoinPermission;
  const std::int64_t level =
      chosen ? std::int64_t{event.groupValue} + 1 : data.GetCurrentSecurityLevel();
  data.SetCurrentSecurityLevel(level);
  Notifier::GetInstance()->Send<VELLOMAR_NOTIFY_joinPermissionChanged>(level);
  Info("Controlbar join meeting permission changed to {}.", level);
}

void UserActions::OnEnableOnlyHostShare() {
  const Scope scope(__func__);
  const bool on = IsOn();
  data.SetOnlyHostCanShare(on);
  const bool reshare = data.IsOnlyHostCanReshare();
  Notifier::GetInstance()->Send<VELLOMAR_NOTIFY_onlyHostShare>(on, reshare);
  Info("Controlbar {} only host share. IsOnlyHostCanReshare is {}", on ? kEnabled.on : kEnabled.off,
       reshare);
}

void UserActions::OnEnableOnlyHostBreakShare() {
  const Scope scope(__func__);
  const bool on = IsOn();
  data.SetOnlyHostCanReshare(on);
  const bool share = data.IsOnlyHostCanShare();
  Notifier::GetInstance()->Send<VELLOMAR_NOTIFY_onlyHostShare>(share, on);
  Info("Controlbar {} only host break share. HostCanShare is {}", on ? kEnabled.on : kEnabled.off,
       share);
}

void UserActions::OnRemoteControl() {
  const Scope scope(__func__);
  const bool open = IsOn();
  const bool chosen = event.valueText != nullptr && event.valueText[0] != '\0';
  Notifier::GetInstance()->Send<VELLOMAR_NOTIFY_remoteControl>(open);
  Info("Controlbar {} remote control.", open ? kOpen.on : kOpen.off);
  if (chosen) OnRemoteControlGrant();
}

void UserActions::OnRemoteControlGrant() {
  const Scope scope(__func__);
  if (!HasTag(__func__)) return;
  const Participant* const found = data.FindParticipantByKey(event.valueText);
  if (found == nullptr) return;
  Notifier::GetInstance()->Send<VELLOMAR_NOTIFY_remoteControlGrant>(
      found->user_id.c_str(), found->instance_id.c_str(), found->number,
      found->display_name.c_str(), found->room.c_str(), found->avatar_key.c_str(),
      found->avatar_path.c_str(), found->flag);
}

void UserActions::OnReaction() {
  const Scope scope(__func__);
  const VellomarRect at = ControlbarManager::PositionOf(EventKey::Reaction);
  Notifier::GetInstance()->Send<VELLOMAR_NOTIFY_reaction>(at.x, at.y, at.width, at.height);
  Info("Controlbar reaction,pos: {},{},{},{}.", at.x, at.y, at.width, at.height);
}

void UserActions::OnRecordMeetting() {
  const Scope scope(__func__);
  if (data.GetHostType() == kHostTypeParticipant) {
    Info("Recording...Participants skip onRecord!");
    return;
  }
  const bool open = IsOn();
  Notifier::GetInstance()->Send<VELLOMAR_NOTIFY_record>(open);
  Info("Controlbar {} record metting.", open ? kOpen.on : kOpen.off);
}

// The opposite of what the host last said, whether or not the library has turned the row's check.
void UserActions::OnOpenSubtitles() {
  const Scope scope(__func__);
  const bool open = !data.IsSubtitleOpened();
  Notifier::GetInstance()->Send<VELLOMAR_NOTIFY_subtitles>(open);
  Info("Controlbar {} subtitles.", open ? kOpen.on : kOpen.off);
}

void UserActions::OnLiveStream() {
  const Scope scope(__func__);
  const bool open = IsOn();
  if (data.HasLiveStreamPermission()) {
    Notifier::GetInstance()->Send<VELLOMAR_NOTIFY_liveStream>(open);
  } else {
    Notifier::GetInstance()->Send<VELLOMAR_NOTIFY_requestLiveStream>(open);
  }
  Info("Controlbar {} live stream.", open ? kOpen.on : kOpen.off);
}

void UserActions::OnLeaveMeetting() {
  const Scope scope(__func__);
  data.GetHostType();
  manager.ShowLeaveTip();
  Notifier::GetInstance()->Send<VELLOMAR_NOTIFY_leaveMeeting>();
  Info("Controlbar leave metting.");
}

void UserActions::OnMeetingIdExpand() {
  const Scope scope(__func__);
  const bool open = event.status == VELLOMAR_LORIMEL::kStatusOn;
  VellomarRect at{};
  if (IsScreenShare(data.GetMeetingSubType())) {
    at = ControlbarManager::PositionOf(EventKey::InfoText);
    Info("share screen expand share video");
  }
  Notifier::GetInstance()->Send<VELLOMAR_NOTIFY_meetingIdExpand>(open, at);
  Info("Controlbar {} meeting id.", open ? kOpen.on : kOpen.off);
}

void UserActions::OnInterpretationSwitch() {
  const Scope scope(__func__);
  const bool enable = data.GetInterpretationEnable();
  Notifier::GetInstance()->Send<VELLOMAR_NOTIFY_interpretationSwitch>(enable);
  Info("OnInterpretationSwitch enable = {}", enable);
}

void UserActions::OnShareAudio() {
  const Scope scope(__func__);
  const bool start = !data.GetShareAudioStatus();
  Notifier::GetInstance()->Send<VELLOMAR_NOTIFY_shareAudio>(start);
  Info("GetShareAudioStatus isStart = {}", start);
}

void UserActions::OnOnlyThePresenterCanAnnotate() {
  const Scope scope(__func__);
  const bool checked = IsOn();
  Notifier::GetInstance()->Send<VELLOMAR_NOTIFY_onlyThePresenterCanAnnotate>(
      checked, data.GetShareOptionFromSource());
  Info("OnOnlyThePresenterCanAnnotate: {}", checked);
}

// Local only: the host is not told.
void UserActions::OnControlbarSwitch() {
  const Scope scope(__func__);
  const bool expanded = !data.IsControllbarExpanded();
  data.SetControllbarSwitch(expanded);
  data.SetEventKeyParams(
      EventKey::ControlbarSwitch,
      data.GetNativeText(expanded ? text_id::kExpandedTip : text_id::kCollapsedTip), 0);
  manager.Push(*data.GetEventKeyParams(EventKey::ControlbarSwitch));
}

void UserActions::OnHostControlWindow() {
  manager.SetJoinPermission(data.GetCurrentSecurityLevel());
}

void UserActions::OnWidgetMoving() {
  Notifier::GetInstance()->Send<VELLOMAR_NOTIFY_widgetMoving>();
}

}  // namespace VELLOMAR_CONTROLBAR
