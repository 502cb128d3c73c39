// SPDX-License-Identifier: MIT
// One list, in order, of everything that crosses a boundary of the plug-in: log lines, calls of the
// widget library, notifications, requests and calls of the host's loop. The lines of a trace scope
// stand below its name.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "support/recording_log.h"
#include "vellomar/controlbar.h"

namespace streams {

using Lines = std::vector<std::string>;

class Stream {
 public:
  void Add(const std::string& line);
  // The lines until Leave belong to this one.
  void Enter(const std::string& line);
  void Leave() { --depth_; }
  void Log(const recording_log::Line& line);
  // What has come since the last call. Says so where a scope is still open.
  Lines Take();

  bool shows_data_scopes = false;

 private:
  struct Scope {
    std::string name;
    bool shown;
  };
  bool OpenOrClose(const std::string& text);

  Lines lines_;
  std::vector<Scope> scopes_;
  std::size_t depth_ = 0;
};

// The host: an event loop and the two entry points.
class Host {
 public:
  enum class Runs { kAfterTheCall, kAtOnce, kLater };

  explicit Host(Stream& stream);
  ~Host() { current_ = nullptr; }
  Host(const Host&) = delete;
  Host& operator=(const Host&) = delete;

  EventLoopTable Table() const;
  void RunPending();
  void Turn() { observer_.callback(observer_.context); }

  static void OnNotify(const char* sender, std::uint32_t low, std::uint32_t high, void* payload);
  static void OnRequest(const char* sender, std::uint32_t low, std::uint32_t high, void* record);

  Runs runs = Runs::kAfterTheCall;
  // What it does not give at its next init: notify, request, loop, or slots of the loop's table.
  std::set<std::string> without;
  std::uint64_t next_id = 100;                  // of a posted task
  std::map<std::string, std::int64_t> answers;  // to the participant request, by user id
  // What it does at once, and once, when it gets a notification or request: a step.
  std::map<std::uint64_t, std::string> reactions;
  std::function<void(const std::string& step)> react;

 private:
  struct Task {
    LoopCallback* callback = nullptr;
    void* context = nullptr;
  };
  std::uint64_t Post(LoopCallback* callback, void* context);
  void RunSync(LoopCallback* callback, void* context);
  void Hear(const char* sender, std::uint64_t id, const std::string& line);

  static Host* current_;
  Stream& stream_;
  Task observer_;
  std::map<std::uint64_t, Task> pending_;
};

}  // namespace streams
