// SPDX-License-Identifier: MIT
// The adapter to the host's event loop, against a host that does what the test says.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "bridge/antenna_event_loop.h"
#include "support/recording_log.h"
#include "support/script_host.h"

namespace {

using VELLOMAR_CONTROLBAR::AntennaEventLoop;
using Id = AntennaEventLoop::Id;
using Task = AntennaEventLoop::Task;
using Calls = std::vector<std::string>;

AntennaEventLoop& Loop() {
  return *AntennaEventLoop::GetInstance();
}

// What ExportedUninit does to the loop.
void EndThePlugIn() {
  Loop().Uninit();
  AntennaEventLoop::DestroyInstance();
}

class EventLoopTest : public testing::Test {
 protected:
  EventLoopTest() {
    Loop().Init(host.Table());
    recording_log::Clear();
  }
  ~EventLoopTest() override {
    AntennaEventLoop::DestroyInstance();
    EXPECT_EQ(Copies(), 0) << "a callable that cannot run any more is still there";
  }

  // A task that counts its runs, and a watch on whether its callable still exists.
  Task Counting() {
    return [this, held = alive] { ++runs; };
  }
  long Copies() const { return alive.use_count() - 1; }

  ScriptHost host;
  int runs = 0;
  std::shared_ptr<int> alive = std::make_shared<int>();
};

struct Route {
  const char* name;
  std::function<Id(AntennaEventLoop&, Task)> post;
  void (AntennaEventLoop::*cancel)(Id);
  std::string post_call, cancel_call;
};

const Route kRoutes[] = {
    {"PostTask", &AntennaEventLoop::PostTask, &AntennaEventLoop::CancelTask, "post", "slot13"},
    {"PostTaskAlt1", &AntennaEventLoop::PostTaskAlt1, &AntennaEventLoop::CancelTaskAlt1, "postAlt1",
     "slot13"},
    {"PostTaskAlt2", &AntennaEventLoop::PostTaskAlt2, &AntennaEventLoop::CancelTaskAlt2, "postAlt2",
     "slot15"},
    {"PostDelayedTask",
     [](AntennaEventLoop& loop, Task task) { return loop.PostDelayedTask(250, std::move(task)); },
     &AntennaEventLoop::CancelDelayedTask, "postDelayed", "cancelDelayed"},
};

class OneShotTest : public EventLoopTest, public testing::WithParamInterface<Route> {
 protected:
  Id Post(Task task) { return GetParam().post(Loop(), std::move(task)); }
  void Cancel(Id id) { (Loop().*GetParam().cancel)(id); }
};

INSTANTIATE_TEST_SUITE_P(Routes, OneShotTest, testing::ValuesIn(kRoutes),
                         [](const auto& route) { return route.param.name; });

TEST_P(OneShotTest, CancelFreesTheTaskAndTellsTheHost) {
  const auto& [name, post, cancel, post_call, cancel_call] = GetParam();
  Cancel(Post(Counting()));
  Cancel(999);  // unknown: the host is told all the same
  EXPECT_EQ(host.calls, (Calls{"addObserver 7", post_call + " 100", cancel_call + " 100",
                               cancel_call + " 999"}));
}

TEST_P(OneShotTest, AHostMayRunTheTaskBeforeItAnswers) {
  host.run_at_once = true;
  EXPECT_EQ(Post(Counting()), 100u);
  EXPECT_EQ(runs, 1);
  Cancel(100);
  // The second copy may get the address of the first; it must be recorded all the same.
  Post([this] {
    host.run_at_once = false;
    Post(Counting());
  });
  Cancel(102);
  EXPECT_EQ(Copies(), 0);
}

TEST_P(OneShotTest, ATaskMayCancelItselfAndThrow) {
  Id id = 0;
  id = Post([this, &id, held = alive] {
    Cancel(id);
    runs += 1 + *held;  // the callable is still there
    throw std::runtime_error("no more");
  });
  Post({});
  EXPECT_EQ(host.RunAll(), 2);
  EXPECT_EQ(runs, 1);
  const std::vector<std::string> faults = recording_log::Texts(4);
  ASSERT_EQ(faults.size(), 2u);
  EXPECT_EQ(faults[0], std::string("[Controlbar] ") + GetParam().name + " failed: no more");
}

TEST_P(OneShotTest, OutlivesTheEventLoopUntilItHasRun) {
  EXPECT_EQ(Post(Counting()), 100u);
  Loop().Uninit();
  AntennaEventLoop::DestroyInstance();
  EXPECT_EQ(Post(Counting()), 0u) << "there is no table any more";
  EXPECT_EQ(host.RunAll(), 1);
  EXPECT_EQ(runs, 1);
}

TEST_P(OneShotTest, ARepeatedIdReplacesTheRecordAndTheFirstStillRuns) {
  Post(Counting());
  const auto first = host.pending.at(100);
  host.next_id = 100;
  Post(Counting());
  first.callback(first.context);
  EXPECT_EQ(runs, 1);
  Cancel(100);
  EXPECT_EQ(Copies(), 0) << "the record is the second task's";
}

TEST_F(EventLoopTest, PassesNumbersOnUnchanged) {
  Loop().PostDelayedTask(0xFFFFFFFFFFFFFFFF, Counting());
  EXPECT_EQ(host.pending.at(100).value, 0xFFFFFFFFFFFFFFFF);
  host.RunAll();
  EXPECT_EQ(Loop().Query(4, 2), 42u);
  EXPECT_EQ(Loop().Query3(1, 2, 3), 123u);
}

TEST_F(EventLoopTest, SyncTasksRunInPlaceWithoutACopy) {
  Task task = Counting();
  Loop().RunTaskSync(task);
  EXPECT_EQ(Loop().RunTaskSyncAlt(task), 42u);
  EXPECT_EQ(runs, 2);
  EXPECT_EQ(Copies(), 1) << "only the caller's own";
  Task empty;
  Loop().RunTaskSync(empty);
  EXPECT_EQ(recording_log::Texts(4).size(), 1u) << "logged, not thrown into the host";
}

TEST_F(EventLoopTest, WithoutSlotsNothingHappens) {
  const Id posted = Loop().PostTask(Counting());
  Loop().Init(EventLoopTable{});
  host.calls.clear();
  Loop().CancelTask(posted);
  EXPECT_EQ(Copies(), 1);
  Task task = Counting();
  Loop().RunTaskSync(task);
  EXPECT_EQ(Loop().RunTaskSyncAlt(task), 0u);
  EXPECT_EQ(Loop().StartTimer(5, task), 0u);
  EXPECT_EQ(Loop().Query(4, 2), 0u);
  EXPECT_EQ(Loop().Query3(1, 2, 3), 0u);
  EXPECT_EQ(host.calls, Calls{});
  EXPECT_EQ(runs, 0);
  host.RunAll();
  EXPECT_EQ(runs, 1);
}

TEST_F(EventLoopTest, TimersRepeatUntilUninitStopsThemInOrder) {
  host.next_id = 30;
  Loop().StartTimer(5, Counting());
  host.next_id = 20;
  Loop().StartTimer(6, Counting());
  for (const Id id : {30u, 30u, 20u}) {
    host.Fire(id);
  }
  EXPECT_EQ(runs, 3);
  EventLoopTable table = host.Table();
  table.stopTimerFn = nullptr;
  Loop().Init(table);
  Loop().Uninit();
  EXPECT_EQ(Copies(), 2) << "they cannot be stopped";
  Loop().Init(host.Table());
  host.calls.clear();
  Loop().Uninit();
  EXPECT_EQ(host.calls, (Calls{"removeObserver 7", "stopTimer 20", "stopTimer 30"}));
  EXPECT_EQ(Copies(), 0);
}

TEST_F(EventLoopTest, ATimerThatEndsThePlugInWhileItFiresAgainLivesUntilItReturns) {
  Loop().StartTimer(5, [this, held = alive] {
    if (++runs == 1) {
      host.Fire(100);
    } else {
      EndThePlugIn();
    }
    EXPECT_EQ(*held, 0);
  });
  host.Fire(100);
  EXPECT_EQ(runs, 2);
}

// What the host does inside a slot may end the plug-in; nothing of the object is touched after
// that, and what the host was just given is taken back.
TEST_F(EventLoopTest, TheHostMayEndThePlugInInsideASlot) {
  const Task task = Counting();
  const struct {
    const char* slot;
    std::function<void()> work;
    Calls calls;
  } cases[] = {
      {"startTimer", [&] { Loop().StartTimer(5, task); }, {"removeObserver 7", "stopTimer 100"}},
      {"slot13",
       [&] { Loop().CancelTask(Loop().PostTask(task)); },
       {"post 101", "slot13 101", "removeObserver 7"}},
      {"post", [&] { Loop().PostTask(task); }, {"post 102", "removeObserver 7"}},
      {"removeObserver", [] { Loop().Uninit(); }, {"removeObserver 7"}},
      {"stopTimer",
       [&] {
         Loop().StartTimer(5, task);
         Loop().StartTimer(6, task);
         Loop().Uninit();
       },
       {"removeObserver 7", "stopTimer 103", "stopTimer 104"}},
      {"addObserver",
       [&] {
         AntennaEventLoop::DestroyInstance();
         Loop().Init(host.Table());
       },
       {"addObserver 7", "removeObserver 7"}},
  };
  for (const auto& [slot, work, calls] : cases) {
    SCOPED_TRACE(slot);
    Loop().Init(host.Table());
    host.inside[slot] = &EndThePlugIn;
    host.calls.clear();
    work();
    EXPECT_EQ(host.calls, calls);
    EXPECT_FALSE(AntennaEventLoop::HasInstance());
  }
  EXPECT_EQ(host.RunAll(), 2) << "what was not cancelled any more may still run";
  EXPECT_EQ(runs, 2);
}

TEST_F(EventLoopTest, TheObserverIsRegisteredOnceWhateverItsId) {
  EndThePlugIn();
  host.observer_id = 0;
  host.calls.clear();
  for (int times = 0; times < 2; ++times) {
    Loop().Init(host.Table());
  }
  Loop().Init({});
  EXPECT_EQ(host.calls, (Calls{"addObserver 0", "removeObserver 0"}));
  EXPECT_EQ(host.observer.context, nullptr);
}

TEST_F(EventLoopTest, AnotherLoopGivenBeforeTheFirstHasAnsweredWins) {
  EndThePlugIn();
  host.inside["addObserver"] = [this] {
    EventLoopTable other_loop = host.Table();
    other_loop.removeObserverFn = [](Id id) { EXPECT_EQ(id, 8u); };
    host.observer_id = 8;
    Loop().Init(other_loop);
  };
  host.calls.clear();
  Loop().Init(host.Table());
  Loop().Uninit();
  EXPECT_EQ(host.calls, (Calls{"addObserver 7", "addObserver 8", "removeObserver 7"}));
}

TEST_F(EventLoopTest, CallsListenersInTheOrderOfTheirIds) {
  host.Turn();  // none: nothing happens
  std::string order;
  Id first = 0;
  first = Loop().AddListener([&, held = alive] {
    Loop().RemoveListener(first);
    Loop().AddListener([&order] { order += 'd'; });
    order += static_cast<char>('a' + *held);  // the callable is still there
  });
  const Id second = Loop().AddListener([&order] { order += 'b'; });
  Loop().AddListener([&order] { order += 'c'; });
  EXPECT_EQ(second, first + 1);
  host.Turn();
  EXPECT_EQ(order, "abcd");
  for (int times = 0; times < 2; ++times) {
    Loop().RemoveListener(second);
  }
  host.Turn();
  EXPECT_EQ(order, "abcdcd");
}

TEST_F(EventLoopTest, AListenerMayThrowAndEndThePlugIn) {
  Loop().AddListener([] {
    EndThePlugIn();
    throw 7;  // of no standard type
  });
  Loop().AddListener([this] { ++runs; });
  host.Turn();
  EXPECT_EQ(runs, 0);
  EXPECT_FALSE(AntennaEventLoop::HasInstance());
  EXPECT_EQ(recording_log::Texts(4).size(), 1u);
}

// Before all other tests: the counter is the process's.
const Id kFirstListener = [] {
  const Id id = Loop().AddListener([] {});
  AntennaEventLoop::DestroyInstance();
  return id;
}();

TEST_F(EventLoopTest, NumbersListenersFromOneAndRefusesThoseAboveTheLimit) {
  EXPECT_EQ(kFirstListener, 1u);
  EXPECT_EQ(AntennaEventLoop::kListenerLimit, 67'108'863u);
  AntennaEventLoop loop(2);
  loop.AddListener([] {});
  const auto second = loop.AddListener([] {});
  EXPECT_THAT([&] { loop.AddListener([] {}); },
              testing::ThrowsMessage<std::length_error>("map/set too long"));
  loop.RemoveListener(second);
  EXPECT_EQ(loop.AddListener([] {}), second + 2) << "the refused one used up an id";
}

}  // namespace
