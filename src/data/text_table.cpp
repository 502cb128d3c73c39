// SPDX-License-Identifier: MIT
#include "data/text_table.h"

#include <cstddef>
#include <utility>

namespace VELLOMAR_CONTROLBAR {

void TextTable::Replace(std::vector<std::uint64_t> ids, std::vector<std::string> texts) {
  auto mapping = std::make_shared<Map>();
  for (std::size_t i = 0; i < ids.size(); ++i) {
    mapping->try_emplace(ids[i], std::move(texts[i]));  // of two texts the first stays
  }
  m_previous = std::exchange(m_texts, std::move(mapping));
}

const char* TextTable::Find(std::uint64_t id) const {
  const auto found = m_texts->find(id);
  return found != m_texts->end() ? found->second.c_str() : nullptr;
}

}  // namespace VELLOMAR_CONTROLBAR
