// SPDX-License-Identifier: MIT
// The button records by key, as the widget library reads them, and the texts that belong to single
// records. [loop thread]
//
//     buttons.SetComposedLabel(EventKey::Participants, "Participants (12)");
//     lorimel->SetEventKey(buttons.At(EventKey::Participants));
//
// Keys of 1092 and above have no record. Those below 1000 have one, on purpose: a spare one that is
// never shown. Records keep their places. Texts given as pointers stay with whom they belong to;
// texts given as strings are kept until the same record gets others.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>

#include "vellomar/lorimel.h"

namespace VELLOMAR_CONTROLBAR {

using VELLOMAR_LORIMEL::BtnParams;
using VELLOMAR_LORIMEL::EventKey;

class ButtonStore {
 public:
  static constexpr int kKeyCount = VELLOMAR_LORIMEL::kLastKey - VELLOMAR_LORIMEL::kFirstKey + 1;

  ButtonStore();
  ButtonStore(const ButtonStore&) = delete;
  ButtonStore& operator=(const ButtonStore&) = delete;

  BtnParams* Find(EventKey key);                 // null for a key without a record
  BtnParams* All() { return m_records.data(); }  // kKeyCount of them, by key
  bool IsShown(const BtnParams& params) const { return &params != &m_records[kSpareRecord]; }

  // From here on the key is one that has a record.

  BtnParams& At(EventKey key) { return m_records[*Index(key)]; }
  const BtnParams& At(EventKey key) const { return m_records[*Index(key)]; }
  // All that a text map determines.
  void Fill(EventKey key, const char* text, std::int32_t status, const char* tip, bool expand);
  void SetLabel(EventKey key, const char* text);  // unless the record has test content
  // The record's own string slot keeps the label.
  void SetComposedLabel(EventKey key, std::string label);
  // Shows the composed label again, where there is one.
  void RestoreComposedLabel(EventKey key);
  // Empties the slot where it is. True where the label was in it.
  bool ForgetComposedLabel(EventKey key);
  // Replaces what the host names of a record. Changes nothing where memory runs out.
  void SetItem(EventKey key, bool expand, std::string name, std::string text, std::string tag,
               std::int32_t status);
  // The texts stand in for the labels until the next Reset, whatever else would write them.
  void SetTestContent(std::map<EventKey, std::string> texts);
  // Empties what a text map determines. The test content is kept once more, for a widget library
  // that still reads it.
  void Reset() noexcept;

 private:
  struct ItemTexts {
    std::string name, text, tag;
  };

  static std::optional<std::size_t> Index(EventKey key);

  // The record behind the last stored one: the reset runs one key further than the store.
  static constexpr std::size_t kResetRecord = kKeyCount;
  static constexpr std::size_t kSpareRecord = kKeyCount + 1;
  static constexpr std::size_t kRecordCount = kKeyCount + 2;

  std::array<BtnParams, kRecordCount> m_records{};
  std::array<std::string, kRecordCount> m_slots;
  std::map<EventKey, ItemTexts> m_itemTexts;
  std::map<EventKey, std::string> m_testContent;
  std::map<EventKey, std::string> m_previousTestContent;
};

}  // namespace VELLOMAR_CONTROLBAR
