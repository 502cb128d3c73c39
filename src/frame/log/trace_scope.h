// SPDX-License-Identifier: MIT
// The trace of a function call in the log: a line when it begins and one, with its cost in
// milliseconds, when it ends.
//
//     bool ExportedStart() {
//       const TraceScope scope("ExportedStart");
//       ...
//     }
//
// A scope allocates nothing: names are string literals, kept by address.
#pragma once

#include <cstdint>
#include <string_view>

#include "frame/log/log.h"

namespace VELLOMAR_LOG {

class TraceScope {
 public:
  // `qualifier` stands before the name, as in "VELLOMAR_CONTROLBAR::ControlbarManager::". All three
  // live as long as the program.
  explicit TraceScope(std::string_view function, std::string_view qualifier = {},
                      const char* module = kModule);
  // A failure to write ends the process: a destructor must not throw.
  ~TraceScope();

  TraceScope(const TraceScope&) = delete;
  TraceScope& operator=(const TraceScope&) = delete;

 private:
  std::string_view m_function;
  std::string_view m_qualifier;
  const char* m_module;
  std::uint64_t m_start;  // milliseconds
};

// Milliseconds of the system's clock, counted in its 100-nanosecond ticks.
std::uint64_t NowMilliseconds();

}  // namespace VELLOMAR_LOG
