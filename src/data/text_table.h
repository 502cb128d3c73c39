// SPDX-License-Identifier: MIT
// The host's texts by id, as the newest text map has them. [loop thread]
//
//     texts.Replace({text_id::kChat}, {"Chat"});
//     const char* const label = texts.Find(text_id::kChat);
//
// A text lives until the text map after the next one: the widget library may read the old labels
// until it was given all records anew. Who shows texts for longer keeps the map.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace VELLOMAR_CONTROLBAR {

class TextTable {
 public:
  // Two lists of one length; of two texts with the same id the first stays. Changes nothing where
  // memory runs out.
  void Replace(std::vector<std::uint64_t> ids, std::vector<std::string> texts);

  const char* Find(std::uint64_t id) const;  // null for an unknown id
  bool IsEmpty() const { return m_texts->empty(); }
  // Today's texts live at least as long as the result.
  std::shared_ptr<const void> Keep() const { return m_texts; }

 private:
  using Map = std::map<std::uint64_t, std::string>;

  std::shared_ptr<const Map> m_texts = std::make_shared<Map>();
  std::shared_ptr<const Map> m_previous;
};

}  // namespace VELLOMAR_CONTROLBAR
