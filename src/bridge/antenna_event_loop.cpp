// SPDX-License-Identifier: MIT
#include "bridge/antenna_event_loop.h"

#include <memory>
#include <stdexcept>
#include <utility>

#include "frame/log/guard.h"

namespace VELLOMAR_CONTROLBAR {

using VELLOMAR_LOG::Guarded;

// Belongs to the library as a whole and is linked into the list of all there are; what the host
// never ran is freed when it unloads the library.
class AntennaEventLoop::Posted {
 public:
  // Keeps it alive while the host or the callable itself has the word.
  class Hold {
   public:
    explicit Hold(Posted& posted) : m_posted(posted) { ++m_posted.m_holds; }
    ~Hold() {
      if (--m_posted.m_holds == 0 && m_posted.m_done) {
        delete &m_posted;
      }
    }
    Hold(const Hold&) = delete;
    Hold& operator=(const Hold&) = delete;

   private:
    Posted& m_posted;
  };

  // Ends it when the block is left, however that happens.
  class EndsHere {
   public:
    explicit EndsHere(Posted& posted) : m_posted(posted) {}
    ~EndsHere() { m_posted.End(); }
    EndsHere(const EndsHere&) = delete;
    EndsHere& operator=(const EndsHere&) = delete;

   private:
    Posted& m_posted;
  };

  Posted(const char* name, Task task) : m_name(name), m_task(std::move(task)), m_next(s_all.first) {
    if (m_next != nullptr) {
      m_next->m_previous = this;
    }
    s_all.first = this;
  }
  ~Posted() {
    (m_previous != nullptr ? m_previous->m_next : s_all.first) = m_next;
    if (m_next != nullptr) {
      m_next->m_previous = m_previous;
    }
  }
  Posted(const Posted&) = delete;
  Posted& operator=(const Posted&) = delete;

  void Run() { m_task(); }
  const char* Name() const { return m_name; }
  // It has run for the last time, or is cancelled.
  bool Done() const { return m_done; }

  // Takes a node that is there already: recording cannot fail. An earlier record of the same id is
  // replaced; the task that it named still runs when the host calls it.
  void Record(AntennaEventLoop& loop, Route route, Id id, TaskMap::node_type node) {
    m_life = loop.m_life;
    m_route = route;
    m_id = id;
    node.key() = id;
    node.mapped() = this;
    const auto recorded = (loop.*route).insert(std::move(node));
    if (!recorded.inserted) {
      recorded.position->second = this;
    }
  }

  // Not to be called any more: forgotten now, freed when nobody holds it. To be called under a
  // Hold.
  void End() {
    m_done = true;
    AntennaEventLoop* const loop = m_route != nullptr ? Living(m_life) : nullptr;
    if (loop == nullptr) {
      return;
    }
    const auto found = (loop->*m_route).find(m_id);
    if (found != (loop->*m_route).end() && found->second == this) {
      (loop->*m_route).erase(found);
    }
  }

 private:
  // Frees, when the library is unloaded, what the host never ran.
  struct All {
    Posted* first;
    ~All() {
      while (first != nullptr) {
        delete first;
      }
    }
  };
  inline static All s_all{nullptr};

