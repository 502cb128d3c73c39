// SPDX-License-Identifier: MIT
// Windows: a program always has a desktop.
#define WIN32_LEAN_AND_MEAN
#include <windows.h>
// The order matters to the system's headers.
#include <shellapi.h>

#include <memory>
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

// What `main` is given has lost the letters that the system's code page does not have.
std::vector<std::string> Arguments(int /*argc*/, char** /*argv*/) {
  int count = 0;
  const std::unique_ptr<LPWSTR, decltype(&LocalFree)> wide(
      CommandLineToArgvW(GetCommandLineW(), &count), &LocalFree);
  std::vector<std::string> arguments;
  for (int i = count - 1; wide != nullptr && i > 0; --i) {
    const auto utf8 = std::filesystem::path(wide.get()[i]).u8string();
    arguments.emplace_back(utf8.begin(), utf8.end());
  }
  return arguments;
}

bool HasDisplay() {
  return true;
}

}  // namespace vellomar_tools
