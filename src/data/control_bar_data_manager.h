// SPDX-License-Identifier: MIT
// Everything that the bars show: the button records by key, the texts, the state of the meeting,
// the rows of the drop-down windows and the participants. One instance, owned by ControlbarManager.
//
//     data.SetMeetingNumber("123 456 789");
//     lorimel->SetEventKey(*data.GetEventKeyParams(EventKey::InfoText));
//
// Every operation traces itself in the log. All of it is [loop thread]. Pointers handed out stay
// valid until the record, list or text that they belong to changes.
#pragma once

#include <array>
#include <cstdint>
#include <list>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "data/meeting_codes.h"
#include "data/meeting_types.h"
#include "frame/log/trace_scope.h"
#include "vellomar/lorimel.h"

namespace VELLOMAR_CONTROLBAR {

using VELLOMAR_LORIMEL::BtnParams;
using VELLOMAR_LORIMEL::EventKey;

class ControlBarDataManager {
 public:
  static constexpr std::uint64_t kNoText = ~std::uint64_t{0};
  static constexpr int kKeyCount = 92;
  static constexpr char kDefaultWindowTitle[] = "Default SDK Title";

  ControlBarDataManager();
  ControlBarDataManager(const ControlBarDataManager&) = delete;
  ControlBarDataManager& operator=(const ControlBarDataManager&) = delete;

  // --- Button records (button_records.cpp). Keys of 1092 and above are refused with a log line.
  // Keys below 1000 are not, on purpose: they address a spare record that is never shown.

  // Sets all that a text map determines. The last argument is accepted and ignored.
  void SetEventKeyParams(EventKey key, std::uint64_t text_id, std::int32_t status,
                         std::uint64_t tip_id, bool expand, std::uint64_t ignored);
  void SetEventKeyParams(EventKey key, std::int32_t status);
  // A null text leaves the label. The text is not copied; the last argument is not read.
  void SetEventKeyParams(EventKey key, const char* text, std::int32_t unread);
  // Null for a key that is refused.
  BtnParams* GetEventKeyParams(EventKey key);
  std::int32_t GetEventKeyStatus(EventKey key);  // -1 for a key that is refused
  BtnParams* GetAllParams(int* count);
  // These four always change Leave, InfoText, Chat and Leave, whatever the key.
  void SetButtonContent(EventKey key, std::uint64_t text_id);
  void SetButtonTooltip();
  void SetButtonSubLabelText(EventKey key, const char* text);
  void SetButtonIconPath(EventKey key, const char* path);
  // A label that the record's own string slot owns.
  void SetComposedLabel(EventKey key, std::string label);
  // Replaces what the host names of a record, keeping copies of the texts.
  void SetItem(EventKey key, bool expand, std::string name, std::string text, std::string tag,
               std::int32_t status);
  // The texts stand in for the labels of these keys, which are in the store, until the next text
  // map: whatever else would write the label.
  void SetTestContent(std::map<EventKey, std::string> texts);
  // False for the spare record.
  bool IsShown(const BtnParams& params) const;

  // --- Texts (text_mapping.cpp)

  // False, and nothing changed, for lists of different lengths.
  bool InitTextMapping(std::vector<std::uint64_t> ids, std::vector<std::string> texts);
  const char* GetNativeText(std::uint64_t id) const;  // null for an unknown id
  const std::string& ResourcePath() const { return m_resourcePath; }

  // --- State of the meeting (meeting_state.cpp)

  void SetHostType(std::int64_t type) { Store(__func__, m_hostType, type); }
  std::int64_t GetHostType() const { return Load(__func__, m_hostType); }
  void SetMeetingSubType(std::int64_t type) { Store(__func__, m_meetingSubType, type); }
  std::int64_t GetMeetingSubType() const { return Load(__func__, m_meetingSubType); }
  void SetMeetingSource(std::int64_t source) { Store(__func__, m_meetingSource, source); }
  std::int64_t GetMeetingSource() const { return Load(__func__, m_meetingSource); }
  void SetParticipantRole(std::int64_t role) { Store(__func__, m_participantRole, role); }
  std::int64_t GetParticipantRole() const { return Load(__func__, m_participantRole); }
  std::int64_t GetShareOptionFromSource() const { return Load(__func__, m_shareOption); }
  void SetSubtitleOpened(bool opened) { Store(__func__, m_isSubtitleOpened, opened); }
  bool IsSubtitleOpened() const { return Load(__func__, m_isSubtitleOpened); }
  void SetInterpretationEnable(bool enable) { Store(__func__, m_interpretationEnable, enable); }
  bool GetInterpretationEnable() const { return Load(__func__, m_interpretationEnable); }
  void SetOnlyPresenterCanAnnotate(bool on) { Store(__func__, m_onlyPresenterCanAnnotate, on); }
  bool IsUnderControl() const { return Load(__func__, m_isUnderControl); }
  bool IsOnlyHostCanShare() const { return Load(__func__, m_onlyHostCanShare); }
  bool IsOnlyHostCanReshare() const { return Load(__func__, m_onlyHostCanReshare); }
  bool IsControllbarExpanded() const { return Load(__func__, m_isExpanded); }
  void SetRecording(bool recording) { Store(__func__, m_isRecording, recording); }
  bool IsRecording() const { return Load(__func__, m_isRecording); }

