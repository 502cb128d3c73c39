// SPDX-License-Identifier: MIT
// An event loop for hosts: one thread runs what any thread posts.
//
//   EventLoop loop;
//   loop.PostDelayed(std::chrono::milliseconds(100), [&] { loop.Quit(); });
//   plugin.Init({.loop = loop.Table()});
//   loop.Run();
//
// The loop's thread is the one that made it. Post, PostDelayed, StartTimer, Cancel, RunSync and
// Quit may be called from any thread, the others from the loop's. Posted tasks run in the order of
// their posting, delayed ones when due, earlier ones first. All members may be called from inside a
// task. An exception that leaves a task leaves the running member too; the loop stays usable.
#pragma once

#include <atomic>
#include <chrono>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>
#include <utility>

#include "vellomar/controlbar.h"

namespace vellomar_host {

// How the loop waits where it has nothing to do: a user-interface library's own pump can be put in.
struct Waiting {
  std::function<void(std::int32_t max_ms)> wait;  // [loop thread]
  std::function<void()> wake;  // ends the current or the next wait early [any thread]
};

class EventLoop {
 public:
  using Clock = std::chrono::steady_clock;
  using Milliseconds = std::chrono::milliseconds;
  using Task = std::function<void()>;
  using Id = std::uint64_t;  // of one task, timer or observer; never 0, never used again

  EventLoop();
  ~EventLoop();
  EventLoop(const EventLoop&) = delete;
  EventLoop& operator=(const EventLoop&) = delete;
  EventLoop(EventLoop&&) = delete;
  EventLoop& operator=(EventLoop&&) = delete;

  Id Post(Task task);
  Id PostDelayed(Milliseconds delay, Task task);
  // Runs the task again and again until it is cancelled. An interval below 1 ms counts as 1 ms.
  Id StartTimer(Milliseconds interval, Task task);
  // Forgets a task or timer that has not begun to run; others of its ids are ignored.
  void Cancel(Id id);
  // Has run the task when it returns: at once on the loop's thread, else posted and waited for.
  // What the task throws is thrown here; HostError when the loop ended before it ran.
  void RunSync(Task task);

  // Called at every turn of the loop until removed.
  Id AddObserver(Task observer);
  void RemoveObserver(Id id);

  // Until Quit; a Quit that came before ends it at once.
  void Run();
  void Quit();
  // Until the predicate, asked between the tasks' turns, is true. False when the deadline came
  // first.
  bool RunUntil(const std::function<bool()>& predicate, Clock::time_point deadline);
  // Until nothing is posted and nothing waits in the pump; delayed tasks and timers do not count.
  bool RunUntilIdle(Clock::time_point deadline);
  // For a thread that belongs to another loop: runs what is due and returns; `wake` of the waiting
  // says when there is more, and NextDue when a delayed task or a timer is due.
  void RunTurn() { RunReady(); }
  std::optional<Clock::time_point> NextDue() const;
  bool HasPosted() const;

  // Forgets all tasks, timers and observers: for before the code behind them is unloaded.
  void Clear();

  void SetWaiting(Waiting waiting);
  // Back to the loop's own way of waiting.
  void ResetWaiting();
  bool IsLoopThread() const { return std::this_thread::get_id() == thread_; }

  // The loop as the plug-in sees it, its values in milliseconds. The table's functions carry no
  // context: they act on the loop whose Table was asked for last.
  const EventLoopTable* Table();

 private:
  struct Timed {
    std::shared_ptr<Task> task;
    Milliseconds interval;  // 0: runs once
  };
  using DueTime = std::pair<Clock::time_point, Id>;

  Id AddTimed(Milliseconds delay, Milliseconds interval, Task task);
  void RunReady();
  void RunPosted();
  void RunDue();
  void CallObservers();
  void Wait(Milliseconds longest);
  void Wake();

  const std::thread::id thread_ = std::this_thread::get_id();
  std::atomic<bool> quit_ = false;
  mutable std::mutex mutex_;  // guards all below; never held while foreign code runs
  Id next_id_ = 1;
  std::map<Id, Task> posted_;
  std::map<DueTime, Timed> timed_;
  std::map<Id, std::shared_ptr<Task>> observers_;
  std::shared_ptr<const Waiting> waiting_;
};

}  // namespace vellomar_host
