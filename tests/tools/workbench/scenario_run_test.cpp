// SPDX-License-Identifier: MIT
// Scenarios on a watched plug-in: as a whole, step by step, and those that fail.
#include "tools/workbench/scenario_run.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <fstream>

#include "tools/workbench/unattended.h"
#include "tools/workbench/watched_plugin_fixture.h"

namespace vellomar_workbench {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::Optional;

class ScenarioRunTest : public WatchedPluginTest {
 protected:
  Fault Open(const std::string& steps) {
    const auto file = Scratch("s.json");
    std::ofstream(file) << "{\"steps\": [\n" << steps << "]}";
    return run.Open(file);
  }

  Fault PlayAll() {
    run.Play();
    return WaitForEnd(run);
  }

  // A step that is no note ends in one of these two.
  bool StepOnce() {
    const int before = run.current();
    run.Step();
    return Until([&] { return run.current() == before + 1; });
  }

  void PlayUntilItWaitsFor(const char* notification, int within) {
    const nlohmann::json step = {{"waitFor", {{"notification", notification}}}, {"within", within}};
    ASSERT_EQ(Open(step.dump()), std::nullopt);
    run.Play();
    ASSERT_TRUE(Until([&] { return Result(0) == "waits"; }));
  }

  // What became of the step; empty: not yet its turn.
  QString Result(int step) { return run.steps().index(step, StepModel::kResult).data().toString(); }

  ScenarioRun run{watched};
  QAbstractItemModelTester tester{&run.steps(),
                                  QAbstractItemModelTester::FailureReportingMode::Fatal};
};

TEST_F(ScenarioRunTest, AFailedStepStopsPlayingAndSaysWhy) {
  ASSERT_EQ(Open("{\"note\": \"n\"},\n{\"press\": \"Leave\"},\n{\"note\": \"m\"}"), std::nullopt);
  EXPECT_THAT(PlayAll(), Optional(EndsWith("s.json:3: a user could not press Leave now")));
  EXPECT_EQ(run.steps().index(1, StepModel::kStep).data(), "press Leave");
  EXPECT_EQ(Result(1), "a user could not press Leave now");
  EXPECT_EQ(Result(2), "");
  EXPECT_TRUE(StepOnce()) << "a tester may look at what comes after";
  EXPECT_EQ(Result(2), "done");
  run.Step();
  EXPECT_TRUE(Until([&] { return run.current() == 1; })) << "after the last the first comes again";
  EXPECT_EQ(Result(1), "");
  EXPECT_THAT(Open("{\"pres\": \"Leave\"}"), Optional(HasSubstr("s.json:2: ")));
  EXPECT_EQ(run.steps().rowCount(), 3) << "the scenario that is open stays";
}

TEST_F(ScenarioRunTest, AStepWaitsForItsNotificationOrGivesUp) {
  PlayUntilItWaitsFor("controlbarCreated", 60'000);
  ShowBar();
  EXPECT_EQ(WaitForEnd(run), std::nullopt);
  PlayUntilItWaitsFor("chat", 10);
  EXPECT_THAT(WaitForEnd(run), Optional(HasSubstr("no chat {} within 10 ms")));
}

TEST_F(ScenarioRunTest, UnloadingWhileAStepWaitsEndsTheWait) {
  PlayUntilItWaitsFor("chat", 60'000);
  ASSERT_EQ(watched.Restart(), std::nullopt);
  EXPECT_TRUE(Until([&] { return Result(0) == "the plug-in was unloaded"; }));
  EXPECT_FALSE(run.IsPlaying());
}

TEST_F(ScenarioRunTest, TheBarIsTheUsersUntilTheyGoOn) {
  ASSERT_EQ(Open(R"({"send": "showSharedControlbar",
                     "args": {"display": {"x": 0, "y": 0, "width": 800, "height": 600}}},
                    {"keepOpen": true}, {"note": "n"})"),
            std::nullopt);
  run.Play();
  ASSERT_TRUE(Until([&] { return Result(1) == "done" && !run.IsPlaying(); }));
  EXPECT_EQ(Result(2), "");
  EXPECT_EQ(PlayAll(), std::nullopt);
  EXPECT_TRUE(watched.bar_exists());
  run.SetUnattended(true);
  EXPECT_EQ(PlayAll(), std::nullopt);
  EXPECT_FALSE(watched.bar_exists()) << "nobody is there to close it";
}

}  // namespace
}  // namespace vellomar_workbench
