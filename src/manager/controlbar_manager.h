// SPDX-License-Identifier: MIT
// The one object that talks to the widget library: it creates, shows and closes the bars, brings
// commands of the host to the buttons, and turns what the user does into notifications.
//
//     ControlbarManager::GetInstance()->SetMeetingNumber("123 456 789");
//
// Operations run on the host's loop thread, callbacks of the widget library on its own thread while
// the loop thread waits or is idle. Every operation traces itself in the log; faults are logged and
// leave the bar as it was.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "common/singleton.h"
#include "data/control_bar_data_manager.h"
#include "frame/notify/notifier.h"
#include "manager/button_change.h"
#include "vellomar/lorimel.h"

namespace VELLOMAR_CONTROLBAR {

class ControlbarManager : public VELLOMAR_COMMON::Singleton<ControlbarManager> {
 public:
  ControlbarManager();

  ControlBarDataManager& Data() { return *m_data; }

  // --- Windows (windows.cpp)

  void InitEventCallback();
  bool ShowSharedControlbar(std::int64_t x, std::int64_t y, std::int64_t width,
                            std::int64_t height);
  bool CloseSharedControlbar();
  // A close that is reported from now on does not create the bar anew.
  void ForgetPending() { m_recreatePending = false; }
  VellomarRect GetMainWindowPosition();
  void SetWindowTitle(const std::optional<std::string>& title);  // nothing: a null text
  void SetRegWidgetMovingEvent(bool enable);
  void SetControlBarSimplifyEnable(bool enable);

  // Callbacks of the widget library. [UI thread]
  void OnControlbarCreated(void* handle, bool is_main, std::uint64_t id, std::int64_t x,
                           std::int64_t y, std::int64_t width, std::int64_t height);
  void OnControlbarClosed(void* handle);
  BtnParams* OnGetWindowInfo(EventKey key, int& count);
  void OnUIEvent(BtnParams& params);

  // --- Records (records.cpp)

  void UpdateUIElement(EventKey key);
  void SetTextMap(std::vector<std::uint64_t> ids, std::vector<std::string> texts);
  void SetTestContentMap(const std::vector<std::uint64_t>& keys, std::vector<std::string> texts);
  void SetItemValue(EventKey key, bool has_expend, std::string item_name, std::string item_text,
                    std::string tag, std::int32_t sta);

  // --- Tips (tips.cpp)

  void ShowButtonTip(EventKey key, const std::string& text, bool a, int b, bool c);
  void ShowChatMessageTip(const std::string& user_id, const std::string& instance_id,
                          std::int64_t number, const std::string& sender_name,
                          const std::string& message);

  // --- Buttons that follow one flag (button_commands.cpp)

  void SetParticipantsStatus(bool open);
  void SetRemoteControlEnabled(bool enable);
  void SetSubtitleEnable(bool enable);
  void SetPhoneInviteEnable(bool enable);
  void SetSipInviteEnable(bool enable);
  void SetLiveEnable(bool enable);
  void SetRecordVisible(bool visible);
  void SetReactionVisible(bool visible);
  void SetExternalMeeting(bool external);
  void SetAskHostForHelpVisible(bool visible);
  void SetAskHostForHelpEnable(bool enable);
  void SetInterpretationOriginEnable(bool enable);
  void SetInterpretationCloseOrigin(bool status);

  // --- Buttons that follow a value (button_commands.cpp)

  void SetAudioStatus(std::int64_t status);
  void SetCameraStatus(std::int64_t status);
  void SetInteraction(bool enable, bool is_show);
  void SetShareAudioEnable(bool enable);
  void SetNetworkStrength(std::int64_t sta);
  void SetShareScreenMeetingName(const std::string& name);
  void SetParticipantsCount(int count);
  void SetChatMessageCount(int count);
  void SetLiveStatus(std::int64_t status, std::int64_t count);
  void SetRecordStatus(bool recording);
  void SetShareAudioStatus(bool started);
  void SetJoinPermission(std::int64_t level);
  void SetOptimizeForVideoClipsStatus(int visible, int enabled, int checked);
  void SetKeepMyVideoOnTheScreenStatus(int visible, int enabled, int checked);
  void SetButtonEnable(EventKey key, bool enable);
  void SetButtonVisible(EventKey key, bool visible);

  // --- State of the meeting (meeting_commands.cpp)

