// SPDX-License-Identifier: MIT
// What the user did on the bar, by key: remembers what must be remembered and tells the host.
#pragma once

#include "manager/controlbar_manager.h"

namespace VELLOMAR_CONTROLBAR {

// Words for a state in the log: on, off.
struct Words {
  const char* on;
  const char* off;
};
inline constexpr Words kOpen{"open", "close"};
inline constexpr Words kShow{"show", "hide"};
inline constexpr Words kMute{"mute", "unmute"};
inline constexpr Words kEnabled{"enabled", "disabled"};
inline constexpr Words kBool{"true", "false"};

struct UserActions {
  // Runs the handlers of the event's key, if there are any. The event is the caller's own copy: the
  // host may do anything while it is told. [UI thread of the widgets]
  static void Dispatch(ControlbarManager& manager, const BtnParams& event);

  ControlbarManager& manager;
  ControlBarDataManager& data;
  const BtnParams& event;

  bool IsOn() const { return (event.status & VELLOMAR_LORIMEL::kStatusOn) != 0; }
  // False, with a log line, for an event without a tag.
  bool HasTag(const char* handler) const;
  void SendSketchButton() const;

  void OnJoinPermissionChanged();
  void OnEnableOnlyHostShare();
  void OnEnableOnlyHostBreakShare();
  void OnRemoteControl();
  void OnRemoteControlGrant();
  void OnReaction();
  void OnRecordMeetting();
  void OnOpenSubtitles();
  void OnLiveStream();
  void OnLeaveMeetting();
  void OnMeetingIdExpand();
  void OnInterpretationSwitch();
  void OnShareAudio();
  void OnOnlyThePresenterCanAnnotate();
  void OnControlbarSwitch();
  void OnHostControlWindow();
  void OnWidgetMoving();
  void OnAnnotatePermission();

 private:
  using Scope = ControlbarManager::Scope;
};

}  // namespace VELLOMAR_CONTROLBAR
