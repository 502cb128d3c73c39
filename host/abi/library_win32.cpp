// SPDX-License-Identifier: MIT
// Dynamic libraries on Windows.
#define WIN32_LEAN_AND_MEAN
#include <fmt/format.h>
#include <windows.h>

#include <string>
#include <system_error>

#include "host/abi/library.h"
#include "host/host_error.h"

namespace vellomar_host {
namespace {

// A path that is longer than the system takes as it is needs a prefix, and to be absolute.
std::filesystem::path Loadable(const std::filesystem::path& file) {
  auto absolute = std::filesystem::absolute(file).make_preferred();
  if (absolute.native().size() < MAX_PATH || absolute.native().starts_with(L"\\\\")) {
    return absolute;
  }
  return L"\\\\?\\" + absolute.native();
}

// The altered search path makes the system look for the library's own dependencies beside it. It is
// not for a bare file name, by which the library is found that is loaded already.
HMODULE Load(const std::filesystem::path& file) {
  if (!file.has_parent_path()) {
    return LoadLibraryW(file.c_str());
  }
  return LoadLibraryExW(Loadable(file).c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
}

}  // namespace

SharedLibrary::SharedLibrary(const std::filesystem::path& file) : file_(file), handle_(Load(file)) {
  if (handle_ != nullptr) {
    return;
  }
  const auto code = static_cast<int>(GetLastError());
  throw HostError(
      fmt::format("cannot load \"{}\": {}", file_.string(), std::system_category().message(code)));
}

SharedLibrary::~SharedLibrary() {
  FreeLibrary(static_cast<HMODULE>(handle_));
}

void* SharedLibrary::Address(const char* name) const {
  return reinterpret_cast<void*>(GetProcAddress(static_cast<HMODULE>(handle_), name));
}

void SharedLibrary::ThrowMissing(const char* name) const {
  throw HostError(fmt::format("\"{}\" does not export {}", file_.string(), name));
}

}  // namespace vellomar_host
