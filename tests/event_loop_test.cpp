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

class EventLoopTest : public testing::Test {
 protected:
  void SetUp() override { Loop().Init(host.Table()); }
  void TearDown() override {
    AntennaEventLoop::DestroyInstance();
    EXPECT_EQ(Copies(), 0) << "a callable that cannot run any more is still there";
  }

  static AntennaEventLoop& Loop() { return *AntennaEventLoop::GetInstance(); }

  // A task that counts its runs, and a watch on whether its callable still exists.
  Task Counting() {
    return [this, alive = alive] { ++runs; };
  }
  long Copies() const { return alive.use_count() - 1; }
  // What ExportedUninit does to the loop.
  static void EndThePlugIn() {
    Loop().Uninit();
    AntennaEventLoop::DestroyInstance();
  }

  ScriptHost host;
  int runs = 0;
  std::shared_ptr<int> alive = std::make_shared<int>();
};

struct Route {
  const char* name;
  const char* entry;
  std::function<Id(AntennaEventLoop&, Task)> post;
  void (AntennaEventLoop::*cancel)(Id);
  std::size_t (AntennaEventLoop::*count)() const;
  const char* cancel_call;
  decltype(EventLoopTable::cancelTaskFn) EventLoopTable::*cancel_slot;
};

const Route kRoutes[] = {
    {"post", "PostTask", &AntennaEventLoop::PostTask, &AntennaEventLoop::CancelTask,
     &AntennaEventLoop::TaskCount, "slot13", &EventLoopTable::cancelTaskFn},
    {"alt1", "PostTaskAlt1", &AntennaEventLoop::PostTaskAlt1, &AntennaEventLoop::CancelTaskAlt1,
     &AntennaEventLoop::TaskAlt1Count, "slot13", &EventLoopTable::cancelTaskFn},
    {"alt2", "PostTaskAlt2", &AntennaEventLoop::PostTaskAlt2, &AntennaEventLoop::CancelTaskAlt2,
     &AntennaEventLoop::TaskAlt2Count, "slot15", &EventLoopTable::cancelAlt2Fn},
    {"delayed", "PostDelayedTask",
     [](AntennaEventLoop& loop, Task task) { return loop.PostDelayedTask(250, std::move(task)); },
     &AntennaEventLoop::CancelDelayedTask, &AntennaEventLoop::DelayedTaskCount, "cancelDelayed",
     &EventLoopTable::cancelDelayedFn},
};

class OneShotTest : public EventLoopTest, public testing::WithParamInterface<Route> {
 protected:
  void TearDown() override {
    EXPECT_EQ(Recorded(), 0u);
    EventLoopTest::TearDown();
  }

  Id Post(Task task) { return GetParam().post(Loop(), std::move(task)); }
  void Cancel(Id id) { (Loop().*GetParam().cancel)(id); }
  std::size_t Recorded() const { return (Loop().*GetParam().count)(); }
};

TEST_P(OneShotTest, RunsOnceAndIsForgotten) {
  EXPECT_EQ(Post(Counting()), 100u);
  EXPECT_EQ(Recorded(), 1u);
  EXPECT_EQ(host.RunAll(), 1);
  EXPECT_EQ(runs, 1);
}

TEST_P(OneShotTest, CancelFreesTheTaskAndTellsTheHost) {
  Cancel(Post(Counting()));
  EXPECT_EQ(host.calls.back(), GetParam().cancel_call + std::string(" 100"));
  Cancel(999);  // unknown: the host is told all the same
  EXPECT_EQ(host.calls.back(), GetParam().cancel_call + std::string(" 999"));
}

TEST_P(OneShotTest, CancelWithoutASlotKeepsTheTask) {
  EventLoopTable table = host.Table();
  table.*GetParam().cancel_slot = nullptr;
  Loop().Init(table);
  Cancel(Post(Counting()));
  EXPECT_EQ(Recorded(), 1u);
  host.RunAll();
  EXPECT_EQ(runs, 1);
}

