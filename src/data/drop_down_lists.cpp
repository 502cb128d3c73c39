// SPDX-License-Identifier: MIT
// The rows of the drop-down windows: tables, the rules for the rows' status words, and the few rows
// that depend on lists of the meeting.
#include <algorithm>

#include "common/text.h"
#include "data/control_bar_data_manager.h"

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

constexpr std::uint64_t kControlledText = 10066;
constexpr std::uint64_t kNotControlledText = 10065;

}  // namespace

// --- Status words

template <std::int32_t key>
std::int32_t ControlBarDataManager::StatusOf() const {
  return m_records[*Index(static_cast<EventKey>(key))].status;
}

std::int32_t ControlBarDataManager::MoveNewStatus() const {
  return StatusOf<1023>() | (m_hostInfo.enableNeedMoveToLobby != 0 ? 0 : kDisabled) |
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
  return m_isSubtitleOpened ? StatusOf<1031>() | kOn : StatusOf<1031>() & ~kOn;
}

std::int32_t ControlBarDataManager::LiveStreamStatus() const {
  return m_isLiveStart ? StatusOf<1032>() | kOn : StatusOf<1032>() & ~kOn;
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
  AddRow(list, {EventKey::GroupHeader, "Microphone", 10015});
  AddDeviceRows(list, {EventKey::MicrophoneItem, "MicrophoneItem", kNoText}, m_microphones);
  AddRow(list, {EventKey::GroupHeader, "Speaker", 10016});
  AddDeviceRows(list, {EventKey::Speaker, "SpeakerItem", kNoText}, m_speakers);
  AddRow(list, {EventKey::TestSpeakMic, "TestDevice", 10017});
  return Finish(m_audioItems, std::move(list), count);
}

BtnParams* ControlBarDataManager::FormatCameraItems(int& count) {
  const Scope scope(__func__);
  ItemList list = NewList();
  AddRow(list, {EventKey::GroupHeader, "Camera", 10018});
  AddDeviceRows(list, {EventKey::CameraItem, "CameraItem", kNoText}, m_cameras);
  return Finish(m_cameraItems, std::move(list), count);
}

BtnParams* ControlBarDataManager::FormatHostControlItems(int& count) {
  const Scope scope(__func__);
  using Data = ControlBarDataManager;
  static constexpr RowTemplate kMembership[] = {
      {EventKey::GroupHeader, "MembershipPermissions", 10019},
      {EventKey::JoinPermission, "ParticipantOption", 10020},
      {EventKey::JoinPermission, "ParticipantOption", 10021},
      {EventKey::JoinPermission, "ParticipantOption", 10022},
      {EventKey::JoinPermission, "ParticipantOption", 10023},
      {EventKey::MoveNew, "MoveNew", 10024, &Data::MoveNewStatus},
      {EventKey::GroupHeader, "SharingPermissions", 10025, &Data::SharingPermissionsStatus},
  };
  static constexpr RowTemplate kMicrophones[] = {
      {EventKey::GroupHeader, "MicPermissions", 10029},
      {EventKey::NewParticipantMic, "NewParticipantMic", 10030, &Data::NewParticipantMicStatus},
      {EventKey::MicOperate, "MicOperate", 10031, &Data::MicOperateStatus},
      {EventKey::MuteAll, "MuteAll", 10032},
      {EventKey::CancelMuteAll, "CancelMuteAll", 10033},
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
      {EventKey::OnlyHostShare, "OnlyHostShare", 10026, &Data::OnlyHostShareStatus},
      {EventKey::OnlyHostReshare, "OnlyHostReshare", 10027, &Data::OnlyHostReshareStatus},
      {EventKey::OnlyThePresenterCanAnnotate, "OnlyThePresenterCanAnnotate", 10028,
       &Data::PresenterAnnotateStatus},
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
      {EventKey::GroupHeader, "SharingOptions", 10046},
      {EventKey::OptimizeForVideoClips, "OptimizeForVideoClips", 10047, &Data::StatusOf<1086>},
      {EventKey::KeepMyVideoOnTheScreen, "KeepMyVideoOnTheScreen", 10048, &Data::StatusOf<1087>},
      {EventKey::ShareAudio, "ShareComputerAudio", 10045, &Data::StatusOf<1037>},
  };
  ItemList list = NewList();
  AddRows(list, kRows);
  AddSharingPermissions(list);
  m_shareOption = kShareOptionSharingOptions;
  return Finish(m_sharingOptionItems, std::move(list), count);
}

