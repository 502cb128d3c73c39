// SPDX-License-Identifier: MIT
#include "support/script_host.h"

ScriptHost* ScriptHost::current_ = nullptr;

void ScriptHost::Note(const char* slot, std::uint64_t id) {
  calls.push_back(std::string(slot) + " " + std::to_string(id));
  if (on_call) {
    on_call(calls.back());
  }
  DoInside(slot);
}

void ScriptHost::DoInside(const char* slot) {
  const auto found = inside.find(slot);
  if (found == inside.end()) {
    return;
  }
  const auto action = std::move(found->second);
  inside.erase(found);
  action();
}

std::uint64_t ScriptHost::Post(const char* slot, std::uint64_t value, LoopCallback* callback,
                               void* context) {
  const std::uint64_t id = next_id++;
  Note(slot, id);
  if (run_at_once) {
    callback(context);
  } else {
    pending[id] = {callback, context, value};
  }
  return id;
}

EventLoopTable ScriptHost::Table() const {
  EventLoopTable table{};
  table.queryFn = [](std::uint32_t a, std::uint32_t b) { return a * 10 + b; };
  table.addObserverFn = [](LoopCallback* callback, void* context) {
    current_->observer = {callback, context};
    const std::uint64_t id = current_->observer_id;
    current_->Note("addObserver", id);
    return id;
  };
  table.removeObserverFn = [](std::uint64_t id) { current_->Note("removeObserver", id); };
  table.startTimerFn = [](std::uint64_t value, LoopCallback* callback, void* context) {
    const std::uint64_t id = current_->next_id++;
    current_->timers[id] = {callback, context, value};
    current_->DoInside("startTimer");
    return id;
  };
  table.stopTimerFn = [](std::uint64_t id) { current_->Note("stopTimer", id); };
  table.postDelayedFn = [](std::uint64_t value, LoopCallback* callback, void* context) {
    return current_->Post("postDelayed", value, callback, context);
  };
  table.cancelDelayedFn = [](std::uint64_t id) { current_->Note("cancelDelayed", id); };
  table.runSyncFn = [](LoopCallback* callback, void* context) {
    if (current_->on_call) {
      current_->on_call("runSync");
    }
    callback(context);
  };
  table.postFn = [](LoopCallback* callback, void* context) {
    return current_->Post("post", 0, callback, context);
  };
  table.runSyncAltFn = [](LoopCallback* callback, void* context) {
    callback(context);
    return std::uint32_t{42};
  };
  table.postAlt1Fn = [](LoopCallback* callback, void* context) {
    return current_->Post("postAlt1", 0, callback, context);
  };
  table.postAlt2Fn = [](LoopCallback* callback, void* context) {
    return current_->Post("postAlt2", 0, callback, context);
  };
  table.cancelTaskFn = [](std::uint64_t id) { current_->Note("slot13", id); };
  table.unreadFn = [](std::uint64_t id) { current_->Note("slot14", id); };
  table.cancelAlt2Fn = [](std::uint64_t id) { current_->Note("slot15", id); };
  table.query3Fn = [](std::uint32_t a, std::uint32_t b, std::uint32_t c) {
    return a * 100 + b * 10 + c;
  };
  return table;
}

void ScriptHost::Run(std::uint64_t id) {
  const Call call = pending.at(id);
  pending.erase(id);
  call.callback(call.context);
}

int ScriptHost::RunAll() {
  int ran = 0;
  for (; !pending.empty(); ++ran) {
    Run(pending.begin()->first);
  }
  return ran;
}