TEST_P(OneShotTest, AHostMayRunTheTaskBeforeItAnswers) {
  host.run_at_once = true;
  EXPECT_EQ(Post(Counting()), 100u);
  EXPECT_EQ(runs, 1);
  EXPECT_EQ(Recorded(), 0u);
  // The second copy may get the address of the first; it must be recorded all the same.
  Post([this] {
    host.run_at_once = false;
    Post(Counting());
  });
  EXPECT_EQ(Recorded(), 1u);
  EXPECT_EQ(host.RunAll(), 1);
  EXPECT_EQ(runs, 2);
}

TEST_P(OneShotTest, ATaskMayCancelItself) {
  Id id = 0;
  id = Post([this, &id, alive = alive] {
    Cancel(id);
    EXPECT_EQ(*alive, 0);  // the callable is still there
    ++runs;
  });
  host.RunAll();
  EXPECT_EQ(runs, 1);
}

TEST_P(OneShotTest, WhatATaskThrowsIsLoggedAndTheTaskIsForgotten) {
  recording_log::Clear();
  Post([alive = alive] { throw std::runtime_error("no more"); });
  Post({});
  EXPECT_EQ(host.RunAll(), 2);
  const std::vector<std::string> faults = recording_log::Texts(4);
  ASSERT_EQ(faults.size(), 2u);
  EXPECT_EQ(faults[0], std::string("[Controlbar] ") + GetParam().entry + " failed: no more");
}

TEST_P(OneShotTest, WithoutATableNothingHappens) {
  AntennaEventLoop::DestroyInstance();
  EXPECT_EQ(Post(Counting()), 0u);
  EXPECT_TRUE(host.pending.empty());
}

TEST_P(OneShotTest, OutlivesTheEventLoopUntilItHasRun) {
  Post(Counting());
  Loop().Uninit();
  EXPECT_EQ(Recorded(), 1u);
  AntennaEventLoop::DestroyInstance();
  EXPECT_EQ(host.RunAll(), 1);
  EXPECT_EQ(runs, 1);
}

TEST_P(OneShotTest, ARepeatedIdReplacesTheRecordAndBothRun) {
  Post(Counting());
  const auto first = host.pending.at(100);
  host.next_id = 100;
  Post(Counting());
  EXPECT_EQ(Recorded(), 1u);
  first.callback(first.context);
  EXPECT_EQ(Recorded(), 1u) << "the record is the second task's";
  host.RunAll();
  EXPECT_EQ(runs, 2);
}

INSTANTIATE_TEST_SUITE_P(Routes, OneShotTest, testing::ValuesIn(kRoutes),
                         [](const auto& route) { return route.param.name; });

TEST_F(EventLoopTest, PassesNumbersOnUnchanged) {
  Loop().PostDelayedTask(0xFFFFFFFFFFFFFFFF, Counting());
  EXPECT_EQ(host.pending.at(100).value, 0xFFFFFFFFFFFFFFFF);
  host.RunAll();
  EXPECT_EQ(Loop().Query(4, 2), 42u);
  EXPECT_EQ(Loop().Query3(1, 2, 3), 123u);
  Loop().Init(EventLoopTable{});
  EXPECT_EQ(Loop().Query(4, 2), 0u);
  EXPECT_EQ(Loop().Query3(1, 2, 3), 0u);
}

TEST_F(EventLoopTest, TimersRepeatUntilUninitStopsThemInOrder) {
  host.next_id = 30;
  const auto late = Loop().StartTimer(5, Counting());
  host.next_id = 20;
  const auto early = Loop().StartTimer(6, Counting());
  host.Fire(late);
  host.Fire(late);
  host.Fire(early);
  EXPECT_EQ(runs, 3);
  host.calls.clear();
  Loop().Uninit();
  EXPECT_EQ(host.calls, (Calls{"removeObserver 7", "stopTimer 20", "stopTimer 30"}));
  EXPECT_EQ(Loop().TimerCount(), 0u);
}

