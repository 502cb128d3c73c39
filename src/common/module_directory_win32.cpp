// SPDX-License-Identifier: MIT
#define WIN32_LEAN_AND_MEAN
#include <windows.h>

#include <string>
#include <string_view>

#include "common/module_directory.h"

namespace VELLOMAR_COMMON {
namespace {

// The longest path that the system knows, with its "\\?\" and the terminator.
constexpr DWORD kLongestPath = 32'768;

// Null where the system does not tell.
HMODULE ThisModule() {
  MEMORY_BASIC_INFORMATION memory{};
  // Any address inside the library identifies it. What was loaded as a whole is one allocation, and
  // a module's handle is where it starts.
  if (VirtualQuery(reinterpret_cast<const void*>(&ModuleDirectory), &memory, sizeof memory) == 0) {
    return nullptr;
  }
  return static_cast<HMODULE>(memory.AllocationBase);
}

std::wstring FileName(HMODULE module) {
  std::wstring name(MAX_PATH, L'\0');
  for (;;) {
    const auto room = static_cast<DWORD>(name.size());
    const DWORD length = GetModuleFileNameW(module, name.data(), room);
    if (length == 0) {
      return {};
    }
    if (length < room) {
      name.resize(length);
      return name;
    }
    // A name that is cut short fills its room.
    if (room >= kLongestPath) {
      return {};
    }
    name.resize(room * 2);
  }
}

std::string Utf8(std::wstring_view text) {
  const auto length = static_cast<int>(text.size());
  const int bytes =
      WideCharToMultiByte(CP_UTF8, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
  std::string utf8(static_cast<std::size_t>(bytes), '\0');
  WideCharToMultiByte(CP_UTF8, 0, text.data(), length, utf8.data(), bytes, nullptr, nullptr);
  return utf8;
}

}  // namespace

std::string ModuleDirectory() {
  const HMODULE module = ThisModule();
  if (module == nullptr) {
    return {};
  }
  const std::wstring name = FileName(module);
  return Utf8(std::wstring_view(name).substr(0, name.find_last_of(L"\\/") + 1));
}

}  // namespace VELLOMAR_COMMON
