// SPDX-License-Identifier: MIT
#define WIN32_LEAN_AND_MEAN
#include <windows.h>

#include "support/this_process.h"

bool IsLoaded(const std::filesystem::path& file) {
  return GetModuleHandleW(file.filename().c_str()) != nullptr;
}

std::string ProcessName() {
  return std::to_string(GetCurrentProcessId());
}
