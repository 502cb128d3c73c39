// SPDX-License-Identifier: MIT
// A dynamic library, loaded as long as the object lives.
//
//   SharedLibrary library("lib/libvellomar-controlbar.so");
//   auto* start = library.Resolve<bool()>("ExportedStart");
//
// There is one source file for each platform; the build chooses it.
#pragma once

#include <filesystem>

namespace vellomar_host {

class SharedLibrary {
 public:
  // Throws HostError when the file cannot be loaded.
  explicit SharedLibrary(const std::filesystem::path& file);
  ~SharedLibrary();
  SharedLibrary(const SharedLibrary&) = delete;
  SharedLibrary& operator=(const SharedLibrary&) = delete;
  SharedLibrary(SharedLibrary&&) = delete;
  SharedLibrary& operator=(SharedLibrary&&) = delete;

  // The exported function, or null.
  template <typename Function>
  Function* Find(const char* name) const {
    return reinterpret_cast<Function*>(Address(name));
  }

  // The exported function. Throws HostError where there is none of the name.
  template <typename Function>
  Function* Resolve(const char* name) const {
    auto* function = Find<Function>(name);
    if (function == nullptr) {
      ThrowMissing(name);
    }
    return function;
  }

 private:
  void* Address(const char* name) const;
  [[noreturn]] void ThrowMissing(const char* name) const;

  std::filesystem::path file_;
  void* handle_;
};

}  // namespace vellomar_host
