// SPDX-License-Identifier: MIT
#define WIN32_LEAN_AND_MEAN
#include <windows.h>

#include "support/this_process.h"

namespace {

// In this form a path may be longer than 260 letters, which the standard library's may not.
std::wstring Extended(const std::filesystem::path& path) {
  return L"\\\\?\\" + std::filesystem::absolute(path).make_preferred().native();
}

}  // namespace

bool IsLoaded(const std::filesystem::path& file) {
  return GetModuleHandleW(file.filename().c_str()) != nullptr;
}

std::string ProcessName() {
  return std::to_string(GetCurrentProcessId());
}

std::filesystem::path CopyDeep(const std::filesystem::path& file,
                               const std::filesystem::path& folder) {
  std::filesystem::path made;
  for (const auto& part : folder) {
    made /= part;
    CreateDirectoryW(Extended(made).c_str(), nullptr);  // fails for those that are there
  }
  auto copy = folder / file.filename();
  CopyFileW(Extended(file).c_str(), Extended(copy).c_str(), FALSE);
  return copy;
}

void RemoveDeep(const std::filesystem::path& copy, const std::filesystem::path& top) {
  DeleteFileW(Extended(copy).c_str());
  for (auto folder = copy.parent_path(); folder != top.parent_path();
       folder = folder.parent_path()) {
    RemoveDirectoryW(Extended(folder).c_str());
  }
}
