// SPDX-License-Identifier: MIT
#include "manager/user_action_handlers.h"

#include "data/text_ids.h"

namespace VELLOMAR_CONTROLBAR {

using VELLOMAR_LOG::Info;

bool UserAction::HasTag(const char* handler) const {
  if (event.valueText != nullptr) {
    return true;
  }
  VELLOMAR_LOG::Fault("{} tag is nullptr!", handler);
  return false;
}

void OnAnnotate(const UserAction& user) {
  const ControlbarManager::Scope scope(__func__);
  const bool open = user.IsOn();
  Notifier::GetInstance()->Send<VELLOMAR_NOTIFY_annotate>(open);
  Info("Controlbar {} annotate.", kOpen.Of(open));
}

// Both handlers, in this order: the pairing is intended.
void OnAnnotatePermission(const UserAction& user) {
  OnAnnotate(user);
  OnJoinPermissionChanged(user);
}

void OnMuteAll(const UserAction&) {
  const ControlbarManager::Scope scope(__func__);
  Notifier::GetInstance()->Send<VELLOMAR_NOTIFY_muteAll>(true);
  Info("Controlbar mute all.");
}

void OnUnmuteAll(const UserAction&) {
  const ControlbarManager::Scope scope(__func__);
  Notifier::GetInstance()->Send<VELLOMAR_NOTIFY_muteAll>(false);
  Info("Controlbar unmute all.");
}

void OnJoinPermissionChanged(const UserAction& user) {
  const ControlbarManager::Scope scope(__func__);
  // AnnotatePermission offers no choice: the level in force is reported.
  const bool chosen = user.event.key == EventKey::JoinPermission;
  const std::int64_t level =
      chosen ? std::int64_t{user.event.groupValue} + 1 : user.data.GetCurrentSecurityLevel();
  user.data.SetCurrentSecurityLevel(level);
  Notifier::GetInstance()->Send<VELLOMAR_NOTIFY_joinPermissionChanged>(level);
  Info("Controlbar join meeting permission changed to {}.", level);
}

void OnEnableOnlyHostShare(const UserAction& user) {
  const ControlbarManager::Scope scope(__func__);
  const bool on = user.IsOn();
  user.data.SetOnlyHostCanShare(on);
  const bool reshare = user.data.IsOnlyHostCanReshare();
  Notifier::GetInstance()->Send<VELLOMAR_NOTIFY_onlyHostShare>(on, reshare);
  Info("Controlbar {} only host share. IsOnlyHostCanReshare is {}", kEnabled.Of(on), reshare);
}

void OnEnableOnlyHostBreakShare(const UserAction& user) {
  const ControlbarManager::Scope scope(__func__);
  const bool on = user.IsOn();
  user.data.SetOnlyHostCanReshare(on);
  const bool share = user.data.IsOnlyHostCanShare();
  Notifier::GetInstance()->Send<VELLOMAR_NOTIFY_onlyHostShare>(share, on);
  Info("Controlbar {} only host break share. HostCanShare is {}", kEnabled.Of(on), share);
}

void OnRemoteControl(const UserAction& user) {
  const ControlbarManager::Scope scope(__func__);
  const bool open = user.IsOn();
  const bool chosen = user.event.valueText != nullptr && user.event.valueText[0] != '\0';
  Notifier::GetInstance()->Send<VELLOMAR_NOTIFY_remoteControl>(open);
  Info("Controlbar {} remote control.", kOpen.Of(open));
  if (chosen) {
    OnRemoteControlGrant(user);
  }
}

void OnRemoteControlGrant(const UserAction& user) {
  const ControlbarManager::Scope scope(__func__);
  if (!user.HasTag(__func__)) {
    return;
  }
  const Participant* const found = user.data.FindParticipantByKey(user.event.valueText);
  if (found == nullptr) {
    return;
  }
  Notifier::GetInstance()->Send<VELLOMAR_NOTIFY_remoteControlGrant>(
      found->user_id.c_str(), found->instance_id.c_str(), found->number,
      found->display_name.c_str(), found->room.c_str(), found->avatar_key.c_str(),
      found->avatar_path.c_str(), found->flag);
}

void OnReaction(const UserAction&) {
  const ControlbarManager::Scope scope(__func__);
  const VellomarRect at = ControlbarManager::PositionOf(EventKey::Reaction);
  Notifier::GetInstance()->Send<VELLOMAR_NOTIFY_reaction>(at.x, at.y, at.width, at.height);
  Info("Controlbar reaction,pos: {},{},{},{}.", at.x, at.y, at.width, at.height);
}

void OnRecordMeetting(const UserAction& user) {
  const ControlbarManager::Scope scope(__func__);
  if (user.data.GetHostType() == kHostTypeParticipant) {
    Info("Recording...Participants skip onRecord!");
    return;
  }
  const bool open = user.IsOn();
  Notifier::GetInstance()->Send<VELLOMAR_NOTIFY_record>(open);
  Info("Controlbar {} record metting.", kOpen.Of(open));
}

// The opposite of what the host last said, whether or not the library has turned the row's check.
void OnOpenSubtitles(const UserAction& user) {
  const ControlbarManager::Scope scope(__func__);
  const bool open = !user.data.IsSubtitleOpened();
  Notifier::GetInstance()->Send<VELLOMAR_NOTIFY_subtitles>(open);
  Info("Controlbar {} subtitles.", kOpen.Of(open));
}

void OnLiveStream(const UserAction& user) {
  const ControlbarManager::Scope scope(__func__);
  const bool open = user.IsOn();
  if (user.data.HasLiveStreamPermission()) {
    Notifier::GetInstance()->Send<VELLOMAR_NOTIFY_liveStream>(open);
  } else {
    Notifier::GetInstance()->Send<VELLOMAR_NOTIFY_requestLiveStream>(open);
  }
  Info("Controlbar {} live stream.", kOpen.Of(open));
}

void OnLeaveMeetting(const UserAction& user) {
  const ControlbarManager::Scope scope(__func__);
  user.data.GetHostType();
  user.manager.ShowLeaveTip();
  Notifier::GetInstance()->Send<VELLOMAR_NOTIFY_leaveMeeting>();
  Info("Controlbar leave metting.");
}

void OnMeetingIdExpand(const UserAction& user) {
  const ControlbarManager::Scope scope(__func__);
  const bool open = user.event.status == VELLOMAR_LORIMEL::kStatusOn;
  VellomarRect at{};
  if (IsScreenShare(user.data.GetMeetingSubType())) {
    at = ControlbarManager::PositionOf(EventKey::InfoText);
    Info("share screen expand share video");
  }
  Notifier::GetInstance()->Send<VELLOMAR_NOTIFY_meetingIdExpand>(open, at);
  Info("Controlbar {} meeting id.", kOpen.Of(open));
}

void OnInterpretationSwitch(const UserAction& user) {
  const ControlbarManager::Scope scope(__func__);
  const bool enable = user.data.GetInterpretationEnable();
  Notifier::GetInstance()->Send<VELLOMAR_NOTIFY_interpretationSwitch>(enable);
  Info("OnInterpretationSwitch enable = {}", enable);
}

void OnShareAudio(const UserAction& user) {
  const ControlbarManager::Scope scope(__func__);
  const bool start = !user.data.GetShareAudioStatus();
  Notifier::GetInstance()->Send<VELLOMAR_NOTIFY_shareAudio>(start);
  Info("GetShareAudioStatus isStart = {}", start);
}

void OnOnlyThePresenterCanAnnotate(const UserAction& user) {
  const ControlbarManager::Scope scope(__func__);
  const bool checked = user.IsOn();
  Notifier::GetInstance()->Send<VELLOMAR_NOTIFY_onlyThePresenterCanAnnotate>(
      checked, user.data.GetShareOptionFromSource());
  Info("OnOnlyThePresenterCanAnnotate: {}", checked);
}

// Local only: the host is not told.
void OnControlbarSwitch(const UserAction& user) {
  const ControlbarManager::Scope scope(__func__);
  const bool expanded = !user.data.IsControllbarExpanded();
  user.data.SetControllbarSwitch(expanded);
  user.data.SetEventKeyParams(
      EventKey::ControlbarSwitch,
      user.data.GetNativeText(expanded ? text_id::kExpandedTip : text_id::kCollapsedTip), 0);
  user.manager.Push(*user.data.GetEventKeyParams(EventKey::ControlbarSwitch));
}

void OnHostControlWindow(const UserAction& user) {
  user.manager.SetJoinPermission(user.data.GetCurrentSecurityLevel());
}

void OnWidgetMoving(const UserAction&) {
  Notifier::GetInstance()->Send<VELLOMAR_NOTIFY_widgetMoving>();
}

// The host clears its own drawing only while a screen is shared.
void OnSketchButton(const UserAction& user) {
  EventKey key = user.event.key;
  if (key == EventKey::SketchClear && IsScreenShare(user.data.GetMeetingSubType())) {
    key = EventKey::SketchClearMine;
  }
  Notifier::GetInstance()->Send<VELLOMAR_NOTIFY_sketchButton>(static_cast<std::int64_t>(key));
}

}  // namespace VELLOMAR_CONTROLBAR
