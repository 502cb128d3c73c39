// SPDX-License-Identifier: MIT
// The way of every record to the widget library: changed in the data, then pushed. And the commands
// that write records of any key.
#include <algorithm>
#include <map>
#include <utility>

#include "manager/controlbar_manager.h"

namespace VELLOMAR_CONTROLBAR {

using VELLOMAR_LORIMEL::Lorimel;

namespace {

// A key that is given with 64 bits and needs more than 32 is as unknown as the last one.
EventKey WholeKey(std::uint64_t slot) {
  const auto key = static_cast<std::int64_t>(slot);
  return std::in_range<std::int32_t>(key) ? static_cast<EventKey>(key)
                                          : static_cast<EventKey>(INT32_MAX);
}

}  // namespace

BtnParams* ControlbarManager::Record(EventKey key) {
  BtnParams* const params = m_data->GetEventKeyParams(key);
  if (params == nullptr) {
    VELLOMAR_LOG::Fault("[Controlbar Data] params == nullptr!");
  }
  return params;
}

void ControlbarManager::Push(BtnParams& params) {
  if (m_data->IsShown(params)) {
    Lorimel::GetInstance()->SetEventKey(params);
  }
}

void ControlbarManager::UpdateUIElement(EventKey key) {
  const Scope scope(__func__);
  VELLOMAR_LOG::Info("update lorimel ui: {}", static_cast<int>(key));
  BtnParams* const params = m_data->GetEventKeyParams(key);
  if (params == nullptr) {
    VELLOMAR_LOG::Fault("params is nullptr!");
    return;
  }
  Push(*params);
}

void ControlbarManager::Change(const ButtonChange& change) {
  const std::int32_t status = m_data->GetEventKeyStatus(change.key);
  m_data->SetEventKeyParams(change.key, (status & ~change.clear) | change.set);
  if (change.text_id == ControlBarDataManager::kNoText) {
    return;
  }
  m_data->SetEventKeyParams(change.key, m_data->GetNativeText(change.text_id), 0);
}

void ControlbarManager::Apply(const ButtonChange& change) {
  Change(change);
  UpdateUIElement(change.key);
}

VellomarRect ControlbarManager::PositionOf(EventKey key) {
  int x = 0;
  int y = 0;
  int width = 0;
  int height = 0;
  Lorimel::GetInstance()->GetPositionByEventKey(key, x, y, width, height);
  return {x, y, width, height};
}

void ControlbarManager::SetTextMap(std::vector<std::uint64_t> ids, std::vector<std::string> texts) {
  const Scope scope(__func__);
  const bool taken = m_data->InitTextMapping(std::move(ids), std::move(texts));
  if (!taken || m_handleControlbar == nullptr) {
    return;
  }
  int count = 0;
  BtnParams* const params = m_data->GetAllParams(&count);
  std::for_each(params, params + count, [this](BtnParams& record) { Push(record); });
}

void ControlbarManager::SetTestContentMap(const std::vector<std::uint64_t>& keys,
                                          std::vector<std::string> texts) {
  const Scope scope(__func__);
  if (keys.size() != texts.size()) {
    VELLOMAR_LOG::Write(VELLOMAR_LOG::kModule, VELLOMAR_LOG_REFUSED,
                        "[Controlbar] text mapping error!");
    return;
  }
  std::map<EventKey, std::string> content;
  std::vector<BtnParams*> records;
  for (std::size_t i = 0; i < keys.size(); ++i) {
    const EventKey key = WholeKey(keys[i]);
    BtnParams* const params = Record(key);
    if (params == nullptr || !m_data->IsShown(*params)) {
      continue;
    }
    content.insert_or_assign(key, std::move(texts[i]));
    records.push_back(params);
  }
  m_data->SetTestContent(std::move(content));
  for (BtnParams* const params : records) {
    Push(*params);
  }
}

void ControlbarManager::SetItemValue(EventKey key, bool has_expend, std::string item_name,
                                     std::string item_text, std::string tag, std::int32_t sta) {
  const Scope scope(__func__);
  VELLOMAR_LOG::Info(
      "[Controlbar] Set value btnKey: {}, hasExpend: {}, itemName: {}, item text: {}, tag: {}, "
      "sta: {}.",
      static_cast<int>(key), has_expend, item_name, item_text, tag, sta);
  BtnParams* const params = Record(key);
  if (params == nullptr) {
    return;
  }
  m_data->SetItem(key, has_expend, std::move(item_name), std::move(item_text), std::move(tag), sta);
  Push(*params);
}

}  // namespace VELLOMAR_CONTROLBAR
