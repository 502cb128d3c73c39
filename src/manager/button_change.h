// SPDX-License-Identifier: MIT
// What an operation does to one button besides its own log line.
//
//     Apply(Shown(EventKey::Reaction, visible));
#pragma once

#include <cstdint>

#include "data/control_bar_data_manager.h"

namespace VELLOMAR_CONTROLBAR {

struct ButtonChange {
  EventKey key;
  std::int32_t set = 0;                                    // status bits
  std::int32_t clear = 0;                                  // status bits
  std::uint64_t text_id = ControlBarDataManager::kNoText;  // the new label, if any
};

constexpr ButtonChange Bit(EventKey key, std::int32_t bit, bool on) {
  return {key, on ? bit : 0, on ? 0 : bit};
}
constexpr ButtonChange Shown(EventKey key, bool shown) {
  return Bit(key, VELLOMAR_LORIMEL::kStatusHidden, !shown);
}
constexpr ButtonChange Enabled(EventKey key, bool enabled) {
  return Bit(key, VELLOMAR_LORIMEL::kStatusDisabled, !enabled);
}
constexpr ButtonChange TurnedOn(EventKey key, bool on) {
  return Bit(key, VELLOMAR_LORIMEL::kStatusOn, on);
}

// The whole status word.
constexpr ButtonChange Whole(EventKey key, std::int32_t status,
                             std::uint64_t text_id = ControlBarDataManager::kNoText) {
  return {key, status, -1, text_id};
}
// Where the button is not offered it is hidden, not greyed, and nothing else is left of its status.
constexpr ButtonChange Offered(EventKey key, bool offered,
                               std::uint64_t text_id = ControlBarDataManager::kNoText) {
  return Whole(key, offered ? 0 : VELLOMAR_LORIMEL::kStatusHidden, text_id);
}

}  // namespace VELLOMAR_CONTROLBAR
