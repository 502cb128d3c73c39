// SPDX-License-Identifier: MIT
// An exit whose scope is not the innermost open one ends those inside it as well, so that begins
// and ends always pair; an exit without a begin, of a scope older than the observation, is left
// out.
#include "host/scenario/trace_file.h"

#include <fmt/format.h>

#include <algorithm>

#include "host/host_error.h"

namespace vellomar_host {

using nlohmann::ordered_json;

TraceFile::TraceFile(const std::filesystem::path& file) : out_(file) {
  if (!out_) {
    throw HostError(fmt::format("cannot write the trace \"{}\"", file.string()));
  }
  out_ << "[";
}

TraceFile::~TraceFile() {
  for (auto& [id, thread] : threads_) {
    while (!thread.open.empty()) {
      End(thread, last_);
    }
  }
  out_ << "\n]\n";
}

void TraceFile::Write(const LogLine& line) {
  const std::lock_guard lock(mutex_);
  const std::int64_t when = Microseconds(line);
  Thread& thread = ThreadOf(line.thread);
  const ScopeLine scope = ParseScopeLine(line.text);
  if (scope.kind == ScopeLine::kEntry) {
    thread.open.emplace_back(scope.name);
    WriteEvent({{"ph", "B"}, {"name", scope.name}, {"cat", line.module}}, thread, when);
  } else if (scope.kind == ScopeLine::kExit) {
    const auto found = std::find(thread.open.rbegin(), thread.open.rend(), scope.name);
    if (found == thread.open.rend()) {
      return;
    }
    const auto depth = static_cast<std::size_t>(thread.open.rend() - found);
    while (thread.open.size() >= depth) {
      End(thread, when);
    }
  } else {
    WriteEvent({{"ph", "i"},
                {"name", line.text},
                {"cat", line.module},
                {"s", "t"},
                {"args", {{"level", line.level}}}},
               thread, when);
  }
}

std::int64_t TraceFile::Microseconds(const LogLine& line) {
  if (!begin_) {
    begin_ = line.when;
  }
  const auto since =
      std::chrono::duration_cast<std::chrono::microseconds>(line.when - *begin_).count();
  // Two threads may have read the clock in another order than they came here.
  last_ = std::max<std::int64_t>(last_, since);
  return last_;
}

TraceFile::Thread& TraceFile::ThreadOf(std::thread::id id) {
  const int next = static_cast<int>(threads_.size()) + 1;
  return threads_.try_emplace(id, Thread{next, {}}).first->second;
}

void TraceFile::End(Thread& thread, std::int64_t when) {
  WriteEvent({{"ph", "E"}, {"name", thread.open.back()}}, thread, when);
  thread.open.pop_back();
}

void TraceFile::WriteEvent(ordered_json event, const Thread& thread, std::int64_t when) {
  event["ts"] = when;
  event["pid"] = 1;
  event["tid"] = thread.number;
  out_ << (first_ ? "\n" : ",\n")
       << event.dump(-1, ' ', false, ordered_json::error_handler_t::replace);
  first_ = false;
}

}  // namespace vellomar_host