  // These log their value.
  void SetLiveStatus(bool is_start) {
    StoreLogged(__func__, m_isLiveStart, is_start, "SetLiveStatus isStart:{}");
  }
  bool GetLiveStatus() const {
    return LoadLogged(__func__, m_isLiveStart, "GetLiveStatus m_isLiveStart = {}");
  }
  void SetShareAudioStatus(bool is_start);
  bool GetShareAudioStatus() const {
    return LoadLogged(__func__, m_isShareAudioOpened,
                      "GetShareAudioStatus m_isShareAudioOpened = {}");
  }
  void SetOnlyHostCanShare(bool on) {
    StoreLogged(__func__, m_onlyHostCanShare, on, "SetOnlyHostCanShare {}");
  }
  void SetOnlyHostCanReshare(bool on) {
    StoreLogged(__func__, m_onlyHostCanReshare, on, "SetOnlyHostCanReshare {}");
  }
  void SetInterpretationSwitchEnable(bool enable) {
    StoreLogged(__func__, m_interpretationSwitchEnable, enable,
                "SetInterpretationSwitchEnable enable = {}");
  }
  bool GetInterpretationSwitchEnable() const {
    return Load(__func__, m_interpretationSwitchEnable);
  }
  void SetControllbarSwitch(bool open) {
    StoreLogged(__func__, m_isExpanded, open, "SetControllbarSwitch bOpen = {}");
  }
  void SetSketchEnabled(bool enabled) {
    StoreLogged(__func__, m_sketchEnabled, enabled, "datamanager setsketchenable {}");
  }
  bool GetSketchEnabled() const {
    return LoadLogged(__func__, m_sketchEnabled, "datamanager getsketchenabled {}");
  }
  void SetSketchVisible(bool visible) {
    StoreLogged(__func__, m_sketchVisible, visible, "datamanager setsketchvisible {}");
  }
  bool GetSketchVisible() const {
    return LoadLogged(__func__, m_sketchVisible, "datamanager getsketchvisible {}");
  }

  void UpdateHostInfo(const VellomarHostControlInfo& info);
  VellomarHostControlInfo GetHostInfo() const { return Load(__func__, m_hostInfo); }
  void SetCurrentSecurityLevel(std::int64_t level) {
    Store(__func__, m_hostInfo.selectedSecurityLevel, level);
  }
  std::int64_t GetCurrentSecurityLevel() const {
    return Load(__func__, m_hostInfo.selectedSecurityLevel);
  }
  void SetNeedMoveToLobby(bool on) { Store(__func__, m_hostInfo.needMoveToLobby, Byte(on)); }
  bool IsNeedMoveToLobby() const { return Load(__func__, m_hostInfo.needMoveToLobby) != 0; }
  void SetEntryOnMuted(bool on) { Store(__func__, m_hostInfo.entryOnMuted, Byte(on)); }
  bool IsEntryOnMuted() const { return Load(__func__, m_hostInfo.entryOnMuted) != 0; }
  // Both use the byte that says whether the setting may be used, on purpose: the host answers every
  // change with a new host info.
  void SetOpenMicBySelf(bool on) {
    Store(__func__, m_hostInfo.enableUseEnableOpenMicBySelf, Byte(on));
  }
  bool IsOpenMicBySelf() const {
    return Load(__func__, m_hostInfo.enableUseEnableOpenMicBySelf) != 0;
  }
  bool GetShowShareAccess() const { return Load(__func__, m_hostInfo.showShareAccess) != 0; }

  void UpdateAudioItems(DeviceList microphones, DeviceList speakers);
  void UpdateCameraItems(DeviceList cameras);
  std::size_t GetAudioCount() const;
  std::size_t GetPlaybackCount() const;
  std::size_t GetCameraItemCount() const;
  void SetInterpretationInfo(InterpretationInfo info);
  void SetMeetingDetailInfo(MeetingDetail detail);
  const MeetingDetail& GetMeetingDetailInfo() const;

