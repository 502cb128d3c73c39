// SPDX-License-Identifier: MIT
// The button records by key, and what a new text map makes of them.
#include <algorithm>

#include "data/control_bar_data_manager.h"

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

constexpr Default Row(std::int32_t key, std::uint64_t text_id, std::int32_t status = 0,
                      std::uint64_t tip_id = kNone, bool expand = false) {
  return {static_cast<EventKey>(key), text_id, text_id, status, tip_id, expand};
}

constexpr Default SharingRow(std::int32_t key, std::uint64_t text_id,
                             std::uint64_t screen_share_text_id, bool expand) {
  return {static_cast<EventKey>(key), text_id, screen_share_text_id, 0, kNone, expand};
}

// Every record that a text map fills, in the order in which they are written.
constexpr Default kDefaults[] = {
    Row(1001, 10001, 0, kNone, true),
    Row(1002, 10002, 0, kNone, true),
    Row(1004, 10003),
    Row(1003, 10004),
    Row(1007, 10005),
    SharingRow(1012, 10006, 10075, true),
    Row(1015, 10007),
    Row(1008, 10010),
    Row(1014, 10011),
    Row(1042, 10012),
    Row(1006, 10013),
    SharingRow(1013, 10014, 10074, false),
    Row(1009, 10072),
    Row(1010, 10078),
    Row(1018, 10015),
    Row(1019, 10016),
    Row(1020, 10018),
    Row(1070, kNone, 0, 10084, true),
    Row(1068, kNone, kHidden),
    Row(1069, kNone, kHidden, 10085),
    Row(1040, kNone, kHidden),
    Row(1072, kNone, kHidden),
    Row(1073, kNone, kHidden),
    Row(1075, kNone, kHidden),
    Row(1076, 10086, kHidden),
    Row(1043, 10051),
    Row(1044, 10052),
    Row(1045, 10061),
    Row(1046, 10062),
    Row(1048, 10063),
    Row(1047, 10057),
    Row(1050, 10053),
    Row(1051, 10054),
    Row(1052, 10055),
    Row(1053, 10064),
    Row(1054, 10056),
    Row(1060, 10058),
    Row(1061, 10060),
    Row(1062, 10059),
    Row(1025, 10059),
    Row(1024, 10059),
    Row(1041, kNone, 0, 10087),
    Row(1078, 10090, kHidden),
    Row(1079, kNone, kHidden),
    Row(1011, 10096),
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
  record.toolTip = GetNativeText(10084);
  record.secondToolTip = GetNativeText(10089);
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