TEST_F(EventLoopTest, UninitWithoutSlotsKeepsTheTimers) {
  Loop().Init(EventLoopTable{});
  EXPECT_EQ(Loop().StartTimer(5, {}), 0u);
  Loop().Init(host.Table());
  Loop().StartTimer(5, Counting());
  EventLoopTable table = host.Table();
  table.stopTimerFn = nullptr;
  table.removeObserverFn = nullptr;
  Loop().Init(table);
  host.calls.clear();
  Loop().Uninit();
  EXPECT_TRUE(host.calls.empty());
  EXPECT_EQ(Loop().TimerCount(), 1u);
  Loop().Init(host.Table());
  Loop().Uninit();
}

TEST_F(EventLoopTest, SyncTasksRunInPlaceWithoutACopy) {
  Task task = Counting();
  Loop().RunTaskSync(task);
  EXPECT_EQ(Loop().RunTaskSyncAlt(task), 42u);
  EXPECT_EQ(runs, 2);
  EXPECT_EQ(Copies(), 1) << "only the caller's own";
  Task empty;
  recording_log::Clear();
  Loop().RunTaskSync(empty);
  EXPECT_EQ(recording_log::Texts(4).size(), 1u) << "logged, not thrown into the host";
  Loop().Init(EventLoopTable{});
  Loop().RunTaskSync(task);
  EXPECT_EQ(Loop().RunTaskSyncAlt(task), 0u);
  EXPECT_EQ(runs, 2);
}

TEST_F(EventLoopTest, ATimerThatEndsThePlugInWhileItFiresAgainLivesUntilItReturns) {
  Id id = 0;
  id = Loop().StartTimer(5, [this, &id, alive = alive] {
    if (++runs == 1) {
      host.Fire(id);
    } else {
      EndThePlugIn();
    }
    EXPECT_EQ(*alive, 0);
  });
  host.Fire(id);
  EXPECT_EQ(runs, 2);
}

TEST_F(EventLoopTest, AListenerMayEndThePlugIn) {
  Loop().AddListener([this] { EndThePlugIn(); });
  Loop().AddListener([this] { ++runs; });
  host.Turn();
  EXPECT_EQ(runs, 0);
  EXPECT_FALSE(AntennaEventLoop::HasInstance());
}

// What the host does inside a slot may end the plug-in; nothing of the object is touched after
// that, and what the host was just given is taken back.
TEST_F(EventLoopTest, TheHostMayEndThePlugInInsideASlot) {
  const auto in = [this](const char* slot, const std::function<void()>& work) {
    SCOPED_TRACE(slot);
    Loop().Init(host.Table());
    host.inside[slot] = [this] { EndThePlugIn(); };
    host.calls.clear();
    work();
    EXPECT_TRUE(host.inside.empty());
    EXPECT_FALSE(AntennaEventLoop::HasInstance());
    return host.calls;
  };
  EXPECT_EQ(in("startTimer", [this] { Loop().StartTimer(5, Counting()); }),
            (Calls{"removeObserver 7", "stopTimer 100"}));
  EXPECT_EQ(Copies(), 0);
  EXPECT_EQ(in("slot13", [this] { Loop().CancelTask(Loop().PostTask(Counting())); }),
            (Calls{"post 101", "slot13 101", "removeObserver 7"}));
  host.Run(101);  // was not cancelled any more: the host may still run it
  EXPECT_EQ(runs, 1);
  EXPECT_EQ(in("post", [this] { Loop().PostTask(Counting()); }),
            (Calls{"post 102", "removeObserver 7"}));
  host.Run(102);
  EXPECT_EQ(runs, 2);
  EXPECT_EQ(in("removeObserver", [] { Loop().Uninit(); }), (Calls{"removeObserver 7"}));
  EXPECT_EQ(in("stopTimer",
               [this] {
                 Loop().StartTimer(5, Counting());
                 Loop().StartTimer(6, Counting());
                 Loop().Uninit();
               }),
            (Calls{"removeObserver 7", "stopTimer 103", "stopTimer 104"}));
  EXPECT_EQ(in("addObserver",
               [this] {
                 AntennaEventLoop::DestroyInstance();
                 Loop().Init(host.Table());
               }),
            (Calls{"addObserver 7", "removeObserver 7"}));
}

