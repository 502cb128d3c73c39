// SPDX-License-Identifier: MIT
// The plug-in's way to the host's event loop: wraps work in a heap-held callable, hands it to the
// host with a plain function to call back, and keeps it until it has run or is cancelled.
//
//     AntennaEventLoop::GetInstance()->PostTask([] { ... });   // runs later, on the loop
//
// The plug-in has no loop, thread or lock of its own. The host calls back on the thread that calls
// the exports, or takes care that the two never overlap. [loop thread]
//
// A call that leaves this class, into the host or into a callable, may come back in, end this
// object and make another. So what is needed after the call is held by the caller: the object is
// touched again only if it is still the same one, and a callable lives until its last run has
// returned.
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

  explicit AntennaEventLoop(std::size_t listener_limit = kListenerLimit)
      : m_listenerLimit(listener_limit) {}

  // Copies the host's table and registers the observer; one that is registered on another loop is
  // taken off that one first.
  void Init(const EventLoopTable& table);
  // Removes the observer and stops the timers. What is posted stays posted: the host may run it
  // until it unloads the library, also when this object is gone.
  void Uninit();

  // Run once. 0 where the host has no such slot; the task is then freed without having run.
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

  // Forwarded to the host as they are; 0 where it has no such slot.
  std::uint32_t Query(std::uint32_t first, std::uint32_t second) const;
  std::uint32_t Query3(std::uint32_t first, std::uint32_t second, std::uint32_t third) const;

 private:
  // A callable that the host may call back. Not owned by this object, which it may outlive.
  class Posted;
  using TaskMap = std::map<Id, Posted*>;
  using Route = TaskMap AntennaEventLoop::*;

  enum class Observer { kNone, kAsked, kRegistered };

  static void RunOnce(void* context);
  static void RunRepeating(void* context);
  static void RunBorrowed(void* context);
  static void RunListeners(void* context);

  // The object of this life; null when it has ended.
  static AntennaEventLoop* Living(std::uint64_t life) {
    return HasInstance() && GetInstance()->m_life == life ? GetInstance() : nullptr;
  }

  template <typename CallHost>
  Id Post(Route route, const char* name, Task task, CallHost call_host);
  void Cancel(Route route, void (*slot)(std::uint64_t), Id id);
  void RegisterObserver();

  EventLoopTable m_table{};
  std::map<Id, Task> listeners;
  TaskMap timers;
  TaskMap delayedTasks;
  TaskMap tasks;
  TaskMap tasksAlt1;
  TaskMap tasksAlt2;
  Id observerId = 0;  // the host may give out 0 as well: whether there is one says m_observer
  Observer m_observer = Observer::kNone;
  std::uint64_t m_observerRequests = 0;
  const std::size_t m_listenerLimit;
  const std::uint64_t m_life = ++s_lives;

  inline static std::uint64_t s_lives = 0;
  inline static Id s_lastListenerId = 0;
};

}  // namespace VELLOMAR_CONTROLBAR
