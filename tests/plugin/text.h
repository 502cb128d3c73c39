// SPDX-License-Identifier: MIT
// Values and button records as the streams write them.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "vellomar/lorimel.h"

namespace streams {

// A text as one word: bare where it reads as one, in quotation marks otherwise; "null" for none.
std::string Quoted(std::string_view text);
std::string Quoted(const char* text);

// The fields of a record but for the key, in the record's order.
inline constexpr std::array kFieldNames = {"expand", "name", "text", "reserved", "value", "status",
                                           "tip",    "tip2", "icon", "sublabel", "extra", "group"};
using Fields = std::array<std::string, kFieldNames.size()>;
Fields FieldsOf(const VELLOMAR_LORIMEL::BtnParams& record);

// " status=32 text=Audio": what is different in `now`.
std::string Changes(const Fields& before, const Fields& now);

}  // namespace streams
