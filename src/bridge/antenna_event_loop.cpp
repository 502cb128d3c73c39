// SPDX-License-Identifier: MIT
#include "bridge/antenna_event_loop.h"

#include <algorithm>
#include <memory>
#include <stdexcept>
#include <utility>
#include <vector>

namespace VELLOMAR_CONTROLBAR {
namespace {

using Task = AntennaEventLoop::Task;

// A task between its hand-over to the host and the host's answer, or while it runs: a link of a
// list on the stack. It tells Post that the host ran the task at once, and Cancel that the task
// must not be freed under its own feet.
class InFlight {
 public:
  InFlight(InFlight*& head, const Task* task) : head_(head), task_(task), next_(head) {
    head_ = this;
  }
  ~InFlight() { head_ = next_; }
  InFlight(const InFlight&) = delete;
  InFlight& operator=(const InFlight&) = delete;

  bool Done() const { return done_; }

  // Marks the innermost one of this task that is not done yet: the address of a task that is done
  // may belong to another by now. False if there is none.
  static bool MarkDone(InFlight* head, const Task* task) {
    for (InFlight* link = head; link != nullptr; link = link->next_) {
      if (link->task_ == task && !link->done_) {
        link->done_ = true;
        return true;
      }
    }
    return false;
  }

 private:
  InFlight*& head_;
  const Task* task_;
  InFlight* next_;
  bool done_ = false;
};

InFlight* g_posting = nullptr;
InFlight* g_running = nullptr;

// Tasks that outlived their event loop: the host may run them until the library is unloaded.
class AbandonedTasks : public VELLOMAR_COMMON::Singleton<AbandonedTasks> {
 public:
  void Add(Task* task) { tasks_.emplace_back(task); }
  void Release(const Task* task) {
    const auto found = std::find_if(tasks_.begin(), tasks_.end(),
                                    [task](const auto& owned) { return owned.get() == task; });
    if (found == tasks_.end()) return;
    (void)found->release();
    tasks_.erase(found);
  }

