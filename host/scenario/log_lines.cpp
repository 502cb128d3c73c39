// SPDX-License-Identifier: MIT
// A line that only looks like a scope's, without a name or with a cost that is no number, is none.
#include "host/scenario/log_lines.h"

#include <charconv>

namespace vellomar_host {

ScopeLine ParseScopeLine(std::string_view text) {
  constexpr std::string_view kEntry = "entry ";
  constexpr std::string_view kExit = "exit ";
  constexpr std::string_view kCost = ", cost : ";
  if (text.starts_with(kEntry) && text.size() > kEntry.size()) {
    return {ScopeLine::kEntry, text.substr(kEntry.size()), -1};
  }
  const auto cost = text.rfind(kCost);
  if (!text.starts_with(kExit) || cost == std::string_view::npos || cost <= kExit.size()) {
    return {};
  }
  const std::string_view digits = text.substr(cost + kCost.size());
  std::int64_t milliseconds = 0;
  const auto [end, error] =
      std::from_chars(digits.data(), digits.data() + digits.size(), milliseconds);
  if (error != std::errc() || end != digits.data() + digits.size()) {
    return {};
  }
  return {ScopeLine::kExit, text.substr(kExit.size(), cost - kExit.size()), milliseconds};
}

}  // namespace vellomar_host
