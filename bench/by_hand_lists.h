// SPDX-License-Identifier: MIT
// The baseline's work on the lists of the meeting.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "vellomar/controlbar.h"
#include "vellomar/lorimel.h"

// The prefixes that operations have in the log.
#define BY_HAND_MANAGER "VELLOMAR_CONTROLBAR::ControlbarManager::"
#define BY_HAND_DATA "VELLOMAR_CONTROLBAR::ControlBarDataManager::"

namespace by_hand {

// The record of a button.
VELLOMAR_LORIMEL::BtnParams& Button(VELLOMAR_LORIMEL::EventKey key);

void InitTextMapping(std::vector<std::uint64_t> ids, std::vector<std::string> texts);

// The participants of one update, their texts in one block.
struct Snapshot {
  struct Item {
    std::string_view user_id, instance_id, name, room, avatar_key, avatar_path;
    std::int64_t number;
    bool flag;
  };
  explicit Snapshot(const VellomarParticipants& record);

  std::string texts;
  std::vector<Item> items;
};
void UpdateParticipants(const Snapshot& snapshot);

}  // namespace by_hand
