// SPDX-License-Identifier: MIT
// What the bars show, behind one door. Each operation traces itself in the log, logs what is
// refused and leaves the rest to
//
//     TextTable         the host's texts by id
//     ButtonStore       the button records by key; ButtonDefaults: what a text map makes of them
//     MeetingState      what the host has told of the meeting
//     ParticipantStore  who takes part, with avatars
//     DropDownLists     the rows of the windows, made of all of these
//
// None of the first four knows another; what concerns two of them is done here. One instance, owned
// by ControlbarManager. All of it is [loop thread]. Pointers handed out are valid until the record,
// list or text that they belong to changes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "data/button_store.h"
#include "data/drop_down_lists.h"
#include "data/meeting_state.h"
#include "data/participant_store.h"
#include "data/text_ids.h"
#include "data/text_table.h"
#include "frame/log/trace_scope.h"

namespace VELLOMAR_CONTROLBAR {

class ControlBarDataManager {
 public:
  static constexpr std::uint64_t kNoText = text_id::kNone;

  ControlBarDataManager();
  ControlBarDataManager(const ControlBarDataManager&) = delete;
  ControlBarDataManager& operator=(const ControlBarDataManager&) = delete;

  // --- Button records. Keys of 1092 and above are refused with a log line.

  // Sets all that a text map determines. The last argument is accepted and ignored.
  void SetEventKeyParams(EventKey key, std::uint64_t text_id, std::int32_t status,
                         std::uint64_t tip_id, bool expand, std::uint64_t ignored);
  void SetEventKeyParams(EventKey key, std::int32_t status);
  // A null text leaves the label. The text is not copied; the last argument is not read.
  void SetEventKeyParams(EventKey key, const char* text, std::int32_t unread);
  BtnParams* GetEventKeyParams(EventKey key);    // null for a key that is refused
  std::int32_t GetEventKeyStatus(EventKey key);  // -1 for a key that is refused
  BtnParams* GetAllParams(int* count);
  // These four always change Leave, InfoText, Chat and Leave, whatever the key.
  void SetButtonContent(EventKey key, std::uint64_t text_id);
  void SetButtonTooltip();
  void SetButtonSubLabelText(EventKey key, const char* text);
  void SetButtonIconPath(EventKey key, const char* path);
  void SetComposedLabel(EventKey key, std::string label);
  void SetItem(EventKey key, bool expand, std::string name, std::string text, std::string tag,
               std::int32_t status);
  void SetTestContent(std::map<EventKey, std::string> texts);
  bool IsShown(const BtnParams& params) const { return m_buttons.IsShown(params); }

  // --- Texts

  // False, and nothing changed, for lists of different lengths.
  bool InitTextMapping(std::vector<std::uint64_t> ids, std::vector<std::string> texts);
  const char* GetNativeText(std::uint64_t id) const;  // null for an unknown id
  const std::string& ResourcePath() const { return m_resourcePath; }

  // --- State of the meeting

