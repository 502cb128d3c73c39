// SPDX-License-Identifier: MIT
// The turns of the loop. A task leaves its container before it runs, so that it can cancel, post
// and run the loop itself without touching what is being walked.
#include "host/loop/event_loop.h"

#include <algorithm>
#include <condition_variable>
#include <future>
#include <utility>
#include <vector>

#include "host/host_error.h"

namespace vellomar_host {
namespace {

using std::chrono::milliseconds;

// Far below what 32 bits hold; the loop merely takes an idle turn when it is over.
constexpr milliseconds kLongestWait = std::chrono::hours(1);

std::shared_ptr<const Waiting> MakeOwnWaiting() {
  struct State {
    std::mutex mutex;
    std::condition_variable changed;
    bool woken = false;
  };
  auto state = std::make_shared<State>();
  auto wait = [state](std::int32_t max_ms) {
    std::unique_lock lock(state->mutex);
    state->changed.wait_for(lock, milliseconds(max_ms), [&] { return state->woken; });
    state->woken = false;
  };
  auto wake = [state] {
    {
      const std::lock_guard lock(state->mutex);
      state->woken = true;
    }
    state->changed.notify_one();
  };
  return std::make_shared<const Waiting>(Waiting{wait, wake});
}

// A delay beyond what the clock can count ends at the clock's last moment.
EventLoop::Clock::time_point After(EventLoop::Clock::time_point now, milliseconds delay) {
  const auto furthest = std::chrono::floor<milliseconds>(EventLoop::Clock::time_point::max() - now);
  return now + std::clamp(delay, milliseconds(0), furthest);
}

}  // namespace

EventLoop::EventLoop() : waiting_(MakeOwnWaiting()) {}

EventLoop::Id EventLoop::Post(Task task) {
  Id id = 0;
  {
    const std::lock_guard lock(mutex_);
    id = next_id_++;
    posted_.emplace(id, std::move(task));
  }
  Wake();
  return id;
}

EventLoop::Id EventLoop::PostDelayed(Milliseconds delay, Task task) {
  return AddTimed(delay, Milliseconds(0), std::move(task));
}

EventLoop::Id EventLoop::StartTimer(Milliseconds interval, Task task) {
  const auto at_least_one = std::max(interval, Milliseconds(1));
  return AddTimed(at_least_one, at_least_one, std::move(task));
}

EventLoop::Id EventLoop::AddTimed(Milliseconds delay, Milliseconds interval, Task task) {
  const auto due = After(Clock::now(), delay);
  Id id = 0;
  {
    const std::lock_guard lock(mutex_);
    id = next_id_++;
    timed_.emplace(DueTime(due, id), Timed{std::make_shared<Task>(std::move(task)), interval});
  }
  Wake();
  return id;
}

void EventLoop::Cancel(Id id) {
  // Declared before the lock: the task is destroyed after it, and may run code of its owner then.
  decltype(posted_)::node_type posted;
  decltype(timed_)::node_type timed;
  const std::lock_guard lock(mutex_);
  posted = posted_.extract(id);
  const auto found = std::find_if(timed_.begin(), timed_.end(),
                                  [id](const auto& entry) { return entry.first.second == id; });
  if (found != timed_.end()) {
    timed = timed_.extract(found);
  }
}

void EventLoop::RunSync(Task task) {
  if (IsLoopThread()) {
    task();
    return;
  }
  // The posted task is the only owner: destroyed without having run, it breaks the promise.
  auto job = std::make_shared<std::packaged_task<void()>>(std::move(task));
  auto done = job->get_future();
  Post([job = std::move(job)] { (*job)(); });
  try {
    done.get();
  } catch (const std::future_error&) {
    throw HostError("the event loop ended before a task that was waited for ran");
  }
}

EventLoop::Id EventLoop::AddObserver(Task observer) {
  const std::lock_guard lock(mutex_);
  const Id id = next_id_++;
  observers_.emplace(id, std::make_shared<Task>(std::move(observer)));
  return id;
}

void EventLoop::RemoveObserver(Id id) {
  decltype(observers_)::node_type removed;
  const std::lock_guard lock(mutex_);
  removed = observers_.extract(id);
}

void EventLoop::Run() {
  RunUntil([this] { return quit_.exchange(false); }, Clock::time_point::max());
}

void EventLoop::Quit() {
  quit_ = true;
  Wake();
}

bool EventLoop::RunUntil(const std::function<bool()>& predicate, Clock::time_point deadline) {
  for (;;) {
    if (predicate()) {
      return true;
    }
    RunReady();
    if (predicate()) {
      return true;
    }
    const auto now = Clock::now();
    if (now >= deadline) {
      return false;
    }
    Wait(std::chrono::ceil<Milliseconds>(std::min<Clock::duration>(deadline - now, kLongestWait)));
  }
}

bool EventLoop::RunUntilIdle(Clock::time_point deadline) {
  do {
    RunReady();
    Wait(Milliseconds(0));
    if (!HasPosted()) {
      return true;
    }
  } while (Clock::now() < deadline);
  return false;
}

void EventLoop::Clear() {
  decltype(posted_) posted;
  decltype(timed_) timed;
  decltype(observers_) observers;
  const std::lock_guard lock(mutex_);
  posted.swap(posted_);
  timed.swap(timed_);
  observers.swap(observers_);
}

void EventLoop::SetWaiting(Waiting waiting) {
  auto replacement = std::make_shared<const Waiting>(std::move(waiting));
  const std::lock_guard lock(mutex_);
  waiting_.swap(replacement);
}

void EventLoop::ResetWaiting() {
  auto replacement = MakeOwnWaiting();
  const std::lock_guard lock(mutex_);
  waiting_.swap(replacement);
}

void EventLoop::RunReady() {
  RunPosted();
  RunDue();
  CallObservers();
}

// What is posted meanwhile has to wait for the next turn, so that a task that posts itself again
// starves nothing.
void EventLoop::RunPosted() {
  std::unique_lock lock(mutex_);
  const Id end = next_id_;
  while (!posted_.empty() && posted_.begin()->first < end) {
    auto task = posted_.extract(posted_.begin());
    lock.unlock();
    task.mapped()();
    task = {};
    lock.lock();
  }
}

void EventLoop::RunDue() {
  const auto now = Clock::now();
  std::unique_lock lock(mutex_);
  const Id end = next_id_;
  while (!timed_.empty()) {
    const auto first = timed_.begin();
    if (first->first.first > now || first->first.second >= end) {
      return;
    }
    auto entry = timed_.extract(first);
    // Held here too: the task may stop its own timer while it runs.
    auto task = entry.mapped().task;
    if (entry.mapped().interval > Milliseconds(0)) {
      entry.key().first = After(now, entry.mapped().interval);
      timed_.insert(std::move(entry));
    }
    lock.unlock();
    (*task)();
    entry = {};
    task.reset();
    lock.lock();
  }
}

void EventLoop::CallObservers() {
  std::unique_lock lock(mutex_);
  // Ids ascend, so the next one is found even where the last called removed itself.
  for (auto next = observers_.begin(); next != observers_.end();) {
    const Id id = next->first;
    auto observer = next->second;
    lock.unlock();
    (*observer)();
    observer.reset();
    lock.lock();
    next = observers_.upper_bound(id);
  }
}

void EventLoop::Wait(Milliseconds longest) {
  std::shared_ptr<const Waiting> waiting;
  {
    const std::lock_guard lock(mutex_);
    waiting = waiting_;
    if (!posted_.empty() || quit_) {
      longest = Milliseconds(0);
    } else if (!timed_.empty()) {
      const auto left = timed_.begin()->first.first - Clock::now();
      longest = std::clamp(std::chrono::ceil<Milliseconds>(left), Milliseconds(0), longest);
    }
  }
  waiting->wait(static_cast<std::int32_t>(longest.count()));
}

void EventLoop::Wake() {
  std::shared_ptr<const Waiting> waiting;
  {
    const std::lock_guard lock(mutex_);
    waiting = waiting_;
  }
  waiting->wake();
}

std::optional<EventLoop::Clock::time_point> EventLoop::NextDue() const {
  const std::lock_guard lock(mutex_);
  if (timed_.empty()) {
    return std::nullopt;
  }
  return timed_.begin()->first.first;
}

bool EventLoop::HasPosted() const {
  const std::lock_guard lock(mutex_);
  return !posted_.empty();
}

}  // namespace vellomar_host
