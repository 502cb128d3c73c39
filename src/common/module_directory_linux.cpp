// SPDX-License-Identifier: MIT
#include <dlfcn.h>

#include <string_view>

#include "common/module_directory.h"

namespace VELLOMAR_COMMON {

std::string ModuleDirectory() {
  Dl_info module{};
  // Any address inside the library identifies it.
  if (dladdr(reinterpret_cast<const void*>(&ModuleDirectory), &module) == 0 ||
      module.dli_fname == nullptr) {
    return {};
  }
  const std::string_view path(module.dli_fname);
  return std::string(path.substr(0, path.rfind('/') + 1));
}

}  // namespace VELLOMAR_COMMON
