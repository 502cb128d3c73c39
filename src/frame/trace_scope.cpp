// SPDX-License-Identifier: MIT
#include "frame/trace_scope.h"

#include <chrono>
#include <ratio>

namespace VELLOMAR_LOG {

std::uint64_t NowMilliseconds() {
  using Ticks = std::chrono::duration<std::int64_t, std::ratio<1, 10'000'000>>;
  const auto now = std::chrono::system_clock::now().time_since_epoch();
  return static_cast<std::uint64_t>(std::chrono::duration_cast<Ticks>(now).count()) / 10'000;
}

TraceScope::TraceScope(const char* function, const char* qualifier, const char* module)
    : function_(function), qualifier_(qualifier), module_(module), start_(NowMilliseconds()) {
  Write(module_, VELLOMAR_LOG_INFO, "entry {}{}", qualifier_, function_);
}

TraceScope::~TraceScope() {
  const std::uint64_t cost = NowMilliseconds() - start_;
  Write(module_, VELLOMAR_LOG_INFO, "exit {}{}, cost : {}", qualifier_, function_, cost);
}

}  // namespace VELLOMAR_LOG
