// SPDX-License-Identifier: MIT
#include "frame/log/guard.h"

#include <array>

#include "frame/log/log.h"

namespace VELLOMAR_LOG {

void LogEscape(const char* entry, const char* reason) noexcept {
  try {
    std::array<char, 256> line{};  // a longer reason is cut
    fmt::format_to_n(line.data(), line.size() - 1, "[Controlbar] {} failed: {}", entry, reason);
    // Not through LogInstance, which might have to be made.
    VellomarLogWrite(kModule, VELLOMAR_LOG_FAULT, line.data());
  } catch (...) {
    return;  // nobody is left to be told
  }
}

}  // namespace VELLOMAR_LOG
