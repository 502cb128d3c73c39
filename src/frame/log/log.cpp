// SPDX-License-Identifier: MIT
#include "frame/log/log.h"

#include <iterator>

namespace VELLOMAR_LOG {

void LogInstance::Open(std::uint32_t kind, const char* first, const char* second) {
  CreateVellomarLogger(kind, first, second, kModule, 0, 7, 1);
}

void LogInstance::Write(const char* module, int level, fmt::string_view format,
                        fmt::format_args args) {
  fmt::memory_buffer line;
  fmt::vformat_to(std::back_inserter(line), format, args);
  line.push_back('\0');
  VellomarLogWrite(module, level, line.data());
}

void LogInstance::Write(const char* module, int level, const char* text) {
  VellomarLogWrite(module, level, text);
}

}  // namespace VELLOMAR_LOG
