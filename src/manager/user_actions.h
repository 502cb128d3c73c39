// SPDX-License-Identifier: MIT
// What the user did on the bar, by key: remembers what must be remembered and tells the host.
#pragma once

#include "manager/controlbar_manager.h"

namespace VELLOMAR_CONTROLBAR {

struct UserActions {
  // Runs the handlers of the event's key, if there are any. The record is read before the host is
  // told. [UI thread of the widgets]
  static void Dispatch(ControlbarManager& manager, const BtnParams& event);

  ControlbarManager& manager;
  ControlBarDataManager& data;
  const BtnParams& event;

  bool IsOn() const { return (event.status & VELLOMAR_LORIMEL::kStatusOn) != 0; }
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
