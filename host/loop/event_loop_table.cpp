// SPDX-License-Identifier: MIT
// The loop as a record of plain functions. They act on one loop of the process, since the interface
// gives them no context of the host's.
#include <algorithm>
#include <atomic>
#include <limits>

#include "host/loop/event_loop.h"

namespace vellomar_host {
namespace {

std::atomic<EventLoop*> current_loop = nullptr;

EventLoop::Task Bind(LoopCallback* callback, void* context) {
  return [callback, context] { callback(context); };
}

EventLoop::Milliseconds FromWire(std::uint64_t value) {
  constexpr auto kMost = std::numeric_limits<EventLoop::Milliseconds::rep>::max();
  return EventLoop::Milliseconds(std::min<std::uint64_t>(value, kMost));
}

std::uint64_t AddObserver(LoopCallback* callback, void* context) {
  EventLoop* loop = current_loop;
  return loop != nullptr ? loop->AddObserver(Bind(callback, context)) : 0;
}

void RemoveObserver(std::uint64_t id) {
  if (EventLoop* loop = current_loop) {
    loop->RemoveObserver(id);
  }
}

std::uint64_t StartTimer(std::uint64_t value, LoopCallback* callback, void* context) {
  EventLoop* loop = current_loop;
  return loop != nullptr ? loop->StartTimer(FromWire(value), Bind(callback, context)) : 0;
}

std::uint64_t PostDelayed(std::uint64_t value, LoopCallback* callback, void* context) {
  EventLoop* loop = current_loop;
  return loop != nullptr ? loop->PostDelayed(FromWire(value), Bind(callback, context)) : 0;
}

std::uint64_t Post(LoopCallback* callback, void* context) {
  EventLoop* loop = current_loop;
  return loop != nullptr ? loop->Post(Bind(callback, context)) : 0;
}

void Cancel(std::uint64_t id) {
  if (EventLoop* loop = current_loop) {
    loop->Cancel(id);
  }
}

std::uint32_t RunSyncAlt(LoopCallback* callback, void* context) {
  EventLoop* loop = current_loop;
  if (loop == nullptr) {
    return 0;
  }
  loop->RunSync(Bind(callback, context));
  return 1;
}

void RunSync(LoopCallback* callback, void* context) {
  RunSyncAlt(callback, context);
}

// The three one-shot routes are one queue here: tasks keep their order across them, and an id says
// which task is meant whatever the route. The queries are empty: this host has nothing to ask for.
constexpr EventLoopTable kTable = {
    .queryFn = nullptr,
    .addObserverFn = AddObserver,
    .removeObserverFn = RemoveObserver,
    .startTimerFn = StartTimer,
    .stopTimerFn = Cancel,
    .postDelayedFn = PostDelayed,
    .cancelDelayedFn = Cancel,
    .runSyncFn = RunSync,
    .postFn = Post,
    .runSyncAltFn = RunSyncAlt,
    .postAlt1Fn = Post,
    .postAlt2Fn = Post,
    .cancelTaskFn = Cancel,
    .unreadFn = nullptr,
    .cancelAlt2Fn = Cancel,
    .query3Fn = nullptr,
};

}  // namespace

const EventLoopTable* EventLoop::Table() {
  current_loop = this;
  return &kTable;
}

EventLoop::~EventLoop() {
  EventLoop* self = this;
  current_loop.compare_exchange_strong(self, nullptr);
}

}  // namespace vellomar_host
