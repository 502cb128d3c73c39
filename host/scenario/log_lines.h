// SPDX-License-Identifier: MIT
// The plug-in's log lines as they are observed, and what a trace scope's two lines say.
//
//   ParseScopeLine("exit ExportedStart, cost : 3")  ->  {kExit, "ExportedStart", 3}
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <thread>

namespace vellomar_host {

struct LogLine {
  std::chrono::steady_clock::time_point when;
  std::thread::id thread;  // the one that wrote it
  std::string module;
  int level = 0;  // VELLOMAR_LOG_...
  std::string text;
};

using LogSink = std::function<void(const LogLine&)>;  // [the thread that writes]

struct ScopeLine {
  enum Kind { kOther, kEntry, kExit };
  Kind kind = kOther;
  std::string_view name;           // part of the line
  std::int64_t milliseconds = -1;  // of an exit
};

ScopeLine ParseScopeLine(std::string_view text);

}  // namespace vellomar_host
