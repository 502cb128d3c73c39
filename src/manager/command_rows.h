// SPDX-License-Identifier: MIT
// Commands that need no body of their own: those that turn one thing of one button, and those that
// only store a value. A command of these kinds is a constant of ControlbarManager in place of a
// member function.
//
//     static constexpr FlagCommand SetReactionVisible = ShowsButton(
//         "SetReactionVisible", "SetReactionVisible: {}", EventKey::Reaction);
#pragma once

#include <cstdint>

#include "data/control_bar_data_manager.h"
#include "frame/log/log.h"

namespace VELLOMAR_CONTROLBAR {

struct FlagCommand {
  const char* name;
  VELLOMAR_LOG::FormatString<bool&> log;
  EventKey key;
  std::int32_t bit;                                        // of the status word
  bool set_when;                                           // the flag that sets the bit
  bool whole = false;                                      // the other bits are cleared
  std::uint64_t text_id = ControlBarDataManager::kNoText;  // the label that is written anew
};

constexpr FlagCommand ShowsButton(const char* name, VELLOMAR_LOG::FormatString<bool&> log,
                                  EventKey key) {
  return {name, log, key, VELLOMAR_LORIMEL::kStatusHidden, false};
}

// The button is hidden where it is not enabled, and nothing else is left of its status.
constexpr FlagCommand OffersButton(const char* name, VELLOMAR_LOG::FormatString<bool&> log,
                                   EventKey key,
                                   std::uint64_t text_id = ControlBarDataManager::kNoText) {
  return {name, log, key, VELLOMAR_LORIMEL::kStatusHidden, false, true, text_id};
}

constexpr FlagCommand EnablesButton(const char* name, VELLOMAR_LOG::FormatString<bool&> log,
                                    EventKey key) {
  return {name, log, key, VELLOMAR_LORIMEL::kStatusDisabled, false};
}

constexpr FlagCommand TurnsOn(const char* name, VELLOMAR_LOG::FormatString<bool&> log,
                              EventKey key) {
  return {name, log, key, VELLOMAR_LORIMEL::kStatusOn, true};
}

template <typename Value>
struct StoreCommand {
  const char* name;
  VELLOMAR_LOG::FormatString<Value&> log;
  void (ControlBarDataManager::*store)(Value value);
};

}  // namespace VELLOMAR_CONTROLBAR