  void SetWindowTitle(const char* title);  // null keeps the old one
  std::string GetWindowTitle() const { return Load(__func__, m_windowTitle); }
  void SetParticipantCount(std::uint32_t count);
  const char* GetParticipantCountString() const;
  void SetMeetingNumber(const std::string& number);
  std::string GetMeetingNumber() const { return Load(__func__, m_meetingNumber); }
  const char* GetMeetingNumberFormat() const;
  void SetChatMessageCount(std::int64_t count);
  std::string GetChatMessageCount() const { return Load(__func__, m_chatMessageCountText); }
  void UpdateChatMessageCount();
  void SetEnterSubRoom(std::string name, std::string id);
  void SetLeaveSubRoom();
  bool IsInSubRoom() const;
  std::string GetSubRoomName() const { return Load(__func__, m_subRoomName); }

  bool HasLiveStreamPermission() const;
  void UpdateBtnShareNewExpandStatus();
  // The labels of ShareNew and StopSharing name what is shared.
  void UpdateSubTypeLabels();
  // A plain participant in a sub-room leaves the room, everybody else the meeting.
  bool LeavesSubRoom() const;
  void UpdateLeaveButton();
  // The meeting was left: empties lists and texts, and the records that showed them. Flags and
  // codes keep their values.
  void ClearDataCache();
  // Frees the rows that ClearDataCache has kept for windows that were still closing.
  void DropClosedLists();

  // --- Rows of the drop-down windows (drop_down_lists.cpp). A list is valid until it is built
  // again or the bar has closed after ClearDataCache; null where there is no list.

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

  // Status words of the rows of the host-control list.
  std::int32_t NewParticipantMicStatus() const;
  std::int32_t MicOperateStatus() const;

  // --- Participants (participants.cpp)

  // User id, instance id and number in decimal, joined.
  static std::string MakeParticipantKey(const ParticipantId& id);
  // The meeting's participants are exactly these from now on. The host is asked for each one who is
  // new and may send the participants again from inside the question: the newest list holds.
  void UpdateParticipants(const ParticipantList& participants);
  // Avatar responses reach this store from now on, if there is a responser.
  void RegisterForAvatars();
  // Null, with a log line, for an unknown key. Valid until the participant changes.
  const Participant* FindParticipantByKey(const std::string& key) const;
  // Empty, with a log line, for an unknown key.
  std::string GetAvatarPath(const std::string& participant_key) const;
  void SetAvatarPath(const std::string& avatar_key, const std::string& path);
  std::size_t GetParticipantStoreSize() const { return m_participants.size(); }
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
  static void StoreLogged(const char* function, bool& field, bool value,
                          VELLOMAR_LOG::FormatString<bool&> log) {
    const Scope scope(function);
    VELLOMAR_LOG::Info(log, value);
    field = value;
  }
  static bool LoadLogged(const char* function, bool field, VELLOMAR_LOG::FormatString<bool&> log) {
    const Scope scope(function);
    VELLOMAR_LOG::Info(log, field);
    return field;
  }
  static std::uint8_t Byte(bool on) { return on ? 1 : 0; }

  using TextMap = std::map<std::uint64_t, std::string>;
  using SharedDevices = std::shared_ptr<const DeviceList>;

  // The rows of a window, and what their texts point into.
  struct ItemList {
    std::vector<BtnParams> rows;
    std::vector<std::shared_ptr<const void>> owners;
  };
  struct RowTemplate;
  struct ItemTexts {
    std::string name, text, tag;
  };
  using AvatarIndex = std::multimap<std::string, std::string>;
  // Whose word the avatar path is. Nobody's: the host has said that there is none.
  enum class PathSource : std::uint8_t { kList, kResponse, kNobody };
  struct ParticipantEntry {
    std::shared_ptr<const Participant> participant;
    std::string listed_path;  // the one in the host's newest list
    PathSource path_source = PathSource::kList;
    bool asked = false;                           // the host, for its avatar
    std::optional<AvatarIndex::iterator> avatar;  // none without an avatar
    std::uint64_t update = 0;                     // the last one that named it
  };
  using ParticipantMap = std::map<std::string, ParticipantEntry, std::less<>>;
  struct ParticipantChanges;

  static std::optional<std::size_t> Index(EventKey key);
  BtnParams* CheckedRecord(EventKey key);
  void WriteLabel(EventKey key, const char* text);
  void ResetRecords();
  void WriteDefaults();
  void ForgetShownValues();

  BtnParams& AddRow(ItemList& list, const RowTemplate& row) const;
  void AddDeviceRows(ItemList& list, const RowTemplate& row, const SharedDevices& devices) const;
  template <typename Rows>
  void AddRows(ItemList& list, const Rows& rows) const;
  void AddSharingRows(ItemList& list) const;
  void AddSharingPermissions(ItemList& list) const;
  ItemList NewList() const;
  // The new rows take the place of the old ones.
  static BtnParams* Finish(ItemList& kept, ItemList list, int& count);

