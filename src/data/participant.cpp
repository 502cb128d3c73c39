// SPDX-License-Identifier: MIT
#include "data/participant.h"

#include <cstddef>
#include <utility>

namespace VELLOMAR_CONTROLBAR {
namespace {

template <typename Visit>
void ForEachText(std::vector<ParticipantList::Item>& items, Visit visit) {
  for (ParticipantList::Item& item : items) {
    for (std::string_view* text : {&item.id.user_id, &item.id.instance_id, &item.display_name,
                                   &item.room, &item.avatar_key, &item.avatar_path}) {
      visit(*text);
    }
  }
}

}  // namespace

ParticipantList::ParticipantList(std::vector<Item> items) : m_items(std::move(items)) {
  std::size_t total = 0;
  ForEachText(m_items, [&total](std::string_view text) { total += text.size(); });
  m_texts.reserve(total);  // the views stay valid while the texts are appended
  ForEachText(m_items, [this](std::string_view& text) {
    const std::size_t start = m_texts.size();
    m_texts.append(text);
    text = std::string_view(m_texts).substr(start);
  });
}

}  // namespace VELLOMAR_CONTROLBAR