  void SetHostType(std::int64_t type) { Store(__func__, m_meeting.host_type, type); }
  std::int64_t GetHostType() const { return Load(__func__, m_meeting.host_type); }
  void SetMeetingSubType(std::int64_t type) { Store(__func__, m_meeting.sub_type, type); }
  std::int64_t GetMeetingSubType() const { return Load(__func__, m_meeting.sub_type); }
  void SetMeetingSource(std::int64_t source) { Store(__func__, m_meeting.source, source); }
  std::int64_t GetMeetingSource() const { return Load(__func__, m_meeting.source); }
  void SetParticipantRole(std::int64_t role) { Store(__func__, m_meeting.role, role); }
  std::int64_t GetParticipantRole() const { return Load(__func__, m_meeting.role); }
  std::int64_t GetShareOptionFromSource() const { return Load(__func__, m_meeting.share_option); }
  void SetSubtitleOpened(bool opened) { Store(__func__, m_meeting.is_subtitle_opened, opened); }
  bool IsSubtitleOpened() const { return Load(__func__, m_meeting.is_subtitle_opened); }
  void SetInterpretationEnable(bool on) { Store(__func__, m_meeting.interpretation_enabled, on); }
  bool GetInterpretationEnable() const { return Load(__func__, m_meeting.interpretation_enabled); }
  void SetOnlyPresenterCanAnnotate(bool on) {
    Store(__func__, m_meeting.only_presenter_can_annotate, on);
  }
  bool IsUnderControl() const { return Load(__func__, m_meeting.is_under_control); }
  bool IsOnlyHostCanShare() const { return Load(__func__, m_meeting.only_host_can_share); }
  bool IsOnlyHostCanReshare() const { return Load(__func__, m_meeting.only_host_can_reshare); }
  bool IsControllbarExpanded() const { return Load(__func__, m_meeting.is_expanded); }
  void SetRecording(bool recording) { Store(__func__, m_meeting.is_recording, recording); }
  bool IsRecording() const { return Load(__func__, m_meeting.is_recording); }

  // These log their value.
  void SetLiveStatus(bool is_start);
  bool GetLiveStatus() const;
  void SetShareAudioStatus(bool is_start);
  bool GetShareAudioStatus() const;
  void SetOnlyHostCanShare(bool on);
  void SetOnlyHostCanReshare(bool on);
  void SetInterpretationSwitchEnable(bool enable);
  bool GetInterpretationSwitchEnable() const {  // this one does not
    return Load(__func__, m_meeting.interpretation_switch_enabled);
  }
  void SetControllbarSwitch(bool open);
  void SetSketchEnabled(bool enabled);
  bool GetSketchEnabled() const;
  void SetSketchVisible(bool visible);
  bool GetSketchVisible() const;

  void UpdateHostInfo(const VellomarHostControlInfo& info);
  VellomarHostControlInfo GetHostInfo() const { return Load(__func__, Host()); }
  void SetCurrentSecurityLevel(std::int64_t level) {
    Store(__func__, Host().selectedSecurityLevel, level);
  }
  std::int64_t GetCurrentSecurityLevel() const {
    return Load(__func__, Host().selectedSecurityLevel);
  }
  void SetNeedMoveToLobby(bool on) { Store(__func__, Host().needMoveToLobby, Byte(on)); }
  bool IsNeedMoveToLobby() const { return Load(__func__, Host().needMoveToLobby) != 0; }
  void SetEntryOnMuted(bool on) { Store(__func__, Host().entryOnMuted, Byte(on)); }
  bool IsEntryOnMuted() const { return Load(__func__, Host().entryOnMuted) != 0; }
  // Both use the byte that says whether the setting may be used, on purpose: the host answers every
  // change with a new host info.
  void SetOpenMicBySelf(bool on) { Store(__func__, Host().enableUseEnableOpenMicBySelf, Byte(on)); }
  bool IsOpenMicBySelf() const { return Load(__func__, Host().enableUseEnableOpenMicBySelf) != 0; }
  bool GetShowShareAccess() const { return Load(__func__, Host().showShareAccess) != 0; }

  void UpdateAudioItems(DeviceList microphones, DeviceList speakers);
  void UpdateCameraItems(DeviceList cameras);
  std::size_t GetAudioCount() const;
  std::size_t GetPlaybackCount() const;
  std::size_t GetCameraItemCount() const;
  void SetInterpretationInfo(InterpretationInfo info);
  void SetMeetingDetailInfo(MeetingDetail detail);
  const MeetingDetail& GetMeetingDetailInfo() const;

