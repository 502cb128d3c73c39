// SPDX-License-Identifier: MIT
// The plug-in's way to the host's event loop: wraps work in a heap-held callable, hands it to the
// host with a plain function to call back, and keeps it until it has run or is cancelled.
//
//     AntennaEventLoop::GetInstance()->PostTask([] { ... });   // runs later, on the loop
//
// The plug-in has no loop, thread or lock of its own. The host calls back on the thread that calls
// the exports, or takes care that the two never overlap. [loop thread]
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>

#include "common/singleton.h"
#include "vellomar/controlbar.h"

namespace VELLOMAR_CONTROLBAR {

class AntennaEventLoop : public VELLOMAR_COMMON::Singleton<AntennaEventLoop> {
 public:
  using Task = std::function<void()>;
  using Id = std::uint64_t;

  static constexpr std::size_t kListenerLimit = 67'108'863;

  AntennaEventLoop() = default;
  ~AntennaEventLoop() override;

  // Copies the host's table and registers the observer.
  void Init(const EventLoopTable& table);
  // Removes the observer and stops the timers. What is posted stays posted.
  void Uninit();
  // Hands what is still posted over to the library itself: the host may run it until it unloads the
  // library, also when this object is gone.
  void AbandonTasks();

  // Run once. 0 where the host has no such slot; the copy made for it is then lost on purpose.
  Id PostTask(Task task);
  Id PostTaskAlt1(Task task);
  Id PostTaskAlt2(Task task);
  Id PostDelayedTask(std::uint64_t value, Task task);

  // Forget the task, unless the host has no such slot.
  void CancelTask(Id id);
  void CancelTaskAlt1(Id id);  // calls the host's slot 13, the same as CancelTask
  void CancelTaskAlt2(Id id);
  void CancelDelayedTask(Id id);

  // Runs again and again until Uninit. 0 where the host has no such slot.
  Id StartTimer(std::uint64_t value, Task task);

  // Have run when they return. The task stays the caller's; nothing is copied.
  void RunTaskSync(Task& task);
  std::uint32_t RunTaskSyncAlt(Task& task);

  // Called at every turn of the host's loop, in the order of their ids. A std::length_error when
  // there are too many.
  Id AddListener(Task listener);
  void RemoveListener(Id id);
  void SetListenerLimit(std::size_t limit) { m_listenerLimit = limit; }

  // Forwarded to the host as they are; 0 where it has no such slot.
  std::uint32_t Query(std::uint32_t first, std::uint32_t second) const;
  std::uint32_t Query3(std::uint32_t first, std::uint32_t second, std::uint32_t third) const;

  // How many tasks of a kind are recorded.
  std::size_t TaskCount() const { return tasks.size(); }
  std::size_t TaskAlt1Count() const { return tasksAlt1.size(); }
  std::size_t TaskAlt2Count() const { return tasksAlt2.size(); }
  std::size_t DelayedTaskCount() const { return delayedTasks.size(); }
  std::size_t TimerCount() const { return timers.size(); }

 private:
  // The pointers are owning. They are plain because a task that has run is still looked up by its
  // address after it was freed.
  using TaskMap = std::map<Id, Task*>;

  template <TaskMap AntennaEventLoop::*route>
  static void RunOnce(void* context);
  static void RunRepeating(void* context);
  static void RunBorrowed(void* context);
  static void RunListeners(void* context);

  template <TaskMap AntennaEventLoop::*route, typename CallHost>
  Id Post(bool has_slot, Task task, CallHost call_host);
  void Cancel(TaskMap& route, void (*slot)(std::uint64_t), Id id);

  EventLoopTable m_table{};
  std::map<Id, Task> listeners;
  TaskMap timers;
  TaskMap delayedTasks;
  TaskMap tasks;
  TaskMap tasksAlt1;
  TaskMap tasksAlt2;
  Id observerId = 0;
  std::size_t m_listenerLimit = kListenerLimit;

  inline static Id s_lastListenerId = 0;
};

}  // namespace VELLOMAR_CONTROLBAR
