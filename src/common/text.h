// SPDX-License-Identifier: MIT
// Small helpers for the texts that the host sends.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace VELLOMAR_COMMON {

// A text of the interface, where null is read as empty.
constexpr std::string_view OrEmpty(const char* text) {
  return text != nullptr ? std::string_view(text) : std::string_view();
}

// `text` with `value` in place of its first "{{name}}", whatever the name. A text without a
// placeholder comes back as it is; without any text (null) the value stands alone.
std::string FillPlaceholder(const char* text, std::string_view value);

// The number that `digits` spells, in decimal; 0 unless it is all digits and fits.
std::uint64_t ParseNumber(std::string_view digits);

}  // namespace VELLOMAR_COMMON
