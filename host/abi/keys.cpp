// SPDX-License-Identifier: MIT
#include "host/abi/keys.h"

#include <algorithm>
#include <array>

namespace vellomar_host {
namespace {

constexpr std::array kKeys = {
#define VELLOMAR_KEY(number, name, meaning) KeyRow{number, #name, meaning},
#include "vellomar/event_key_table.def"
};

}  // namespace

std::span<const KeyRow> Keys() {
  return kKeys;
}

std::optional<std::int32_t> KeyByName(std::string_view name) {
  const auto* const row = std::find_if(kKeys.begin(), kKeys.end(),
                                       [name](const KeyRow& entry) { return entry.name == name; });
  if (row == kKeys.end()) {
    return std::nullopt;
  }
  return row->key;
}

std::string KeyName(std::int32_t key) {
  const auto* const row = std::find_if(kKeys.begin(), kKeys.end(),
                                       [key](const KeyRow& entry) { return entry.key == key; });
  return row != kKeys.end() ? std::string(row->name) : std::to_string(key);
}

}  // namespace vellomar_host
