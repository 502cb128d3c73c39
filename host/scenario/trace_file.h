// SPDX-License-Identifier: MIT
// The plug-in's trace scopes as a trace-event file, which trace viewers open.
//
//   TraceFile trace("bar.json");
//   Session session(files, {}, transcript, [&](const LogLine& line) { trace.Write(line); });
//
// A list of events, one a line: a scope is a pair of "B" and "E", every other log line an instant
// event "i" inside it. `ts` is in microseconds since the first line. When the object goes, scopes
// that are still open are closed and the list is ended; a viewer also reads a list without end.
#pragma once

#include <filesystem>
#include <fstream>
#include <map>
#include <mutex>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "host/scenario/log_lines.h"

namespace vellomar_host {

class TraceFile {
 public:
  // Throws HostError when the file cannot be written.
  explicit TraceFile(const std::filesystem::path& file);
  ~TraceFile();
  TraceFile(const TraceFile&) = delete;
  TraceFile& operator=(const TraceFile&) = delete;
  TraceFile(TraceFile&&) = delete;
  TraceFile& operator=(TraceFile&&) = delete;

  void Write(const LogLine& line);  // [any thread]

 private:
  struct Thread {
    int number;
    std::vector<std::string> open;  // scopes, the innermost last
  };

  std::int64_t Microseconds(const LogLine& line);
  Thread& ThreadOf(std::thread::id id);
  void WriteEvent(nlohmann::ordered_json event, const Thread& thread, std::int64_t when);
  void End(Thread& thread, std::int64_t when);

  std::mutex mutex_;  // guards all below
  std::ofstream out_;
  std::optional<std::chrono::steady_clock::time_point> begin_;
  std::int64_t last_ = 0;
  std::map<std::thread::id, Thread> threads_;
  bool first_ = true;
};

}  // namespace vellomar_host
