// SPDX-License-Identifier: MIT
#include "data/button_store.h"

#include <utility>

namespace VELLOMAR_CONTROLBAR {

using VELLOMAR_LORIMEL::kFirstKey;

// The widget library knows a record by its key, so every one has it from the start.
ButtonStore::ButtonStore() {
  for (std::size_t i = 0; i < kKeyCount; ++i) {
    m_records[i].key = static_cast<EventKey>(kFirstKey + static_cast<std::int32_t>(i));
  }
  At(EventKey::SketchColor).groupValue = static_cast<std::int32_t>(EventKey::SketchColorNone);
}

// In 64 bits, where the lowest key overflows nothing.
std::optional<std::size_t> ButtonStore::Index(EventKey key) {
  const std::int64_t index = std::int64_t{static_cast<std::int32_t>(key)} - kFirstKey;
  if (index >= kKeyCount) {
    return std::nullopt;
  }
  return index < 0 ? kSpareRecord : static_cast<std::size_t>(index);
}

BtnParams* ButtonStore::Find(EventKey key) {
  const std::optional<std::size_t> index = Index(key);
  return index ? &m_records[*index] : nullptr;
}

void ButtonStore::Fill(EventKey key, const char* text, std::int32_t status, const char* tip,
                       bool expand) {
  BtnParams& record = At(key);
  record.key = key;
  record.hasExpand = expand;
  record.status = status;
  SetLabel(key, text);
  record.toolTip = tip;
  record.objectName = nullptr;
  record.valueText = m_slots[*Index(key)].c_str();
}

void ButtonStore::SetLabel(EventKey key, const char* text) {
  const auto test = m_testContent.find(key);
  BtnParams& record = At(key);
  record.key = key;
  record.text = test != m_testContent.end() ? test->second.c_str() : text;
}

void ButtonStore::SetComposedLabel(EventKey key, std::string label) {
  std::string& slot = m_slots[*Index(key)];
  slot = std::move(label);
  SetLabel(key, slot.c_str());
  At(key).valueText = slot.c_str();
}

void ButtonStore::RestoreComposedLabel(EventKey key) {
  const std::string& slot = m_slots[*Index(key)];
  if (slot.empty()) {
    return;
  }
  SetLabel(key, slot.c_str());
  At(key).valueText = slot.c_str();
}

bool ButtonStore::ForgetComposedLabel(EventKey key) {
  std::string& slot = m_slots[*Index(key)];
  slot.clear();
  return At(key).text == slot.c_str();
}

void ButtonStore::SetItem(EventKey key, bool expand, std::string name, std::string text,
                          std::string tag, std::int32_t status) {
  BtnParams& record = At(key);
  ItemTexts& texts = m_itemTexts[IsShown(record) ? key : EventKey::GroupHeader];
  texts = {std::move(name), std::move(text), std::move(tag)};
  record.hasExpand = expand;
  record.objectName = texts.name.c_str();
  SetLabel(key, texts.text.c_str());
  record.valueText = texts.tag.c_str();
  record.status = status;
}

void ButtonStore::SetTestContent(std::map<EventKey, std::string> texts) {
  for (auto& [key, text] : texts) {
    const auto known = m_testContent.find(key);
    if (known != m_testContent.end()) {
      known->second.swap(text);
    }
  }
  m_testContent.merge(texts);
  for (const auto& [key, text] : m_testContent) {
    SetLabel(key, text.c_str());
  }
}

void ButtonStore::Reset() noexcept {
  m_previousTestContent = std::exchange(m_testContent, {});
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

}  // namespace VELLOMAR_CONTROLBAR