  void SetWindowTitle(const char* title);  // null keeps the old one
  std::string GetWindowTitle() const;
  void SetParticipantCount(std::uint32_t count);
  const char* GetParticipantCountString() const;
  void SetMeetingNumber(const std::string& number);
  std::string GetMeetingNumber() const { return Load(__func__, m_meeting.number); }
  const char* GetMeetingNumberFormat() const;
  void SetChatMessageCount(std::int64_t count);
  std::string GetChatMessageCount() const { return Load(__func__, m_meeting.chat_count_text); }
  void UpdateChatMessageCount();
  void SetEnterSubRoom(std::string name, std::string id);
  void SetLeaveSubRoom();
  bool IsInSubRoom() const;
  std::string GetSubRoomName() const { return Load(__func__, m_meeting.sub_room_name); }

  bool HasLiveStreamPermission() const;
  // A plain participant in a sub-room leaves the room, everybody else the meeting.
  bool LeavesSubRoom() const;
  std::int32_t NewParticipantMicStatus() const { return m_meeting.NewParticipantMicStatus(); }
  std::int32_t MicOperateStatus() const { return m_meeting.MicOperateStatus(); }
  void UpdateBtnShareNewExpandStatus();
  // The labels of ShareNew and StopSharing name what is shared.
  void UpdateSubTypeLabels();
  // Labels that a text map has taken away, or wrote in another language, where there is a value.
  void UpdateParticipantsLabel();
  void UpdateMeetingNumberLabel();
  void UpdateShareMeetingNameLabel();
  void UpdateLeaveButton();
  // The meeting was left: empties lists and texts, and the records that showed them.
  void ClearDataCache();
  // Frees the rows that ClearDataCache has kept for windows that were still closing.
  void DropClosedLists();

  // --- Rows of the drop-down windows; null where there is no list

  BtnParams* FormatAudioItems(int& count);
  BtnParams* FormatCameraItems(int& count);
  BtnParams* FormatHostControlItems(int& count);
  BtnParams* FormatSharingPermissionItems(int& count);
  BtnParams* FormatSharingOptionItems(int& count);
  BtnParams* FormatMoreItems(int& count);
  BtnParams* FormatParticipants(int& count);
  BtnParams* FormatSketchPenItems(int& count);
  BtnParams* FormatSketchClearItems(int& count);
  BtnParams* FormatInterpretationItems(int& count);
  BtnParams* FormatShareAudioItems(int& count);

  // --- Participants

  static std::string MakeParticipantKey(const ParticipantId& id);
  void UpdateParticipants(const ParticipantList& participants);
  // Avatar responses reach this store from now on, if there is a responser.
  void RegisterForAvatars();
  // Null, or empty, with a log line, for an unknown key.
  const Participant* FindParticipantByKey(const std::string& key) const;
  std::string GetAvatarPath(const std::string& participant_key) const;
  void SetAvatarPath(const std::string& avatar_key, const std::string& path);
  void SetRemoteControler(bool under_control, std::string user_id, std::string display_name);
  const char* GetRemoteControllerTextFormat() const;

 private:
  static constexpr char kQualifier[] = "VELLOMAR_CONTROLBAR::ControlBarDataManager::";
  class Scope : public VELLOMAR_LOG::TraceScope {
   public:
    explicit Scope(const char* function) : TraceScope(function, kQualifier) {}
  };

  template <typename Field, typename Value>
  static void Store(const char* function, Field& field, Value&& value) {
    const Scope scope(function);
    field = std::forward<Value>(value);
  }
  template <typename Field>
  static Field Load(const char* function, const Field& field) {
    const Scope scope(function);
    return field;
  }
  static std::uint8_t Byte(bool on) { return on ? 1 : 0; }
  VellomarHostControlInfo& Host() { return m_meeting.host_info; }
  const VellomarHostControlInfo& Host() const { return m_meeting.host_info; }

  BtnParams* CheckedRecord(EventKey key);
  void WriteDefaults();
  void ForgetShownValues();

  TextTable m_texts;
  std::string m_resourcePath;
  ButtonStore m_buttons;
  MeetingState m_meeting;
  ParticipantStore m_participants;
  DropDownLists m_lists;
};

}  // namespace VELLOMAR_CONTROLBAR
