// SPDX-License-Identifier: MIT
// Records, texts, lists and participants. What is told of the meeting stands in
// control_bar_data_manager_meeting.cpp.
#include "data/control_bar_data_manager.h"

#include "bridge/server_api.h"
#include "common/module_directory.h"
#include "common/text.h"
#include "data/button_defaults.h"

namespace VELLOMAR_CONTROLBAR {
namespace {

using VELLOMAR_LOG::Fault;
using VELLOMAR_LOG::Info;
using VELLOMAR_LORIMEL::kStatusHidden;
using VELLOMAR_LORIMEL::kStatusUnread;

std::int64_t AskHostForAvatar(const std::string& user_id) {
  return VELLOMAR_SERVER_API::VellomarServerApiRequester::GetInstance()->RequestParticipant(
      user_id);
}

}  // namespace

ControlBarDataManager::ControlBarDataManager()
    : m_participants(&AskHostForAvatar),
      m_lists({m_buttons, m_meeting, m_participants, m_texts,
               [this](std::uint64_t id) { return GetNativeText(id); }}) {
  const Scope scope(__func__);
}

// --- Button records

BtnParams* ControlBarDataManager::CheckedRecord(EventKey key) {
  BtnParams* const record = m_buttons.Find(key);
  if (record == nullptr) {
    Fault("[Controlbar Data] key out of range!");
  }
  return record;
}

void ControlBarDataManager::SetEventKeyParams(EventKey key, std::uint64_t text_id,
                                              std::int32_t status, std::uint64_t tip_id,
                                              bool expand, std::uint64_t /*ignored*/) {
  const Scope scope(__func__);
  if (CheckedRecord(key) == nullptr) {
    return;
  }
  const char* const text = text_id != kNoText ? GetNativeText(text_id) : nullptr;
  const char* const tip = tip_id != kNoText ? GetNativeText(tip_id) : "";
  m_buttons.Fill(key, text, status, tip, expand);
}

void ControlBarDataManager::SetEventKeyParams(EventKey key, std::int32_t status) {
  const Scope scope(__func__);
  BtnParams* const record = CheckedRecord(key);
  if (record == nullptr) {
    return;
  }
  record->key = key;
  record->status = status;
}

void ControlBarDataManager::SetEventKeyParams(EventKey key, const char* text,
                                              std::int32_t /*unread*/) {
  const Scope scope(__func__);
  BtnParams* const record = CheckedRecord(key);
  if (record == nullptr) {
    return;
  }
  record->key = key;
  if (text != nullptr) {
    m_buttons.SetLabel(key, text);
  }
}

BtnParams* ControlBarDataManager::GetEventKeyParams(EventKey key) {
  const Scope scope(__func__);
  return CheckedRecord(key);
}

std::int32_t ControlBarDataManager::GetEventKeyStatus(EventKey key) {
  const Scope scope(__func__);
  const BtnParams* const record = CheckedRecord(key);
  return record != nullptr ? record->status : -1;
}

BtnParams* ControlBarDataManager::GetAllParams(int* count) {
  const Scope scope(__func__);
  *count = ButtonStore::kKeyCount;
  return m_buttons.All();
}

void ControlBarDataManager::SetButtonContent(EventKey /*key*/, std::uint64_t text_id) {
  const Scope scope(__func__);
  m_buttons.SetLabel(EventKey::Leave, GetNativeText(text_id));
}

void ControlBarDataManager::SetButtonTooltip() {
  const Scope scope(__func__);
  BtnParams& record = m_buttons.At(EventKey::InfoText);
  record.key = EventKey::InfoText;
  record.toolTip = GetNativeText(text_id::kInfoTip);
  record.secondToolTip = GetNativeText(text_id::kInfoExpandTip);
}

void ControlBarDataManager::SetButtonSubLabelText(EventKey /*key*/, const char* text) {
  const Scope scope(__func__);
  BtnParams& record = m_buttons.At(EventKey::Chat);
  record.key = EventKey::Chat;
  record.subLabel = text;
}

void ControlBarDataManager::SetButtonIconPath(EventKey /*key*/, const char* path) {
  const Scope scope(__func__);
  Info("SetButtonIconPath {} {}", static_cast<int>(EventKey::Leave), path);
  m_buttons.At(EventKey::Leave).iconPath = path;
}

void ControlBarDataManager::SetComposedLabel(EventKey key, std::string label) {
  const Scope scope(__func__);
  if (CheckedRecord(key) != nullptr) {
    m_buttons.SetComposedLabel(key, std::move(label));
  }
}

void ControlBarDataManager::SetItem(EventKey key, bool expand, std::string name, std::string text,
                                    std::string tag, std::int32_t status) {
  const Scope scope(__func__);
  if (CheckedRecord(key) == nullptr) {
    return;
  }
  std::string extra_text = key == EventKey::MoveNew ? tag : std::string();
  m_buttons.SetItem(key, expand, std::move(name), std::move(text), std::move(tag), status);
  if (key == EventKey::MoveNew) {
    m_meeting.move_new_text = std::move(extra_text);
  }
}

void ControlBarDataManager::SetTestContent(std::map<EventKey, std::string> texts) {
  const Scope scope(__func__);
  m_buttons.SetTestContent(std::move(texts));
}

// --- Texts

bool ControlBarDataManager::InitTextMapping(std::vector<std::uint64_t> ids,
                                            std::vector<std::string> texts) {
  const Scope scope(__func__);
  if (ids.size() != texts.size()) {
    VELLOMAR_LOG::Write(VELLOMAR_LOG::kModule, VELLOMAR_LOG_REFUSED,
                        "[Controlbar] text mapping error!");
    return false;
  }
  std::string resource_path = VELLOMAR_COMMON::ModuleDirectory() + "res";
  m_texts.Replace(std::move(ids),
                  std::move(texts));  // the last that may fail before the records change
  m_resourcePath = std::move(resource_path);
  Info("Init controlbar res path len: {}", m_resourcePath.size());
  m_buttons.Reset();
  WriteDefaults();
  UpdateBtnShareNewExpandStatus();
  RegisterForAvatars();
  return true;
}

void ControlBarDataManager::WriteDefaults() {
  const bool screen_share = IsScreenShareOrBox(m_meeting.sub_type);
  for (const ButtonDefault& row : ButtonDefaults()) {
    std::int32_t status = row.status;
    if (row.key == EventKey::Record && m_meeting.role == kRoleWithoutRecording) {
      status = kStatusHidden;
    }
    if (row.key == EventKey::ControlbarSwitch && !m_meeting.chat_count_text.empty()) {
      status = kStatusUnread;
    }
    SetEventKeyParams(row.key, row.Label(screen_share), status, row.tip_id, row.expand, 0);
    if (row.key == EventKey::InfoText) {
      SetButtonTooltip();
    }
  }
}

const char* ControlBarDataManager::GetNativeText(std::uint64_t id) const {
  const Scope scope(__func__);
  if (id == kNoText) {
    // "textid" here and "textId" below: both spellings are the log's own.
    Info("Invalid textid: {}.", id);
    return nullptr;
  }
  const char* const text = m_texts.Find(id);
  if (text == nullptr) {
    Fault("Invalid textId: {}.", id);
  }
  return text;
}

// --- Rows of the drop-down windows. Those with sharing permissions say where they were opened.

BtnParams* ControlBarDataManager::FormatAudioItems(int& count) {
  const Scope scope(__func__);
  return m_lists.Audio(count);
}

BtnParams* ControlBarDataManager::FormatCameraItems(int& count) {
  const Scope scope(__func__);
  return m_lists.Cameras(count);
}

BtnParams* ControlBarDataManager::FormatHostControlItems(int& count) {
  const Scope scope(__func__);
  BtnParams* const rows = m_lists.HostControl(count);
  m_meeting.share_option = kShareOptionHostControl;
  return rows;
}

BtnParams* ControlBarDataManager::FormatSharingPermissionItems(int& count) {
  const Scope scope(__func__);
  BtnParams* const rows = m_lists.SharingPermissions(count);
  m_meeting.share_option = kShareOptionShareNew;
  return rows;
}

BtnParams* ControlBarDataManager::FormatSharingOptionItems(int& count) {
  const Scope scope(__func__);
  BtnParams* const rows = m_lists.SharingOptions(count);
  m_meeting.share_option = kShareOptionSharingOptions;
  return rows;
}

BtnParams* ControlBarDataManager::FormatMoreItems(int& count) {
  const Scope scope(__func__);
  return m_lists.More(count);
}

BtnParams* ControlBarDataManager::FormatParticipants(int& count) {
  const Scope scope(__func__);
  return m_lists.Participants(count);
}

BtnParams* ControlBarDataManager::FormatSketchPenItems(int& count) {
  const Scope scope(__func__);
  return m_lists.SketchPens(count);
}

BtnParams* ControlBarDataManager::FormatSketchClearItems(int& count) {
  const Scope scope(__func__);
  return m_lists.SketchClear(count);
}

BtnParams* ControlBarDataManager::FormatInterpretationItems(int& count) {
  const Scope scope(__func__);
  return m_lists.Interpretation(count);
}

BtnParams* ControlBarDataManager::FormatShareAudioItems(int& count) {
  const Scope scope(__func__);
  return m_lists.ShareAudio(count);
}

void ControlBarDataManager::DropClosedLists() {
  const Scope scope(__func__);
  m_lists.DropClosed();
}

// --- Participants

std::string ControlBarDataManager::MakeParticipantKey(const ParticipantId& id) {
  const Scope scope(__func__);
  return ParticipantStore::KeyOf(id);
}

void ControlBarDataManager::UpdateParticipants(const ParticipantList& participants) {
  const Scope scope(__func__);
  m_participants.Update(participants);
}

void ControlBarDataManager::RegisterForAvatars() {
  const Scope scope(__func__);
  using VELLOMAR_SERVER_API::VellomarServerApiResponser;
  if (!VellomarServerApiResponser::HasInstance()) {
    return;
  }
  VellomarServerApiResponser::GetInstance()->SetAvatarCallback(
      [this](const std::string& key, const std::string& path) { SetAvatarPath(key, path); });
}

const Participant* ControlBarDataManager::FindParticipantByKey(const std::string& key) const {
  const Scope scope(__func__);
  const Participant* const participant = m_participants.Find(key);
  if (participant == nullptr) {
    Fault("[Controlbar Data] params == nullptr!");
  }
  return participant;
}

std::string ControlBarDataManager::GetAvatarPath(const std::string& participant_key) const {
  const Scope scope(__func__);
  const Participant* const participant = m_participants.Find(participant_key);
  if (participant != nullptr) {
    return participant->avatar_path;
  }
  Fault("GetAvatarPath value not found!");
  return {};
}

void ControlBarDataManager::SetAvatarPath(const std::string& avatar_key, const std::string& path) {
  const Scope scope(__func__);
  m_participants.SetAvatarPath(avatar_key, path);
}

}  // namespace VELLOMAR_CONTROLBAR
