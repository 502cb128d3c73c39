// SPDX-License-Identifier: MIT
// The widget library's keys, for people to read and write.
//
//   KeyByName("MuteAudio")  ->  1001
//   KeyName(1001)           ->  "MuteAudio"
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace vellomar_host {

struct KeyRow {
  std::int32_t key;
  std::string_view name;
  std::string_view meaning;
};

// All of them, by number.
std::span<const KeyRow> Keys();

std::optional<std::int32_t> KeyByName(std::string_view name);
// The number in decimal where it has no name.
std::string KeyName(std::int32_t key);

}  // namespace vellomar_host
