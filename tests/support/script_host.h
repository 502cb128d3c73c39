// SPDX-License-Identifier: MIT
// A host whose event loop does what a test says: it keeps what is posted until the test runs it,
// can run it at once, and can leave slots of its table empty.
//
//     ScriptHost host;
//     loop.Init(host.Table());
//     loop.PostTask(...);
//     EXPECT_EQ(host.RunAll(), 1);
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "vellomar/controlbar.h"

class ScriptHost {
 public:
  struct Call {
    LoopCallback* callback = nullptr;
    void* context = nullptr;
    std::uint64_t value = 0;
  };

  ScriptHost() { current_ = this; }
  ~ScriptHost() { current_ = nullptr; }
  ScriptHost(const ScriptHost&) = delete;
  ScriptHost& operator=(const ScriptHost&) = delete;

  EventLoopTable Table() const;

  // Runs what is pending, lowest id first, and what that posts; returns how many ran.
  int RunAll();
  // Calls a pending callback back and forgets it.
  void Run(std::uint64_t id);
  // Calls a timer back.
  void Fire(std::uint64_t id) { timers.at(id).callback(timers.at(id).context); }
  void Turn() { observer.callback(observer.context); }

  bool run_at_once = false;       // call a posted callback back before answering its id
  std::uint64_t next_id = 100;    // the id of the next posting
  std::uint64_t observer_id = 7;  // answered to addObserverFn

  std::map<std::uint64_t, Call> pending;
  std::map<std::uint64_t, Call> timers;
  Call observer;
  // What the host does inside the next call of a slot, by the slot's name.
  std::map<std::string, std::function<void()>> inside;
  std::vector<std::string> calls;                        // "cancelTask 101", in order
  std::function<void(const std::string& call)> on_call;  // hears the same, and "runSync"

 private:
  std::uint64_t Post(const char* slot, std::uint64_t value, LoopCallback* callback, void* context);
  void Note(const char* slot, std::uint64_t id);
  void DoInside(const char* slot);

  static ScriptHost* current_;
};
