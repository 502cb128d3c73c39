// SPDX-License-Identifier: MIT
#include "frame/log/trace_scope.h"

#include <algorithm>
#include <chrono>
#include <ratio>
#include <string_view>

namespace VELLOMAR_LOG {
namespace {

// Joined without a format string: most of what the plug-in logs are these lines, and parsing the
// format would be half of their cost.
template <typename... Parts>
void WriteJoined(const char* module, Parts... parts) {
  fmt::memory_buffer line;
  line.resize((parts.size() + ... + 1));
  char* end = line.data();
  ((end = std::copy(parts.begin(), parts.end(), end)), ...);
  *end = '\0';
  LogInstance::GetInstance()->Write(module, VELLOMAR_LOG_INFO, line.data());
}

}  // namespace

std::uint64_t NowMilliseconds() {
  using Ticks = std::chrono::duration<std::int64_t, std::ratio<1, 10'000'000>>;
  const auto now = std::chrono::system_clock::now().time_since_epoch();
  return static_cast<std::uint64_t>(std::chrono::duration_cast<Ticks>(now).count()) / 10'000;
}

TraceScope::TraceScope(std::string_view function, std::string_view qualifier, const char* module)
    : m_function(function), m_qualifier(qualifier), m_module(module), m_start(NowMilliseconds()) {
  WriteJoined(m_module, std::string_view("entry "), m_qualifier, m_function);
}

TraceScope::~TraceScope() {
  const fmt::format_int cost(NowMilliseconds() - m_start);
  WriteJoined(m_module, std::string_view("exit "), m_qualifier, m_function,
              std::string_view(", cost : "), std::string_view(cost.data(), cost.size()));
}

}  // namespace VELLOMAR_LOG
