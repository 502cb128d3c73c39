// SPDX-License-Identifier: MIT
// The edge of the library: an exception that gets here is logged and goes no further. Host and
// widget library may be built with another compiler and cannot catch what this one throws.
//
//     bool ExportedStart() {
//       Guarded("ExportedStart", [] { ... });
//       return true;
//     }
//
// Everything that is called from outside has one: exports, what the host's loop calls back, the
// callbacks of the widget library. Inside, exceptions are ordinary. [loop thread]
#pragma once

#include <exception>
#include <utility>

namespace VELLOMAR_LOG {

// Writes one line at the fault level. Needs no memory, which may be what has run out.
void LogEscape(const char* entry, const char* reason) noexcept;

// Whether `work` came to its end. `entry` is what the log calls the way in.
template <typename Work>
bool Guarded(const char* entry, Work&& work) noexcept {
  try {
    std::forward<Work>(work)();
    return true;
  } catch (const std::exception& error) {
    LogEscape(entry, error.what());
  } catch (...) {
    LogEscape(entry, "unknown exception");
  }
  return false;
}

}  // namespace VELLOMAR_LOG
