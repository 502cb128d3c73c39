// SPDX-License-Identifier: MIT
#include <dlfcn.h>
#include <unistd.h>

#include "support/this_process.h"

bool IsLoaded(const std::filesystem::path& file) {
  void* library = dlopen(file.c_str(), RTLD_NOW | RTLD_NOLOAD);
  if (library == nullptr) {
    return false;
  }
  dlclose(library);  // the question counted as a user
  return true;
}

std::string ProcessName() {
  return std::to_string(getpid());
}

std::filesystem::path CopyDeep(const std::filesystem::path& file,
                               const std::filesystem::path& folder) {
  std::filesystem::create_directories(folder);
  std::filesystem::copy_file(file, folder / file.filename());
  return folder / file.filename();
}

void RemoveDeep(const std::filesystem::path& /*copy*/, const std::filesystem::path& top) {
  std::filesystem::remove_all(top);
}
