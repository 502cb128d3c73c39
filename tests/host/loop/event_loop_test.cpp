// SPDX-License-Identifier: MIT
// The host's event loop. Times only bound how long a broken loop may hang; no result depends on
// them.
#include "host/loop/event_loop.h"

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

void AppendDot(void* context) {
  static_cast<std::string*>(context)->push_back('.');
}

class EventLoopTest : public testing::Test {
 protected:
  static EventLoop::Clock::time_point Soon() {
    return EventLoop::Clock::now() + std::chrono::seconds(20);
  }

  EventLoop::Task Add(char letter) {
    return [this, letter] { order += letter; };
  }

  bool RunUntilIdle() { return loop.RunUntilIdle(Soon()); }

  bool RunUntilLetters(std::size_t count) {
    return loop.RunUntil([&] { return order.size() >= count; }, Soon());
  }

  std::string order;  // of what ran, a letter each
  EventLoop loop;
};

TEST_F(EventLoopTest, RunsPostedTasksInOrderAndWhatTheyPostAfterThem) {
  EventLoop::Id self = 0;
  EventLoop::Id cancelled = 0;
  self = loop.Post([&] {
    order += 'a';
    loop.Post(Add('c'));
    for (const EventLoop::Id id : {self, cancelled, EventLoop::Id{12345}}) {
      loop.Cancel(id);
    }
  });
  cancelled = loop.Post(Add('x'));
  loop.Post(Add('b'));
  EXPECT_TRUE(RunUntilIdle());
  EXPECT_EQ(order, "abc");
}

TEST_F(EventLoopTest, RunsDelayedTasksByDueTimeThenInOrder) {
  loop.PostDelayed(hours(1), Add('x'));
  const auto cancelled = loop.PostDelayed(milliseconds(0), Add('y'));
  loop.PostDelayed(milliseconds(0), Add('a'));
  loop.PostDelayed(milliseconds(1), Add('b'));
  loop.PostDelayed(EventLoop::Milliseconds::max(), Add('z'));
  loop.Cancel(cancelled);
  EXPECT_TRUE(RunUntilLetters(2));
  EXPECT_EQ(order, "ab");
}

TEST_F(EventLoopTest, RepeatsATimerUntilItStopsItself) {
  // The callable must outlive the call that cancels it.
  auto kept = std::make_shared<int>(0);
  EventLoop::Id timer = 0;
  timer = loop.StartTimer(milliseconds(0), [&, kept] {
    order += '.';
    if (order == "...") {
      loop.Cancel(timer);
    }
    ++*kept;
  });
  EXPECT_TRUE(RunUntilLetters(3));
  EXPECT_EQ(*kept, 3);
  EXPECT_EQ(kept.use_count(), 1);
}

TEST_F(EventLoopTest, StaysUsableAfterATaskThatThrowsOrNeverEnds) {
  loop.Post([] { throw std::runtime_error("expected"); });
  std::function<void()> again = [&] { loop.Post(again); };
  again();
  EXPECT_THROW(RunUntilIdle(), std::runtime_error);
  EXPECT_FALSE(loop.RunUntilIdle(EventLoop::Clock::now()));
  loop.Clear();
  loop.Post(Add('a'));
  EXPECT_TRUE(RunUntilIdle());
  EXPECT_EQ(order, "a");
}

TEST_F(EventLoopTest, RunsSyncOnItsOwnThread) {
  loop.RunSync(Add('a'));
  EXPECT_EQ(order, "a");

  std::thread::id ran_on;
  const std::jthread other([&] {
    loop.RunSync([&] { ran_on = std::this_thread::get_id(); });
    EXPECT_THROW(loop.RunSync([] { throw std::runtime_error("expected"); }), std::runtime_error);
    loop.Quit();
  });
  loop.Run();
  EXPECT_EQ(ran_on, std::this_thread::get_id());
}

TEST_F(EventLoopTest, ReleasesSyncCallersWhenItsTasksAreForgotten) {
  std::promise<void> posted;
  loop.SetWaiting({[](std::int32_t) {}, [&] { posted.set_value(); }});
  auto caller = std::async(std::launch::async, [&] { loop.RunSync([] {}); });
  posted.get_future().wait();
  loop.Clear();
  EXPECT_THROW(caller.get(), HostError);
}

TEST_F(EventLoopTest, WaitsWithTheStrategyThatIsPutIn) {
  std::vector<std::int32_t> waits;
  loop.SetWaiting({[&](std::int32_t max_ms) {
                     waits.push_back(max_ms);
                     if (waits.size() == 2) {
                       loop.Quit();
                     }
                   },
                   [] {}});
  loop.Post([&] { loop.Post([] {}); });
  loop.PostDelayed(milliseconds(500), [] {});
  loop.Run();
  ASSERT_EQ(waits.size(), 2U);
  EXPECT_EQ(waits[0], 0) << "a task is posted";
  EXPECT_LE(waits[1], 500) << "a delayed task gets due";
}

TEST_F(EventLoopTest, TheTableActsOnTheLoopAndOutlivesIt) {
  const EventLoopTable* table = nullptr;
  {
    EventLoop short_lived;
    table = short_lived.Table();
    for (const auto post : {table->postFn, table->postAlt1Fn, table->postAlt2Fn}) {
      post(AppendDot, &order);
      table->cancelTaskFn(post(AppendDot, &order));
    }
    table->cancelDelayedFn(table->postDelayedFn(0, AppendDot, &order));
    table->stopTimerFn(table->startTimerFn(0, AppendDot, &order));
    table->removeObserverFn(table->addObserverFn(AppendDot, &order));
    table->postDelayedFn(UINT64_MAX, AppendDot, &order);
    short_lived.PostDelayed(milliseconds(2), Add('|'));  // the timer would run before
    EXPECT_TRUE(short_lived.RunUntil([&] { return order.ends_with('|'); }, Soon()));
    EXPECT_NE(table->runSyncAltFn(AppendDot, &order), 0U);
  }
  EXPECT_EQ(table->postFn(AppendDot, &order), 0U);
  table->runSyncFn(AppendDot, &order);
  EXPECT_EQ(order, "...|.");
}

}  // namespace
}  // namespace vellomar_host
