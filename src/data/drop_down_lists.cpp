// SPDX-License-Identifier: MIT
// The rows of the drop-down windows: tables, the rules for the rows' status words, and the few rows
// that depend on lists of the meeting.
#include <algorithm>

#include "common/text.h"
#include "data/control_bar_data_manager.h"
#include "data/text_ids.h"

namespace VELLOMAR_CONTROLBAR {

struct ControlBarDataManager::RowTemplate {
  EventKey key;
  const char* object_name;                                          // null: none
  std::uint64_t text_id;                                            // kNoText: none
  std::int32_t (ControlBarDataManager::*status)() const = nullptr;  // null: 0
};

namespace {

constexpr std::int32_t kOn = VELLOMAR_LORIMEL::kStatusOn;
constexpr std::int32_t kHidden = VELLOMAR_LORIMEL::kStatusHidden;
constexpr std::int32_t kDisabled = VELLOMAR_LORIMEL::kStatusDisabled;

}  // namespace

// --- Status words

template <EventKey key>
std::int32_t ControlBarDataManager::StatusOf() const {
  return m_records[*Index(key)].status;
}

std::int32_t ControlBarDataManager::MoveNewStatus() const {
  return StatusOf<EventKey::MoveNew>() | (m_hostInfo.enableNeedMoveToLobby != 0 ? 0 : kDisabled) |
         (m_hostInfo.needMoveToLobby != 0 ? kOn : 0);
}

std::int32_t ControlBarDataManager::SharingPermissionsStatus() const {
  return m_hostInfo.showShareAccess != 0 ? 0 : kHidden;
}

std::int32_t ControlBarDataManager::OnlyHostShareStatus() const {
  if (m_hostInfo.showShareAccess == 0) return kHidden;
  return m_onlyHostCanShare ? kOn : 0;
}

std::int32_t ControlBarDataManager::OnlyHostReshareStatus() const {
  std::int32_t status = kHidden;
  if (m_hostInfo.showShareAccess != 0) status = m_onlyHostCanReshare ? kOn : 0;
  return m_onlyHostCanShare ? status | kDisabled : status;
}

std::int32_t ControlBarDataManager::PresenterAnnotateStatus() const {
  return m_onlyPresenterCanAnnotate ? kOn : 0;
}

std::int32_t ControlBarDataManager::NewParticipantMicStatus() const {
  return m_hostInfo.entryOnMuted != 0 ? kOn : 0;
}

std::int32_t ControlBarDataManager::MicOperateStatus() const {
  if (m_hostInfo.showEnableOpenMicBySelf == 0) return kHidden;
  if (m_hostInfo.enableUseEnableOpenMicBySelf == 0) return kDisabled;
  return m_hostInfo.enableOpenMicBySelf != 0 ? kOn : 0;
}

std::int32_t ControlBarDataManager::ManageInterpretationStatus() const {
  return m_hostType == kHostTypeHost && m_interpretationFlags.can_manage ? 0 : kHidden;
}

std::int32_t ControlBarDataManager::SubtitlesStatus() const {
  return m_isSubtitleOpened ? StatusOf<EventKey::Subtitles>() | kOn
                            : StatusOf<EventKey::Subtitles>() & ~kOn;
}

std::int32_t ControlBarDataManager::LiveStreamStatus() const {
  return m_isLiveStart ? StatusOf<EventKey::LiveStream>() | kOn
                       : StatusOf<EventKey::LiveStream>() & ~kOn;
}

// --- Building

// Its texts stay as long as it does.
ControlBarDataManager::ItemList ControlBarDataManager::NewList() const {
  return {{}, {m_texts}};
}

BtnParams& ControlBarDataManager::AddRow(ItemList& list, const RowTemplate& row) const {
  BtnParams& item = list.rows.emplace_back();  // zero-filled
  item.key = row.key;
  item.objectName = row.object_name;
  item.text = row.text_id != kNoText ? GetNativeText(row.text_id) : nullptr;
  item.status = row.status != nullptr ? (this->*row.status)() : 0;
  return item;
}

template <typename Rows>
void ControlBarDataManager::AddRows(ItemList& list, const Rows& rows) const {
  for (const RowTemplate& row : rows) AddRow(list, row);
}

void ControlBarDataManager::AddDeviceRows(ItemList& list, const RowTemplate& row,
                                          const SharedDevices& devices) const {
  list.owners.push_back(devices);
  for (const Device& device : devices->devices) {
    BtnParams& item = AddRow(list, row);
    item.text = device.name.c_str();
    item.valueText = device.id.c_str();
    item.status = device.id == devices->current_id ? kOn : 0;
  }
}

BtnParams* ControlBarDataManager::Finish(ItemList& kept, ItemList list, int& count) {
  kept = std::move(list);
  count = static_cast<int>(kept.rows.size());
  return kept.rows.data();
}

// --- The lists

BtnParams* ControlBarDataManager::FormatAudioItems(int& count) {
  const Scope scope(__func__);
  ItemList list = NewList();
  AddRow(list, {EventKey::GroupHeader, "Microphone", text_id::kMicrophones});
  AddDeviceRows(list, {EventKey::MicrophoneItem, "MicrophoneItem", kNoText}, m_microphones);
  AddRow(list, {EventKey::GroupHeader, "Speaker", text_id::kSpeakers});
  AddDeviceRows(list, {EventKey::Speaker, "SpeakerItem", kNoText}, m_speakers);
  AddRow(list, {EventKey::TestSpeakMic, "TestDevice", text_id::kTestDevice});
  return Finish(m_audioItems, std::move(list), count);
}

BtnParams* ControlBarDataManager::FormatCameraItems(int& count) {
  const Scope scope(__func__);
  ItemList list = NewList();
  AddRow(list, {EventKey::GroupHeader, "Camera", text_id::kCameras});
  AddDeviceRows(list, {EventKey::CameraItem, "CameraItem", kNoText}, m_cameras);
  return Finish(m_cameraItems, std::move(list), count);
}

BtnParams* ControlBarDataManager::FormatHostControlItems(int& count) {
  const Scope scope(__func__);
  using Data = ControlBarDataManager;
  static constexpr RowTemplate kMembership[] = {
      {EventKey::GroupHeader, "MembershipPermissions", text_id::kMembershipPermissions},
      {EventKey::JoinPermission, "ParticipantOption", text_id::kJoinOption1},
      {EventKey::JoinPermission, "ParticipantOption", text_id::kJoinOption2},
      {EventKey::JoinPermission, "ParticipantOption", text_id::kJoinOption3},
      {EventKey::JoinPermission, "ParticipantOption", text_id::kJoinOption4},
      {EventKey::MoveNew, "MoveNew", text_id::kMoveNew, &Data::MoveNewStatus},
      {EventKey::GroupHeader, "SharingPermissions", text_id::kSharingPermissions,
       &Data::SharingPermissionsStatus},
  };
  static constexpr RowTemplate kMicrophones[] = {
      {EventKey::GroupHeader, "MicPermissions", text_id::kMicPermissions},
      {EventKey::NewParticipantMic, "NewParticipantMic", text_id::kNewParticipantMic,
       &Data::NewParticipantMicStatus},
      {EventKey::MicOperate, "MicOperate", text_id::kMicOperate, &Data::MicOperateStatus},
      {EventKey::MuteAll, "MuteAll", text_id::kMuteAll},
      {EventKey::CancelMuteAll, "CancelMuteAll", text_id::kCancelMuteAll},
  };
  ItemList list = NewList();
  AddRows(list, kMembership);
  AddSharingRows(list);
  AddRows(list, kMicrophones);
  const auto level = static_cast<std::int32_t>(m_hostInfo.selectedSecurityLevel - 1);
  const auto move_new = std::make_shared<const std::string>(m_moveNewText);
  list.owners.push_back(move_new);
  for (BtnParams& row : list.rows) {
    if (row.key == EventKey::JoinPermission) row.groupValue = level;
    if (row.key == EventKey::MoveNew) row.extraText = move_new->c_str();
  }
  m_shareOption = kShareOptionHostControl;
  return Finish(m_hostControlItems, std::move(list), count);
}

void ControlBarDataManager::AddSharingRows(ItemList& list) const {
  using Data = ControlBarDataManager;
  static constexpr RowTemplate kRows[] = {
      {EventKey::OnlyHostShare, "OnlyHostShare", text_id::kOnlyHostShare,
       &Data::OnlyHostShareStatus},
      {EventKey::OnlyHostReshare, "OnlyHostReshare", text_id::kOnlyHostReshare,
       &Data::OnlyHostReshareStatus},
      {EventKey::OnlyThePresenterCanAnnotate, "OnlyThePresenterCanAnnotate",
       text_id::kOnlyThePresenterCanAnnotate, &Data::PresenterAnnotateStatus},
  };
  AddRows(list, kRows);
}

BtnParams* ControlBarDataManager::FormatSharingPermissionItems(int& count) {
  const Scope scope(__func__);
  ItemList list = NewList();
  AddSharingPermissions(list);
  m_shareOption = kShareOptionShareNew;
  return Finish(m_sharingPermissionItems, std::move(list), count);
}

BtnParams* ControlBarDataManager::FormatSharingOptionItems(int& count) {
  const Scope scope(__func__);
  using Data = ControlBarDataManager;
  static constexpr RowTemplate kRows[] = {
      {EventKey::GroupHeader, "SharingOptions", text_id::kSharingOptions},
      {EventKey::OptimizeForVideoClips, "OptimizeForVideoClips", text_id::kOptimizeForVideoClips,
       &Data::StatusOf<EventKey::OptimizeForVideoClips>},
      {EventKey::KeepMyVideoOnTheScreen, "KeepMyVideoOnTheScreen", text_id::kKeepMyVideoOnTheScreen,
       &Data::StatusOf<EventKey::KeepMyVideoOnTheScreen>},
      {EventKey::ShareAudio, "ShareComputerAudio", text_id::kShareAudio,
       &Data::StatusOf<EventKey::ShareAudio>},
  };
  ItemList list = NewList();
  AddRows(list, kRows);
  AddSharingPermissions(list);
  m_shareOption = kShareOptionSharingOptions;
  return Finish(m_sharingOptionItems, std::move(list), count);
}

void ControlBarDataManager::AddSharingPermissions(ItemList& list) const {
  AddRow(list, {EventKey::GroupHeader, "SharingPermissions", text_id::kSharingPermissions,
                &ControlBarDataManager::SharingPermissionsStatus});
  AddSharingRows(list);
}

BtnParams* ControlBarDataManager::FormatMoreItems(int& count) {
  const Scope scope(__func__);
  using Data = ControlBarDataManager;
  static constexpr RowTemplate kRows[] = {
      {EventKey::Subtitles, "Subtitles", text_id::kSubtitles, &Data::SubtitlesStatus},
      {EventKey::LiveStream, "LiveStream", text_id::kLiveStream, &Data::LiveStreamStatus},
      {EventKey::PhoneInvite, "PhoneInvite", text_id::kPhoneInvite,
       &Data::StatusOf<EventKey::PhoneInvite>},
      {EventKey::SipInvite, "SipInvite", text_id::kSipInvite, &Data::StatusOf<EventKey::SipInvite>},
      {EventKey::Labs, "Labs", text_id::kLabs, &Data::StatusOf<EventKey::Labs>},
      {EventKey::Settings, "Settings", text_id::kSettings, &Data::StatusOf<EventKey::Settings>},
  };
  ItemList list = NewList();
  AddRows(list, kRows);
  return Finish(m_moreItems, std::move(list), count);
}

BtnParams* ControlBarDataManager::FormatParticipants(int& count) {
  const Scope scope(__func__);
  ItemList list = NewList();
  const bool controlled = m_remoteController.has_value();
  const char* const text =
      GetNativeText(controlled ? text_id::kControlledBy : text_id::kGiveControl);
  std::string controlling_text =
      controlled ? VELLOMAR_COMMON::FillPlaceholder(text, m_remoteController->display_name)
                 : std::string(VELLOMAR_COMMON::OrEmpty(text));
  const auto caption = std::make_shared<const std::string>(controlling_text);
  list.owners.push_back(caption);
  AddRow(list, {EventKey::GroupHeader, "ControllingText", kNoText}).text = caption->c_str();
  if (controlled)
    AddRow(list, {EventKey::StopRemoteControl, "ControlButton", text_id::kStopRemoteControl});
  for (const auto& [key, entry] : m_participants) {
    const Participant& participant = *entry.participant;
    if (participant.room != m_subRoomId) continue;
    list.owners.push_back(entry.participant);
    BtnParams& row = AddRow(list, {EventKey::ParticipantRow, "ListView", kNoText});
    row.text = participant.display_name.c_str();
    row.valueText = participant.key.c_str();
    row.iconPath = participant.avatar_path.c_str();
    row.status = participant.flag ? 0 : kDisabled;
  }
  m_controllingText = std::move(controlling_text);
  return Finish(m_participantItems, std::move(list), count);
}

BtnParams* ControlBarDataManager::FormatSketchPenItems(int& count) {
  const Scope scope(__func__);
  static constexpr RowTemplate kRows[] = {
      {EventKey::SketchPen1, nullptr, text_id::kSketchPen1},
      {EventKey::SketchPen2, nullptr, text_id::kSketchPen2},
      {EventKey::SketchPen3, nullptr, text_id::kSketchPen3},
      {EventKey::SketchPen4, nullptr, text_id::kSketchPen4},
      {EventKey::SketchPen5, nullptr, text_id::kSketchPen5},
  };
  ItemList list = NewList();
  AddRows(list, kRows);
  return Finish(m_sketchPenItems, std::move(list), count);
}

BtnParams* ControlBarDataManager::FormatSketchClearItems(int& count) {
  const Scope scope(__func__);
  if (IsScreenShare(m_meetingSubType)) {
    VELLOMAR_LOG::Info("SketchClearItems SCREEN_SHARE count = 0.");
    count = 0;
    return nullptr;
  }
  static constexpr RowTemplate kRows[] = {
      {EventKey::SketchClearMine, nullptr, text_id::kSketchClearMine},
      {EventKey::SketchClearOthers, nullptr, text_id::kSketchClearOthers},
      {EventKey::SketchClearAll, nullptr, text_id::kSketchClearAll},
  };
  ItemList list = NewList();
  AddRows(list, kRows);
  return Finish(m_sketchClearItems, std::move(list), count);
}

BtnParams* ControlBarDataManager::FormatInterpretationItems(int& count) {
  const Scope scope(__func__);
  using Data = ControlBarDataManager;
  // "Splite" is how the widget library spells it.
  static constexpr RowTemplate kRows[] = {
      {EventKey::Separator, "SpliteRectangle1", kNoText},
      {EventKey::MuteOrigin, "MuteOrigin", text_id::kMuteOrigin,
       &Data::StatusOf<EventKey::MuteOrigin>},
      {EventKey::Separator, "SpliteRectangle2", kNoText, &Data::ManageInterpretationStatus},
      {EventKey::ManageInterpretation, "Manage", text_id::kManageInterpretation,
       &Data::ManageInterpretationStatus},
      {EventKey::Separator, "icon_right_outlined", kNoText, &Data::ManageInterpretationStatus},
  };
  ItemList list = NewList();
  AddRow(list, {EventKey::InterpretationItem, "Interpretation", text_id::kInterpretationCaption});
  AddDeviceRows(list, {EventKey::InterpretationItem, "InterpretationItem", kNoText}, m_languages);
  AddRows(list, kRows);
  return Finish(m_interpretationItems, std::move(list), count);
}

BtnParams* ControlBarDataManager::FormatShareAudioItems(int& count) {
  const Scope scope(__func__);
  ItemList list = NewList();
  AddRow(list, {EventKey::ShareAudio, "ShareAudio", text_id::kShareAudio,
                &ControlBarDataManager::StatusOf<EventKey::ShareAudio>});
  return Finish(m_shareAudioItems, std::move(list), count);
}

}  // namespace VELLOMAR_CONTROLBAR
