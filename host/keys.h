// SPDX-License-Identifier: MIT
// The names of the widget library's keys, for people to read and write.
//
//   KeyByName("MuteAudio")  ->  1001
//   KeyName(1001)           ->  "MuteAudio"
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace vellomar_host {

std::optional<std::int32_t> KeyByName(std::string_view name);
// The number in decimal where it has no name.
std::string KeyName(std::int32_t key);

}  // namespace vellomar_host