class ObserverTest : public EventLoopTest {
 protected:
  // The same host with an observer list of another loop.
  EventLoopTable OtherLoop() const {
    EventLoopTable table = host.Table();
    table.addObserverFn = [](LoopCallback*, void*) -> std::uint64_t {
      other.push_back("add");
      return 0;  // an id like any other
    };
    table.removeObserverFn = [](std::uint64_t id) {
      other.push_back("remove " + std::to_string(id));
    };
    return table;
  }
  ObserverTest() { other.clear(); }

  inline static Calls other;
};

TEST_F(ObserverTest, IsRegisteredOnceAndMovesToAnotherLoopAndBack) {
  Loop().Init(host.Table());
  EXPECT_EQ(host.calls, Calls{"addObserver 7"});
  Loop().Uninit();
  Loop().Init(host.Table());
  EXPECT_EQ(host.calls.back(), "addObserver 7");
  Loop().Init(OtherLoop());
  EXPECT_EQ(host.calls.back(), "removeObserver 7");
  Loop().Init(OtherLoop());
  EXPECT_EQ(other, Calls{"add"}) << "id 0 is an observer too";
  Loop().Init(host.Table());
  EXPECT_EQ(other, (Calls{"add", "remove 0"}));
  EXPECT_EQ(host.calls.back(), "addObserver 7");
  Loop().Init({});
  EXPECT_EQ(host.calls.back(), "removeObserver 7") << "also where the new loop has no observers";
  Loop().Uninit();
  EXPECT_EQ(other.size(), 2u);
}

TEST_F(ObserverTest, AnotherLoopGivenBeforeTheFirstHasAnsweredWins) {
  AntennaEventLoop::DestroyInstance();
  host.inside["addObserver"] = [this] { Loop().Init(OtherLoop()); };
  host.calls.clear();
  Loop().Init(host.Table());
  EXPECT_EQ(host.calls, (Calls{"addObserver 7", "removeObserver 7"}));
  Loop().Uninit();
  EXPECT_EQ(other, (Calls{"add", "remove 0"}));
}

TEST_F(EventLoopTest, CallsListenersInTheOrderOfTheirIds) {
  host.Turn();  // none: nothing happens
  std::string order;
  const auto first = Loop().AddListener([&order] { order += 'a'; });
  const auto second = Loop().AddListener([&order] { order += 'b'; });
  Loop().AddListener([&order] { order += 'c'; });
  EXPECT_EQ(second, first + 1);
  host.Turn();
  EXPECT_EQ(order, "abc");
  Loop().RemoveListener(second);
  Loop().RemoveListener(second);
  host.Turn();
  EXPECT_EQ(order, "abcac");
}

TEST_F(EventLoopTest, AListenerMayRemoveItselfAndAddOthers) {
  Id self = 0;
  self = Loop().AddListener([this, &self, alive = alive] {
    Loop().RemoveListener(self);
    Loop().AddListener([this] { ++runs; });
    runs += 10 + *alive;
  });
  host.Turn();
  EXPECT_EQ(runs, 11);
}

TEST_F(EventLoopTest, WhatAListenerThrowsIsLogged) {
  Loop().AddListener({});
  recording_log::Clear();
  host.Turn();
  EXPECT_EQ(recording_log::Texts(4).size(), 1u);
}

TEST_F(EventLoopTest, RefusesMoreListenersThanTheLimit) {
  EXPECT_EQ(AntennaEventLoop::kListenerLimit, 67'108'863u);
  Loop().SetListenerLimit(2);
  Loop().AddListener([] {});
  const auto second = Loop().AddListener([] {});
  EXPECT_THAT([] { Loop().AddListener([] {}); },
              testing::ThrowsMessage<std::length_error>("map/set too long"));
  Loop().RemoveListener(second);
  EXPECT_EQ(Loop().AddListener([] {}), second + 2) << "the refused one used up an id";
}

TEST(ListenerIdTest, StartAtOne) {
  // The counter is the process's: this holds in a process of its own, where ctest runs it.
  if (testing::UnitTest::GetInstance()->test_to_run_count() > 1) GTEST_SKIP();
  EXPECT_EQ(AntennaEventLoop::GetInstance()->AddListener([] {}), 1u);
  AntennaEventLoop::DestroyInstance();
}

}  // namespace