void ControlBarDataManager::AddSharingPermissions(ItemList& list) const {
  AddRow(list, {EventKey::GroupHeader, "SharingPermissions", 10025,
                &ControlBarDataManager::SharingPermissionsStatus});
  AddSharingRows(list);
}

BtnParams* ControlBarDataManager::FormatMoreItems(int& count) {
  const Scope scope(__func__);
  using Data = ControlBarDataManager;
  static constexpr RowTemplate kRows[] = {
      {EventKey::Subtitles, "Subtitles", 10034, &Data::SubtitlesStatus},
      {EventKey::LiveStream, "LiveStream", 10035, &Data::LiveStreamStatus},
      {EventKey::PhoneInvite, "PhoneInvite", 10043, &Data::StatusOf<1034>},
      {EventKey::SipInvite, "SipInvite", 10044, &Data::StatusOf<1035>},
      {EventKey::Labs, "Labs", 10036, &Data::StatusOf<1033>},
      {EventKey::Settings, "Settings", 10037, &Data::StatusOf<1090>},
  };
  ItemList list = NewList();
  AddRows(list, kRows);
  return Finish(m_moreItems, std::move(list), count);
}

BtnParams* ControlBarDataManager::FormatParticipants(int& count) {
  const Scope scope(__func__);
  ItemList list = NewList();
  const bool controlled = m_remoteController.has_value();
  const char* const text = GetNativeText(controlled ? kControlledText : kNotControlledText);
  std::string controlling_text =
      controlled ? VELLOMAR_COMMON::FillPlaceholder(text, m_remoteController->display_name)
                 : std::string(text != nullptr ? text : "");
  const auto caption = std::make_shared<const std::string>(controlling_text);
  list.owners.push_back(caption);
  AddRow(list, {EventKey::GroupHeader, "ControllingText", kNoText}).text = caption->c_str();
  if (controlled) AddRow(list, {EventKey::StopRemoteControl, "ControlButton", 10068});
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
      {EventKey::SketchPen1, nullptr, 10053}, {EventKey::SketchPen2, nullptr, 10054},
      {EventKey::SketchPen3, nullptr, 10055}, {EventKey::SketchPen4, nullptr, 10064},
      {EventKey::SketchPen5, nullptr, 10056},
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
      {EventKey::SketchClearMine, nullptr, 10058},
      {EventKey::SketchClearOthers, nullptr, 10060},
      {EventKey::SketchClearAll, nullptr, 10059},
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
      {EventKey::MuteOrigin, "MuteOrigin", 10077, &Data::StatusOf<1085>},
      {EventKey::Separator, "SpliteRectangle2", kNoText, &Data::ManageInterpretationStatus},
      {EventKey::ManageInterpretation, "Manage", 10071, &Data::ManageInterpretationStatus},
      {EventKey::Separator, "icon_right_outlined", kNoText, &Data::ManageInterpretationStatus},
  };
  ItemList list = NewList();
  AddRow(list, {EventKey::InterpretationItem, "Interpretation", 10070});
  AddDeviceRows(list, {EventKey::InterpretationItem, "InterpretationItem", kNoText}, m_languages);
  AddRows(list, kRows);
  return Finish(m_interpretationItems, std::move(list), count);
}

BtnParams* ControlBarDataManager::FormatShareAudioItems(int& count) {
  const Scope scope(__func__);
  ItemList list = NewList();
  AddRow(list, {EventKey::ShareAudio, "ShareAudio", 10045, &ControlBarDataManager::StatusOf<1037>});
  return Finish(m_shareAudioItems, std::move(list), count);
}

}  // namespace VELLOMAR_CONTROLBAR
