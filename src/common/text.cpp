// SPDX-License-Identifier: MIT
#include "common/text.h"

#include <charconv>
#include <system_error>

namespace VELLOMAR_COMMON {

std::string FillPlaceholder(const char* text, std::string_view value) {
  if (text == nullptr) {
    return std::string(value);
  }
  std::string filled(text);
  const std::size_t open = filled.find("{{");
  if (open == std::string::npos) {
    return filled;
  }
  const std::size_t close = filled.find("}}", open + 2);
  if (close == std::string::npos) {
    return filled;
  }
  filled.replace(open, close + 2 - open, value);
  return filled;
}

std::uint64_t ParseNumber(std::string_view digits) {
  std::uint64_t number = 0;
  const char* end = digits.data() + digits.size();
  const auto [stopped, error] = std::from_chars(digits.data(), end, number);
  return error == std::errc{} && stopped == end ? number : 0;
}

}  // namespace VELLOMAR_COMMON
