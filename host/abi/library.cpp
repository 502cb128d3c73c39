// SPDX-License-Identifier: MIT
// Dynamic libraries where the system has dlopen.
#include "host/abi/library.h"

#include <dlfcn.h>
#include <fmt/format.h>

#include "host/host_error.h"

namespace vellomar_host {

SharedLibrary::SharedLibrary(const std::filesystem::path& file)
    : file_(file), handle_(dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL)) {
  if (handle_ != nullptr) {
    return;
  }
  const char* reason = dlerror();
  throw HostError(fmt::format("cannot load \"{}\": {}", file_.string(),
                              reason != nullptr ? reason : "unknown reason"));
}

SharedLibrary::~SharedLibrary() {
  dlclose(handle_);
}

void* SharedLibrary::Address(const char* name) const {
  return dlsym(handle_, name);
}

void SharedLibrary::ThrowMissing(const char* name) const {
  throw HostError(fmt::format("\"{}\" does not export {}", file_.string(), name));
}

}  // namespace vellomar_host
