// SPDX-License-Identifier: MIT
// The host's event loop. Times only bound how long a broken loop may hang; no result depends on
// them.
#include "host/event_loop.h"

#include <gtest/gtest.h>

#include <future>
#include <memory>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "host/host_error.h"

namespace vellomar_host {
namespace {

using std::chrono::hours;
using std::chrono::milliseconds;

EventLoop::Clock::time_point Soon() {
  return EventLoop::Clock::now() + std::chrono::seconds(20);
}

TEST(EventLoop, RunsPostedTasksInOrderAndWhatTheyPostAfterThem) {
  EventLoop loop;
  std::string order;
  loop.Post([&] {
    order += 'a';
    loop.Post([&] { order += 'c'; });
  });
  loop.Post([&] { order += 'b'; });
  EXPECT_TRUE(loop.RunUntilIdle(Soon()));
  EXPECT_EQ(order, "abc");
}

TEST(EventLoop, CancelsFromInsideATask) {
  EventLoop loop;
  std::string order;
  EventLoop::Id self = 0;
  EventLoop::Id next = 0;
  self = loop.Post([&] {
    order += 'a';
    loop.Cancel(self);
    loop.Cancel(next);
    loop.Cancel(12345);
  });
  next = loop.Post([&] { order += 'b'; });
  loop.Post([&] { order += 'c'; });
  EXPECT_TRUE(loop.RunUntilIdle(Soon()));
  EXPECT_EQ(order, "ac");
}

TEST(EventLoop, RunsDelayedTasksByDueTimeThenInOrder) {
  EventLoop loop;
  std::string order;
  loop.PostDelayed(hours(1), [&] { order += 'x'; });
  const auto cancelled = loop.PostDelayed(milliseconds(0), [&] { order += 'y'; });
  loop.PostDelayed(milliseconds(0), [&] { order += 'a'; });
  loop.PostDelayed(milliseconds(1), [&] { order += 'b'; });
  loop.PostDelayed(EventLoop::Milliseconds::max(), [&] { order += 'z'; });
  loop.Cancel(cancelled);
  EXPECT_TRUE(loop.RunUntil([&] { return order.size() == 2; }, Soon()));
  EXPECT_EQ(order, "ab");
}

TEST(EventLoop, RepeatsATimerUntilItStopsItself) {
  EventLoop loop;
  int calls = 0;
  // The callable must outlive the call that cancels it.
  auto kept = std::make_shared<int>(0);
  EventLoop::Id timer = 0;
  timer = loop.StartTimer(milliseconds(0), [&, kept] {
    ++calls;
    if (calls == 3) loop.Cancel(timer);
    ++*kept;
  });
  EXPECT_TRUE(loop.RunUntil([&] { return calls == 3; }, Soon()));
  EXPECT_EQ(*kept, 3);
  EXPECT_EQ(kept.use_count(), 1);
}

TEST(EventLoop, CallsObserversEveryTurnUntilRemoved) {
  EventLoop loop;
  std::string order;
  EventLoop::Id once = 0;
  once = loop.AddObserver([&] {
    order += '1';
    loop.RemoveObserver(once);
  });
  loop.AddObserver([&] { order += '2'; });
  EXPECT_TRUE(loop.RunUntilIdle(Soon()));
  EXPECT_TRUE(loop.RunUntilIdle(Soon()));
  EXPECT_EQ(order, "122");
}

TEST(EventLoop, StaysUsableAfterATaskThatThrows) {
  EventLoop loop;
  int runs = 0;
  loop.Post([] { throw std::runtime_error("expected"); });
  loop.Post([&] { ++runs; });
  EXPECT_THROW(loop.RunUntilIdle(Soon()), std::runtime_error);
  EXPECT_TRUE(loop.RunUntilIdle(Soon()));
  EXPECT_EQ(runs, 1);
}

TEST(EventLoop, GivesUpOnATaskThatPostsItselfForEver) {
  EventLoop loop;
  std::function<void()> again = [&] { loop.Post(again); };
  again();
  EXPECT_FALSE(loop.RunUntilIdle(EventLoop::Clock::now()));
}

TEST(EventLoop, RunsSyncOnItsOwnThread) {
  EventLoop loop;
  std::thread::id here;
  loop.RunSync([&] { here = std::this_thread::get_id(); });
  EXPECT_EQ(here, std::this_thread::get_id());

  std::thread::id ran_on;
  std::string thrown;
  std::thread other([&] {
    loop.RunSync([&] { ran_on = std::this_thread::get_id(); });
    try {
      loop.RunSync([] { throw std::runtime_error("expected"); });
    } catch (const std::runtime_error& error) {
      thrown = error.what();
    }
    loop.Quit();
  });
  loop.Run();
  other.join();
  EXPECT_EQ(ran_on, std::this_thread::get_id());
  EXPECT_EQ(thrown, "expected");
}

TEST(EventLoop, ReleasesSyncCallersWhenItsTasksAreForgotten) {
  EventLoop loop;
  std::promise<void> posted;
  loop.SetWaiting({[](std::int32_t) {}, [&] { posted.set_value(); }});
  auto caller = std::async(std::launch::async, [&] { loop.RunSync([] {}); });
  posted.get_future().wait();
  loop.Clear();
  EXPECT_THROW(caller.get(), HostError);
}

TEST(EventLoop, TakesPostsFromManyThreads) {
  constexpr int kThreads = 4;
  constexpr int kPosts = 500;
  EventLoop loop;
  int runs = 0;
  std::vector<std::thread> threads;
  threads.reserve(kThreads);
  for (int i = 0; i < kThreads; ++i) {
    threads.emplace_back([&] {
      for (int k = 0; k < kPosts; ++k) loop.Post([&] { ++runs; });
    });
  }
  EXPECT_TRUE(loop.RunUntil([&] { return runs == kThreads * kPosts; }, Soon()));
  for (auto& thread : threads) thread.join();
}

TEST(EventLoop, WaitsWithTheStrategyThatIsPutIn) {
  EventLoop loop;
  std::vector<std::int32_t> waits;
  int wakes = 0;
  loop.SetWaiting({[&](std::int32_t max_ms) {
                     waits.push_back(max_ms);
                     if (waits.size() == 2) loop.Quit();
                   },
                   [&] { ++wakes; }});
  loop.Post([&] { loop.Post([] {}); });
  loop.PostDelayed(milliseconds(500), [] {});
  EXPECT_EQ(wakes, 2);
  loop.Run();
  ASSERT_EQ(waits.size(), 2U);
  EXPECT_EQ(waits[0], 0) << "a task is posted";
  EXPECT_LE(waits[1], 500) << "a delayed task gets due";
}

void Append(void* context) {
  static_cast<std::string*>(context)->push_back('.');
}

TEST(EventLoopTable, ActsOnTheLoopAndOutlivesIt) {
  std::string calls;
  const EventLoopTable* table = nullptr;
  {
    EventLoop loop;
    table = loop.Table();
    table->postFn(Append, &calls);
    table->postAlt1Fn(Append, &calls);
    table->postAlt2Fn(Append, &calls);
    table->cancelTaskFn(table->postFn(Append, &calls));
    table->cancelTaskFn(table->postAlt1Fn(Append, &calls));
    table->cancelAlt2Fn(table->postAlt2Fn(Append, &calls));
    table->cancelDelayedFn(table->postDelayedFn(0, Append, &calls));
    table->stopTimerFn(table->startTimerFn(0, Append, &calls));
    table->postDelayedFn(UINT64_MAX, Append, &calls);
    EXPECT_TRUE(loop.RunUntilIdle(Soon()));
    EXPECT_EQ(calls, "...");
    table->runSyncFn(Append, &calls);
    EXPECT_NE(table->runSyncAltFn(Append, &calls), 0U);
    EXPECT_EQ(calls, ".....");
    const auto observer = table->addObserverFn(Append, &calls);
    EXPECT_TRUE(loop.RunUntilIdle(Soon()));
    table->removeObserverFn(observer);
    EXPECT_TRUE(loop.RunUntilIdle(Soon()));
    EXPECT_EQ(calls, "......");
  }
  EXPECT_EQ(table->postFn(Append, &calls), 0U);
  table->cancelTaskFn(1);
  table->runSyncFn(Append, &calls);
  EXPECT_EQ(calls, "......");
}

}  // namespace
}  // namespace vellomar_host
