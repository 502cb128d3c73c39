// SPDX-License-Identifier: MIT
// A participant of the meeting, and the list of them that an update carries.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace VELLOMAR_CONTROLBAR {

// What identifies a participant of the meeting.
struct ParticipantId {
  std::string_view user_id;
  std::string_view instance_id;
  std::int64_t number = 0;
};

// A participant as the store keeps it. Rows of the participant list share it, so that their texts
// outlive a later update.
struct Participant {
  std::string key;  // ParticipantStore::KeyOf
  std::string user_id;
  std::string instance_id;
  std::int64_t number = 0;
  std::string display_name;
  std::string room;
  std::string avatar_key;
  std::string avatar_path;
  bool flag = false;
};

// The participants of one update, with all their texts in one block: a meeting of thousands is
// copied out of the host's memory with a handful of allocations.
class ParticipantList {
 public:
  struct Item {
    ParticipantId id;
    std::string_view display_name;
    std::string_view room;
    std::string_view avatar_key;
    std::string_view avatar_path;
    bool flag = false;
  };

  // The texts may go afterwards.
  explicit ParticipantList(std::vector<Item> items);
  ParticipantList(const ParticipantList&) = delete;
  ParticipantList& operator=(const ParticipantList&) = delete;

  const std::vector<Item>& Items() const { return m_items; }

 private:
  std::string m_texts;  // the items' views point into it
  std::vector<Item> m_items;
};

using SharedParticipantList = std::shared_ptr<const ParticipantList>;

}  // namespace VELLOMAR_CONTROLBAR