 private:
  std::vector<std::unique_ptr<Task>> tasks_;
};

// Without a slot nobody will ever run or free the copy. The interface keeps it all the same; it has
// a function of its own so that leak checkers can tell it from a real leak.
__attribute__((noinline)) void KeepCopyWithoutSlot(Task task) {
  Task* const lost = new Task(std::move(task));
  (void)lost;
}

}  // namespace

AntennaEventLoop::~AntennaEventLoop() {
  for (TaskMap* map : {&timers, &delayedTasks, &tasks, &tasksAlt1, &tasksAlt2}) {
    for (auto& [id, task] : *map) delete task;
  }
}

void AntennaEventLoop::Init(const EventLoopTable& table) {
  m_table = table;
  m_table.unreadFn = nullptr;
  if (observerId == 0 && m_table.addObserverFn != nullptr) {  // once, however often it is called
    observerId = m_table.addObserverFn(&RunListeners, nullptr);
  }
}

void AntennaEventLoop::Uninit() {
  if (m_table.removeObserverFn != nullptr) {
    m_table.removeObserverFn(observerId);
    observerId = 0;
  }
  if (m_table.stopTimerFn == nullptr) return;
  for (auto& [id, task] : timers) {
    m_table.stopTimerFn(id);
    // A timer that ends the plug-in is freed when it returns.
    if (!InFlight::MarkDone(g_running, task)) delete task;
  }
  timers.clear();
}

void AntennaEventLoop::AbandonTasks() {
  for (TaskMap* map : {&timers, &delayedTasks, &tasks, &tasksAlt1, &tasksAlt2}) {
    for (auto& [id, task] : *map) AbandonedTasks::GetInstance()->Add(task);
    map->clear();
  }
}

template <AntennaEventLoop::TaskMap AntennaEventLoop::*route, typename CallHost>
AntennaEventLoop::Id AntennaEventLoop::Post(bool has_slot, Task task, CallHost call_host) {
  if (!has_slot) {
    KeepCopyWithoutSlot(std::move(task));
    return 0;
  }
  Task* const copy = new Task(std::move(task));
  const InFlight posting(g_posting, copy);
  const Id id = call_host(&RunOnce<route>, copy);
  // The host may have run the task before it answered; it is freed then and there is nothing to
  // record. The task may even have ended this object, so look it up anew.
  if (!posting.Done()) (GetInstance()->*route)[id] = copy;
  return id;
}

AntennaEventLoop::Id AntennaEventLoop::PostTask(Task task) {
  return Post<&AntennaEventLoop::tasks>(
      m_table.postFn != nullptr, std::move(task),
      [this](LoopCallback* callback, void* context) { return m_table.postFn(callback, context); });
}

AntennaEventLoop::Id AntennaEventLoop::PostTaskAlt1(Task task) {
  return Post<&AntennaEventLoop::tasksAlt1>(m_table.postAlt1Fn != nullptr, std::move(task),
                                            [this](LoopCallback* callback, void* context) {
                                              return m_table.postAlt1Fn(callback, context);
                                            });
}

AntennaEventLoop::Id AntennaEventLoop::PostTaskAlt2(Task task) {
  return Post<&AntennaEventLoop::tasksAlt2>(m_table.postAlt2Fn != nullptr, std::move(task),
                                            [this](LoopCallback* callback, void* context) {
                                              return m_table.postAlt2Fn(callback, context);
                                            });
}

AntennaEventLoop::Id AntennaEventLoop::PostDelayedTask(std::uint64_t value, Task task) {
  return Post<&AntennaEventLoop::delayedTasks>(
      m_table.postDelayedFn != nullptr, std::move(task),
      [this, value](LoopCallback* callback, void* context) {
        return m_table.postDelayedFn(value, callback, context);
      });
}

template <AntennaEventLoop::TaskMap AntennaEventLoop::*route>
void AntennaEventLoop::RunOnce(void* context) {
  auto* const task = static_cast<Task*>(context);
  {
    const InFlight running(g_running, task);
    (*task)();  // an empty one throws std::bad_function_call into the host's loop
  }
  InFlight::MarkDone(g_posting, task);
  if (AbandonedTasks::HasInstance()) AbandonedTasks::GetInstance()->Release(task);
  TaskMap& map = GetInstance()->*route;
  const auto found = std::find_if(map.begin(), map.end(),
                                  [task](const auto& entry) { return entry.second == task; });
  if (found != map.end()) map.erase(found);
  delete task;
}

void AntennaEventLoop::Cancel(TaskMap& route, void (*slot)(std::uint64_t), Id id) {
  if (slot == nullptr) return;
  slot(id);
  const auto found = route.find(id);
  if (found == route.end()) return;
  // A task that cancels itself is freed by RunOnce.
  if (!InFlight::MarkDone(g_running, found->second)) delete found->second;
  route.erase(found);
}

void AntennaEventLoop::CancelTask(Id id) {
  Cancel(tasks, m_table.cancelTaskFn, id);
}
void AntennaEventLoop::CancelTaskAlt1(Id id) {
  Cancel(tasksAlt1, m_table.cancelTaskFn, id);
}
void AntennaEventLoop::CancelTaskAlt2(Id id) {
  Cancel(tasksAlt2, m_table.cancelAlt2Fn, id);
}
void AntennaEventLoop::CancelDelayedTask(Id id) {
  Cancel(delayedTasks, m_table.cancelDelayedFn, id);
}

AntennaEventLoop::Id AntennaEventLoop::StartTimer(std::uint64_t value, Task task) {
  if (m_table.startTimerFn == nullptr) {
    KeepCopyWithoutSlot(std::move(task));
    return 0;
  }
  Task* const copy = new Task(std::move(task));
  const Id id = m_table.startTimerFn(value, &RunRepeating, copy);
  timers[id] = copy;
  return id;
}

void AntennaEventLoop::RunRepeating(void* context) {
  auto* const task = static_cast<Task*>(context);
  bool stopped = false;
  {
    const InFlight running(g_running, task);
    (*task)();
    stopped = running.Done();
  }
  if (stopped) delete task;
}

void AntennaEventLoop::RunBorrowed(void* context) {
  (*static_cast<Task*>(context))();
}

void AntennaEventLoop::RunTaskSync(Task& task) {
  if (m_table.runSyncFn != nullptr) m_table.runSyncFn(&RunBorrowed, &task);
}

std::uint32_t AntennaEventLoop::RunTaskSyncAlt(Task& task) {
  return m_table.runSyncAltFn != nullptr ? m_table.runSyncAltFn(&RunBorrowed, &task) : 0;
}

AntennaEventLoop::Id AntennaEventLoop::AddListener(Task listener) {
  const Id id = ++s_lastListenerId;
  const auto found = listeners.find(id);
  if (found != listeners.end()) {  // only after the counter has wrapped
    found->second = std::move(listener);
    return id;
  }
  if (listeners.size() >= m_listenerLimit) throw std::length_error("map/set too long");
  listeners.emplace(id, std::move(listener));
  return id;
}

void AntennaEventLoop::RemoveListener(Id id) {
  listeners.erase(id);
}

void AntennaEventLoop::RunListeners(void*) {
  // A listener may add and remove listeners, itself among them, and may end this object.
  Id last = 0;
  for (auto next = GetInstance()->listeners.begin(); next != GetInstance()->listeners.end();
       next = GetInstance()->listeners.upper_bound(last)) {
    last = next->first;
    const Task listener = next->second;
    listener();
  }
}

std::uint32_t AntennaEventLoop::Query(std::uint32_t first, std::uint32_t second) const {
  return m_table.queryFn != nullptr ? m_table.queryFn(first, second) : 0;
}

std::uint32_t AntennaEventLoop::Query3(std::uint32_t first, std::uint32_t second,
                                       std::uint32_t third) const {
  return m_table.query3Fn != nullptr ? m_table.query3Fn(first, second, third) : 0;
}

}  // namespace VELLOMAR_CONTROLBAR
