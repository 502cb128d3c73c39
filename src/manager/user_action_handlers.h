// SPDX-License-Identifier: MIT
// The handlers of user actions that have a rule of their own. Each traces itself as a member of
// ControlbarManager.
#pragma once

#include "manager/controlbar_manager.h"

namespace VELLOMAR_CONTROLBAR {

// Words for a state in the log.
struct Words {
  const char* on;
  const char* off;

  const char* Of(bool state) const { return state ? on : off; }
};
inline constexpr Words kOpen{"open", "close"};
inline constexpr Words kShow{"show", "hide"};
inline constexpr Words kMute{"mute", "unmute"};
inline constexpr Words kEnabled{"enabled", "disabled"};
inline constexpr Words kBool{"true", "false"};

// What a handler works on.
struct UserAction {
  ControlbarManager& manager;
  ControlBarDataManager& data;
  const BtnParams& event;

  bool IsOn() const { return (event.status & VELLOMAR_LORIMEL::kStatusOn) != 0; }
  // False, with a log line, for an event without a tag.
  bool HasTag(const char* handler) const;
};

void OnAnnotate(const UserAction& user);
void OnAnnotatePermission(const UserAction& user);
void OnMuteAll(const UserAction& user);
void OnUnmuteAll(const UserAction& user);
void OnJoinPermissionChanged(const UserAction& user);
void OnEnableOnlyHostShare(const UserAction& user);
void OnEnableOnlyHostBreakShare(const UserAction& user);
void OnRemoteControl(const UserAction& user);
void OnRemoteControlGrant(const UserAction& user);
void OnReaction(const UserAction& user);
void OnRecordMeetting(const UserAction& user);
void OnOpenSubtitles(const UserAction& user);
void OnLiveStream(const UserAction& user);
void OnLeaveMeetting(const UserAction& user);
void OnMeetingIdExpand(const UserAction& user);
void OnInterpretationSwitch(const UserAction& user);
void OnShareAudio(const UserAction& user);
void OnOnlyThePresenterCanAnnotate(const UserAction& user);
void OnControlbarSwitch(const UserAction& user);
void OnHostControlWindow(const UserAction& user);
void OnWidgetMoving(const UserAction& user);
void OnSketchButton(const UserAction& user);

}  // namespace VELLOMAR_CONTROLBAR