  const char* m_name;
  Task m_task;
  Posted* m_next;
  Posted* m_previous = nullptr;
  std::uint64_t m_life = 0;
  Route m_route = nullptr;  // none while the host has not answered
  Id m_id = 0;
  int m_holds = 0;
  bool m_done = false;
};

void AntennaEventLoop::Init(const EventLoopTable& table) {
  const EventLoopTable old = std::exchange(m_table, table);
  m_table.unreadFn = nullptr;
  const bool same_loop = old.addObserverFn == m_table.addObserverFn &&
                         old.removeObserverFn == m_table.removeObserverFn;
  if (m_observer != Observer::kNone && same_loop) {
    return;
  }
  const std::uint64_t life = m_life;
  const bool registered = m_observer == Observer::kRegistered;
  m_observer = Observer::kNone;
  if (registered && old.removeObserverFn != nullptr) {
    old.removeObserverFn(std::exchange(observerId, 0));
  }
  AntennaEventLoop* const loop = Living(life);
  if (loop != nullptr && loop->m_observer == Observer::kNone) {
    loop->RegisterObserver();
  }
}

void AntennaEventLoop::RegisterObserver() {
  if (m_table.addObserverFn == nullptr) {
    return;
  }
  const std::uint64_t life = m_life;
  const std::uint64_t request = ++m_observerRequests;
  auto* const remove = m_table.removeObserverFn;
  m_observer = Observer::kAsked;
  const Id id = m_table.addObserverFn(&RunListeners, nullptr);
  AntennaEventLoop* const loop = Living(life);
  if (loop != nullptr && loop->m_observerRequests == request &&
      loop->m_observer == Observer::kAsked) {
    loop->observerId = id;
    loop->m_observer = Observer::kRegistered;
  } else if (remove != nullptr) {
    remove(id);  // the host ended the plug-in or gave it another loop before it answered
  }
}

void AntennaEventLoop::Uninit() {
  const std::uint64_t life = m_life;
  const bool asked = m_observer == Observer::kAsked;  // RegisterObserver takes it off again
  m_observer = Observer::kNone;
  auto* const remove = std::exchange(m_table.removeObserverFn, nullptr);
  if (remove != nullptr && !asked) {
    remove(std::exchange(observerId, 0));
  }
  while (AntennaEventLoop* const loop = Living(life)) {
    if (loop->m_table.stopTimerFn == nullptr || loop->timers.empty()) {
      return;
    }
    const auto [id, timer] = *loop->timers.begin();
    const Posted::Hold hold(*timer);
    timer->End();
    loop->m_table.stopTimerFn(id);
  }
}

template <typename CallHost>
AntennaEventLoop::Id AntennaEventLoop::Post(Route route, const char* name, Task task,
                                            CallHost call_host) {
  // All that can fail comes before the host is told.
  TaskMap made;
  made.emplace();
  auto* const posted = new Posted(name, std::move(task));
  const Posted::Hold hold(*posted);
  const std::uint64_t life = m_life;
  const Id id = call_host(posted);
  // The host may have run it before it answered.
  if (posted->Done()) {
    return id;
  }
  if (AntennaEventLoop* const loop = Living(life)) {
    posted->Record(*loop, route, id, made.extract(made.begin()));
  }
  return id;
}

AntennaEventLoop::Id AntennaEventLoop::PostTask(Task task) {
  if (m_table.postFn == nullptr) {
    return 0;
  }
  return Post(&AntennaEventLoop::tasks, "PostTask", std::move(task),
              [slot = m_table.postFn](void* context) { return slot(&RunOnce, context); });
}

AntennaEventLoop::Id AntennaEventLoop::PostTaskAlt1(Task task) {
  if (m_table.postAlt1Fn == nullptr) {
    return 0;
  }
  return Post(&AntennaEventLoop::tasksAlt1, "PostTaskAlt1", std::move(task),
              [slot = m_table.postAlt1Fn](void* context) { return slot(&RunOnce, context); });
}

AntennaEventLoop::Id AntennaEventLoop::PostTaskAlt2(Task task) {
  if (m_table.postAlt2Fn == nullptr) {
    return 0;
  }
  return Post(&AntennaEventLoop::tasksAlt2, "PostTaskAlt2", std::move(task),
              [slot = m_table.postAlt2Fn](void* context) { return slot(&RunOnce, context); });
}

AntennaEventLoop::Id AntennaEventLoop::PostDelayedTask(std::uint64_t value, Task task) {
  if (m_table.postDelayedFn == nullptr) {
    return 0;
  }
  return Post(&AntennaEventLoop::delayedTasks, "PostDelayedTask", std::move(task),
              [slot = m_table.postDelayedFn, value](void* context) {
                return slot(value, &RunOnce, context);
              });
}

AntennaEventLoop::Id AntennaEventLoop::StartTimer(std::uint64_t value, Task task) {
  if (m_table.startTimerFn == nullptr) {
    return 0;
  }
  const std::uint64_t life = m_life;
  auto* const stop = m_table.stopTimerFn;
  return Post(&AntennaEventLoop::timers, "StartTimer", std::move(task),
              [slot = m_table.startTimerFn, value, life, stop](void* context) {
                const Id id = slot(value, &RunRepeating, context);
                if (Living(life) == nullptr && stop != nullptr) {  // ended while it was started
                  static_cast<Posted*>(context)->End();
                  stop(id);
                }
                return id;
              });
}

void AntennaEventLoop::RunOnce(void* context) {
  auto* const posted = static_cast<Posted*>(context);
  const Posted::Hold hold(*posted);
  const Posted::EndsHere ends(*posted);
  Guarded(posted->Name(), [posted] { posted->Run(); });
}

void AntennaEventLoop::RunRepeating(void* context) {
  auto* const posted = static_cast<Posted*>(context);
  const Posted::Hold hold(*posted);
  Guarded(posted->Name(), [posted] { posted->Run(); });
}

void AntennaEventLoop::Cancel(Route route, void (*slot)(std::uint64_t), Id id) {
  if (slot == nullptr) {
    return;
  }
  const std::uint64_t life = m_life;
  slot(id);
  AntennaEventLoop* const loop = Living(life);
  if (loop == nullptr) {
    return;
  }
  const auto found = (loop->*route).find(id);
  if (found == (loop->*route).end()) {
    return;
  }
  const Posted::Hold hold(*found->second);
  found->second->End();
}

void AntennaEventLoop::CancelTask(Id id) {
  Cancel(&AntennaEventLoop::tasks, m_table.cancelTaskFn, id);
}
void AntennaEventLoop::CancelTaskAlt1(Id id) {
  Cancel(&AntennaEventLoop::tasksAlt1, m_table.cancelTaskFn, id);
}
void AntennaEventLoop::CancelTaskAlt2(Id id) {
  Cancel(&AntennaEventLoop::tasksAlt2, m_table.cancelAlt2Fn, id);
}
void AntennaEventLoop::CancelDelayedTask(Id id) {
  Cancel(&AntennaEventLoop::delayedTasks, m_table.cancelDelayedFn, id);
}

void AntennaEventLoop::RunBorrowed(void* context) {
  Guarded("RunTaskSync", [context] { (*static_cast<Task*>(context))(); });
}

void AntennaEventLoop::RunTaskSync(Task& task) {
  if (m_table.runSyncFn != nullptr) {
    m_table.runSyncFn(&RunBorrowed, &task);
  }
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
  if (listeners.size() >= m_listenerLimit) {
    throw std::length_error("map/set too long");
  }
  listeners.emplace(id, std::move(listener));
  return id;
}

void AntennaEventLoop::RemoveListener(Id id) {
  listeners.erase(id);
}

void AntennaEventLoop::RunListeners(void*) {
  Guarded("observer", [] {
    const std::uint64_t life = GetInstance()->m_life;
    Id last = 0;  // the first listener has id 1
    while (AntennaEventLoop* const loop = Living(life)) {
      const auto next = loop->listeners.upper_bound(last);
      if (next == loop->listeners.end()) {
        return;
      }
      last = next->first;
      const Task listener = next->second;  // it may remove itself while it runs
      listener();
    }
  });
}

std::uint32_t AntennaEventLoop::Query(std::uint32_t first, std::uint32_t second) const {
  return m_table.queryFn != nullptr ? m_table.queryFn(first, second) : 0;
}

std::uint32_t AntennaEventLoop::Query3(std::uint32_t first, std::uint32_t second,
                                       std::uint32_t third) const {
  return m_table.query3Fn != nullptr ? m_table.query3Fn(first, second, third) : 0;
}

}  // namespace VELLOMAR_CONTROLBAR