  void SetParticipantRole(std::int64_t role);
  void SetMeetingSource(std::int64_t source);
  void SetSubtitleOpened(bool opened);
  void SetInterpretationSwitchEnable(bool enable);
  void SetHostType(std::int64_t type);
  void SwitchSubType(std::int64_t from, std::int64_t to);
  void SetMeetingSubType(std::int64_t type);
  void SetMeetingNumber(const std::string& number);
  void SetMeetingDuration(std::uint64_t duration);
  void SetMicVolume(int volume);
  void SetSketchEnable(bool enable);
  void SetSketchVisible(bool visible);
  void SetInterpretationEnable(bool enable);
  void UpdateInterpreationBtnStatus();
  void SetShareAccess(std::int64_t only_host, std::int64_t only_host_can_start_any_time,
                      std::int64_t only_the_presenter_can_annotate);
  void SetSharingStatus(bool pause, std::int64_t sta);
  void SetUnderControl(std::int64_t status, std::string user_id, std::string display_name);
  void SetRemoteControlPause(bool pause);
  void SetAudioAndPlaybackInfo(DeviceList microphones, DeviceList speakers);
  void SetCameraInfo(DeviceList cameras);
  void SetInterpretationInfo(InterpretationInfo info);
  void SetMeetingDetailInfo(MeetingDetail detail);
  void SetHostControlInfo(const VellomarHostControlInfo& info);
  void UpdateParticipants(const SharedParticipantList& participants);
  void EnterMeetingSubRoom(std::string room_name, std::string room_id);
  void LeaveMeetingSubRoom();

  // --- Sketch bar (sketch_bar.cpp)

  bool ShowSketchControlbar(bool show);
  void SelectSketchBtn(EventKey key);
  void SetSketchColor(std::int64_t color);
  void SetSketchbarBtnEnable(EventKey key, bool enable);
  void SetSketcheLoading(bool loading);
  void ClearSketchDropDown();
  void CloseSketchControlbar();

  // --- For the handlers of user actions, which trace themselves as members of this class

  class Scope : public VELLOMAR_LOG::TraceScope {
   public:
    explicit Scope(const char* operation)
        : TraceScope(operation, "VELLOMAR_CONTROLBAR::ControlbarManager::") {}
  };
  // Hands a record to the widget library.
  void Push(BtnParams& params);
  // Where a button is on the screen; zeros where it is not shown.
  static VellomarRect PositionOf(EventKey key);
  void ShowLeaveTip();

 private:
  // The record of a key; null, with a log line, where there is none.
  BtnParams* Record(EventKey key);
  void Change(const ButtonChange& change);  // without showing it
  void Apply(const ButtonChange& change);   // and shows it
  // A whole operation that does no more than log its flag and change a button.
  void FollowFlag(const char* operation, VELLOMAR_LOG::FormatString<bool&> log, bool flag,
                  const ButtonChange& change);
  void RefreshShareNew();
  // Others see this user's screen, shared or under their control.
  bool IsScreenSeen() const { return m_isSharing || m_data->IsUnderControl(); }
  bool IsPaused() const {
    return m_isSharingPaused || (m_isRemoteControlPaused && m_data->IsUnderControl());
  }
  ButtonChange PauseIndicator() const;
  ButtonChange SharingIndicator() const;
  void RecreateControlbar();
  bool IsSketchLoading() const;
  void RefreshLeaveButton();
  void RefreshParticipants();
  void RefreshInfoText();
  void RefreshSubRoom(std::string name);
  static void LogDevices(const DeviceList& list);
  void SetVideoOption(EventKey key, int visible, int enabled, int checked);
  void SetDeviceStatus(EventKey key, std::uint64_t text_id, std::int64_t status,
                       VELLOMAR_LOG::FormatString<const char*&> log);
  void OnItemValueChanged(const BtnParams& params);

  void* m_handleControlbar = nullptr;
  std::unique_ptr<ControlBarDataManager> m_data;
  bool m_key1077Enabled = false;
  VellomarRect displayRect{};
  bool m_recreatePending = false;
  bool m_isAnnotateHidden = false;  // while the status word is kStatusLoading instead
  std::uint64_t m_meetingDuration = 0;
  bool m_simplify = false;
  bool m_isSharing = false;
  bool m_isSharingPaused = false;  // never without sharing
  bool m_isRemoteControlPaused = false;
};

}  // namespace VELLOMAR_CONTROLBAR
