// SPDX-License-Identifier: MIT
// The button records by key, and what a new text map makes of them.
#include <algorithm>

#include "data/control_bar_data_manager.h"
#include "data/text_ids.h"

namespace VELLOMAR_CONTROLBAR {
namespace {

using VELLOMAR_LORIMEL::kFirstKey;
constexpr std::uint64_t kNone = ControlBarDataManager::kNoText;
constexpr std::int32_t kHidden = VELLOMAR_LORIMEL::kStatusHidden;

struct Default {
  EventKey key;
  std::uint64_t text_id;
  std::uint64_t screen_share_text_id;  // in its place while a screen or a screen box is shared
  std::int32_t status;
  std::uint64_t tip_id;
  bool expand;
};

constexpr Default Row(EventKey key, std::uint64_t text_id, std::int32_t status = 0,
                      std::uint64_t tip_id = kNone, bool expand = false) {
  return {key, text_id, text_id, status, tip_id, expand};
}

constexpr Default SharingRow(EventKey key, std::uint64_t text_id,
                             std::uint64_t screen_share_text_id, bool expand) {
  return {key, text_id, screen_share_text_id, 0, kNone, expand};
}

// Every record that a text map fills, in the order in which they are written.
constexpr Default kDefaults[] = {
    Row(EventKey::MuteAudio, text_id::kMuteAudio, 0, kNone, true),
    Row(EventKey::MuteCamera, text_id::kMuteCamera, 0, kNone, true),
    Row(EventKey::HostControl, text_id::kHostControl),
    Row(EventKey::Participants, text_id::kParticipants),
    Row(EventKey::Chat, text_id::kChat),
    SharingRow(EventKey::ShareNew, text_id::kShareNew, text_id::kShareNewScreen, true),
    Row(EventKey::Record, text_id::kRecord),
    Row(EventKey::More, text_id::kMore),
    Row(EventKey::Leave, text_id::kLeave),
    Row(EventKey::Annotate, text_id::kAnnotate),
    Row(EventKey::RemoteControl, text_id::kRemoteControl),
    SharingRow(EventKey::StopSharing, text_id::kStopSharing, text_id::kStopScreenShare, false),
    Row(EventKey::Interpretation, text_id::kInterpretation),
    Row(EventKey::Reaction, text_id::kReaction),
    Row(EventKey::AudioDevices, text_id::kMicrophones),
    Row(EventKey::Speaker, text_id::kSpeakers),
    Row(EventKey::CameraDevices, text_id::kCameras),
    Row(EventKey::InfoText, kNone, 0, text_id::kInfoTip, true),
    Row(EventKey{1068}, kNone, kHidden),
    Row(EventKey::RecordIndicator, kNone, kHidden, text_id::kRecordingTip),
    Row(EventKey::StopRemoteControl, kNone, kHidden),
    Row(EventKey::SharingIndicator, kNone, kHidden),
    Row(EventKey::PauseIndicator, kNone, kHidden),
    Row(EventKey::SharingOptions, kNone, kHidden),
    Row(EventKey::LiveIndicator, text_id::kLive, kHidden),
    Row(EventKey::SketchSelect, text_id::kSketchSelect),
    Row(EventKey::SketchMouse, text_id::kSketchMouse),
    Row(EventKey::SketchPen, text_id::kSketchPen),
    Row(EventKey::SketchColor, text_id::kSketchColor),
    Row(EventKey::SketchClear, text_id::kSketchClear),
    Row(EventKey::SketchUndo, text_id::kSketchUndo),
    Row(EventKey::SketchPen1, text_id::kSketchPen1),
    Row(EventKey::SketchPen2, text_id::kSketchPen2),
    Row(EventKey::SketchPen3, text_id::kSketchPen3),
    Row(EventKey::SketchPen4, text_id::kSketchPen4),
    Row(EventKey::SketchPen5, text_id::kSketchPen5),
    Row(EventKey::SketchClearMine, text_id::kSketchClearMine),
    Row(EventKey::SketchClearOthers, text_id::kSketchClearOthers),
    Row(EventKey::SketchClearAll, text_id::kSketchClearAll),
    Row(EventKey::OnlyHostReshare, text_id::kSketchClearAll),
    Row(EventKey::OnlyHostShare, text_id::kSketchClearAll),
    Row(EventKey::ControlbarSwitch, kNone, 0, text_id::kExpandedTip),
    Row(EventKey::ExternalMeeting, text_id::kExternalMeeting, kHidden),
    Row(EventKey::SubRoomName, kNone, kHidden),
    Row(EventKey::AskHostForHelp, text_id::kAskHostForHelp),
};

}  // namespace

// The widget library knows a record by its key, so every one has it from the start.
ControlBarDataManager::ControlBarDataManager() {
  const Scope scope(__func__);
  for (std::size_t i = 0; i < kKeyCount; ++i) {
    m_records[i].key = static_cast<EventKey>(kFirstKey + static_cast<std::int32_t>(i));
  }
  m_records[*Index(EventKey::SketchColor)].groupValue =
      static_cast<std::int32_t>(EventKey::SketchColorNone);
}

std::optional<std::size_t> ControlBarDataManager::Index(EventKey key) {
  const std::int64_t index = std::int64_t{static_cast<std::int32_t>(key)} - kFirstKey;
  if (index >= kKeyCount) return std::nullopt;
  return index < 0 ? kSpareRecord : static_cast<std::size_t>(index);
}

BtnParams* ControlBarDataManager::CheckedRecord(EventKey key) {
  const std::optional<std::size_t> index = Index(key);
  if (!index) {
    VELLOMAR_LOG::Fault("[Controlbar Data] key out of range!");
    return nullptr;
  }
  return &m_records[*index];
}

// The host's test content stays, whatever else would write the label.
void ControlBarDataManager::WriteLabel(EventKey key, const char* text) {
  const auto test = m_testContent.find(key);
  m_records[*Index(key)].text = test != m_testContent.end() ? test->second.c_str() : text;
}

bool ControlBarDataManager::IsShown(const BtnParams& params) const {
  return &params != &m_records[kSpareRecord];
}

void ControlBarDataManager::SetEventKeyParams(EventKey key, std::uint64_t text_id,
                                              std::int32_t status, std::uint64_t tip_id,
                                              bool expand, std::uint64_t /*ignored*/) {
  const Scope scope(__func__);
  BtnParams* const record = CheckedRecord(key);
  if (record == nullptr) return;
  record->key = key;
  record->hasExpand = expand;
  record->status = status;
  WriteLabel(key, text_id != kNoText ? GetNativeText(text_id) : nullptr);
  record->toolTip = tip_id != kNoText ? GetNativeText(tip_id) : "";
  record->objectName = nullptr;
  record->valueText = m_slots[*Index(key)].c_str();
}

void ControlBarDataManager::SetEventKeyParams(EventKey key, std::int32_t status) {
  const Scope scope(__func__);
  BtnParams* const record = CheckedRecord(key);
  if (record == nullptr) return;
  record->key = key;
  record->status = status;
}

void ControlBarDataManager::SetEventKeyParams(EventKey key, const char* text,
                                              std::int32_t /*unread*/) {
  const Scope scope(__func__);
  BtnParams* const record = CheckedRecord(key);
  if (record == nullptr) return;
  record->key = key;
  if (text != nullptr) WriteLabel(key, text);
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
  *count = kKeyCount;
  return m_records.data();
}

void ControlBarDataManager::SetButtonContent(EventKey /*key*/, std::uint64_t text_id) {
  const Scope scope(__func__);
  BtnParams& record = m_records[*Index(EventKey::Leave)];
  record.key = EventKey::Leave;
  WriteLabel(EventKey::Leave, GetNativeText(text_id));
}

void ControlBarDataManager::SetButtonTooltip() {
  const Scope scope(__func__);
  BtnParams& record = m_records[*Index(EventKey::InfoText)];
  record.key = EventKey::InfoText;
  record.toolTip = GetNativeText(text_id::kInfoTip);
  record.secondToolTip = GetNativeText(text_id::kInfoExpandTip);
}

void ControlBarDataManager::SetButtonSubLabelText(EventKey /*key*/, const char* text) {
  const Scope scope(__func__);
  BtnParams& record = m_records[*Index(EventKey::Chat)];
  record.key = EventKey::Chat;
  record.subLabel = text;
}

void ControlBarDataManager::SetButtonIconPath(EventKey /*key*/, const char* path) {
  const Scope scope(__func__);
  VELLOMAR_LOG::Info("SetButtonIconPath {} {}", static_cast<int>(EventKey::Leave), path);
  m_records[*Index(EventKey::Leave)].iconPath = path;
}

void ControlBarDataManager::SetComposedLabel(EventKey key, std::string label) {
  const Scope scope(__func__);
  BtnParams* const record = CheckedRecord(key);
  if (record == nullptr) return;
  std::string& slot = m_slots[*Index(key)];
  slot = std::move(label);
  record->key = key;
  WriteLabel(key, slot.c_str());
  record->valueText = slot.c_str();
}

void ControlBarDataManager::SetItem(EventKey key, bool expand, std::string name, std::string text,
                                    std::string tag, std::int32_t status) {
  const Scope scope(__func__);
  BtnParams* const record = CheckedRecord(key);
  if (record == nullptr) return;
  ItemTexts& texts = m_itemTexts[IsShown(*record) ? key : EventKey::GroupHeader];
  if (key == EventKey::MoveNew) m_moveNewText = tag;  // the last that may fail
  texts = {std::move(name), std::move(text), std::move(tag)};
  record->key = key;
  record->hasExpand = expand;
  record->objectName = texts.name.c_str();
  WriteLabel(key, texts.text.c_str());
  record->valueText = texts.tag.c_str();
  record->status = status;
}

void ControlBarDataManager::SetTestContent(std::map<EventKey, std::string> texts) {
  const Scope scope(__func__);
  for (auto& [key, text] : texts) {
    const auto known = m_testContent.find(key);
    if (known != m_testContent.end()) known->second.swap(text);
  }
  m_testContent.merge(texts);
  for (const auto& [key, text] : m_testContent) WriteLabel(key, text.c_str());
}

void ControlBarDataManager::UpdateSubTypeLabels() {
  const Scope scope(__func__);
  if (m_texts->empty()) return;  // the first text map writes them
  const bool screen_share = IsScreenShareOrBox(m_meetingSubType);
  for (const Default& row : kDefaults) {
    if (row.text_id == row.screen_share_text_id) continue;
    SetEventKeyParams(row.key, GetNativeText(screen_share ? row.screen_share_text_id : row.text_id),
                      0);
  }
}

void ControlBarDataManager::ResetRecords() {
  for (std::size_t i = 0; i <= kResetRecord; ++i) {
    BtnParams& record = m_records[i];
    record.key = static_cast<EventKey>(kFirstKey + static_cast<std::int32_t>(i));
    record.hasExpand = false;
    record.objectName = nullptr;
    record.text = nullptr;
    record.status = 0;
    record.toolTip = nullptr;
  }
}

void ControlBarDataManager::WriteDefaults() {
  const bool screen_share = IsScreenShareOrBox(m_meetingSubType);
  for (const Default& row : kDefaults) {
    std::int32_t status = row.status;
    if (row.key == EventKey::Record && m_participantRole == kRoleWithoutRecording) status = kHidden;
    if (row.key == EventKey::ControlbarSwitch && !m_chatMessageCountText.empty()) {
      status = VELLOMAR_LORIMEL::kStatusUnread;
    }
    SetEventKeyParams(row.key, screen_share ? row.screen_share_text_id : row.text_id, status,
                      row.tip_id, row.expand, 0);
    if (row.key == EventKey::InfoText) SetButtonTooltip();
  }
}

}  // namespace VELLOMAR_CONTROLBAR