  template <EventKey key>
  std::int32_t StatusOf() const;
  std::int32_t MoveNewStatus() const;
  std::int32_t SharingPermissionsStatus() const;
  std::int32_t OnlyHostShareStatus() const;
  std::int32_t OnlyHostReshareStatus() const;
  std::int32_t PresenterAnnotateStatus() const;
  std::int32_t ManageInterpretationStatus() const;
  std::int32_t SubtitlesStatus() const;
  std::int32_t LiveStreamStatus() const;

  void Prepare(ParticipantChanges& changes, const std::string& key,
               const ParticipantList::Item& item);
  ParticipantEntry Joining(const std::string& key, const ParticipantList::Item& item) const;
  ParticipantEntry Changed(const ParticipantEntry& old, const ParticipantList::Item& item) const;
  static bool IsSame(const ParticipantEntry& entry, const ParticipantList::Item& item);
  void LogMissingParticipants() const;
  void Take(ParticipantChanges& changes) noexcept;
  void RemoveMissingParticipants() noexcept;
  void AskForAvatars();
  void AskForAvatar(const std::string& key);

  // The record behind the last stored one: the reset runs one key further than the store.
  static constexpr std::size_t kResetRecord = kKeyCount;
  static constexpr std::size_t kSpareRecord = kKeyCount + 1;
  static constexpr std::size_t kRecordCount = kKeyCount + 2;

  std::array<BtnParams, kRecordCount> m_records{};
  std::array<std::string, kRecordCount> m_slots;
  std::map<EventKey, ItemTexts> m_itemTexts;
  std::map<EventKey, std::string> m_testContent;

  std::shared_ptr<const TextMap> m_texts = std::make_shared<TextMap>();
  // The widget library may still read the last labels until it was given all records.
  std::shared_ptr<const TextMap> m_previousTexts;
  std::map<EventKey, std::string> m_previousTestContent;
  std::string m_resourcePath;

  std::int64_t m_hostType = 0;
  std::int64_t m_meetingSubType = 0;
  std::int64_t m_meetingSource = 0;
  std::int64_t m_shareOption = kShareOptionHostControl;
  bool m_isLiveStart = false;
  bool m_sketchEnabled = false;
  bool m_sketchVisible = false;
  bool m_isUnderControl = false;
  bool m_onlyHostCanShare = false;
  bool m_onlyHostCanReshare = false;
  bool m_onlyPresenterCanAnnotate = false;
  bool m_isSubtitleOpened = false;
  bool m_interpretationEnable = false;
  bool m_isShareAudioOpened = false;
  bool m_interpretationSwitchEnable = false;
  bool m_isExpanded = false;
  bool m_isRecording = false;
  SharedDevices m_microphones = std::make_shared<DeviceList>();
  SharedDevices m_speakers = std::make_shared<DeviceList>();
  SharedDevices m_cameras = std::make_shared<DeviceList>();
  VellomarHostControlInfo m_hostInfo{};
  SharedDevices m_languages = std::make_shared<DeviceList>();
  InterpretationInfo m_interpretationFlags;  // its languages are m_languages
  MeetingDetail m_meetingDetail;
  std::string m_participantCountText;
  std::string m_windowTitle = kDefaultWindowTitle;
  std::int64_t m_participantRole = 0;
  std::string m_meetingNumber;
  std::string m_meetingNumberText;
  std::string m_remoteControllerText;
  std::string m_chatMessageCountText;
  std::string m_moveNewText;
  std::string m_subRoomName;
  std::string m_subRoomId;

  ItemList m_audioItems;
  ItemList m_cameraItems;
  ItemList m_hostControlItems;
  ItemList m_sharingPermissionItems;
  ItemList m_sharingOptionItems;
  ItemList m_moreItems;
  ItemList m_participantItems;
  ItemList m_sketchPenItems;
  ItemList m_sketchClearItems;
  ItemList m_interpretationItems;
  ItemList m_shareAudioItems;
  // The widget library may still draw a window while it is told to close.
  std::vector<ItemList> m_closedLists;
  std::string m_controllingText;

  ParticipantMap m_participants;
  AvatarIndex m_avatars;
  std::list<std::string> m_questions;  // keys of those for whom the host has still to be asked
  bool m_isAsking = false;
  std::uint64_t m_participantUpdate = 0;
  std::optional<Participant> m_remoteController;
};

}  // namespace VELLOMAR_CONTROLBAR
