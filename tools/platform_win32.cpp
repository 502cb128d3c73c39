// SPDX-License-Identifier: MIT
// Windows: a program always has a desktop.
#define WIN32_LEAN_AND_MEAN
#include <windows.h>

#include <string>
#include <system_error>

#include "tools/platform.h"

namespace vellomar_tools {

std::filesystem::path ExecutableFolder() {
  std::wstring name(MAX_PATH, L'\0');
  for (;;) {
    const DWORD length = GetModuleFileNameW(nullptr, name.data(), static_cast<DWORD>(name.size()));
    if (length == 0) {
      throw std::filesystem::filesystem_error(
          "cannot find the program's folder",
          std::error_code(static_cast<int>(GetLastError()), std::system_category()));
    }
    if (length < name.size()) {
      name.resize(length);
      return std::filesystem::path(name).parent_path();
    }
    name.resize(name.size() * 2);
  }
}

bool HasDisplay() {
  return true;
}

}  // namespace vellomar_tools
