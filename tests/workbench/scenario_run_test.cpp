// SPDX-License-Identifier: MIT
// Scenarios on the bench: as a whole, step by step, and those that fail.
#include "tools/workbench/scenario_run.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>

#include "tests/workbench/bench_fixture.h"
#include "tools/workbench/unattended.h"

namespace vellomar_workbench {
namespace {

using State = StepModel::State;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Optional;

class ScenarioRunTest : public BenchTest {
 protected:
  ScenarioRunTest() {
    run.SetUnattended(true);
    run.SetPictureFolder(Scratch("pictures"));
  }

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

  ScenarioRun run{bench};
};

TEST_F(ScenarioRunTest, PlaysThePresetsInEveryLanguage) {
  for (const Preset& preset : ListPresets(VELLOMAR_SCENARIOS)) {
    for (const std::string& language : ListLanguages(VELLOMAR_SCENARIOS)) {
      run.adapt = [&](vellomar_host::SendStep& send) {
        if (send.command->name != "setTextMap") return;
        send.arguments = ReadTexts(VELLOMAR_SCENARIOS, language);
        send.written = send.arguments;
      };
      ASSERT_EQ(run.Open(preset.file), std::nullopt);
      EXPECT_EQ(PlayAll(), std::nullopt) << preset.name << " " << language;
      EXPECT_TRUE(bench.bar_exists()) << preset.name;
      EXPECT_NE(Cell(1014, ButtonModel::kText), "") << preset.name;
    }
  }
}

TEST_F(ScenarioRunTest, PlaysTheProjectsScenarios) {
  for (const auto& entry : std::filesystem::directory_iterator(VELLOMAR_SCENARIOS)) {
    if (entry.path().extension() != ".json") continue;
    ASSERT_EQ(run.Open(entry.path()), std::nullopt);
    EXPECT_EQ(PlayAll(), std::nullopt);
    EXPECT_TRUE(run.IsOver());
  }
}

TEST_F(ScenarioRunTest, StepsOneByOneAndBeginsAgainAfterTheLast) {
  ASSERT_EQ(Open("{\"send\": \"setHostType\", \"args\": {\"type\": 1}},\n{\"note\": \"n\"}"),
            std::nullopt);
  ASSERT_TRUE(StepOnce());
  EXPECT_EQ(run.steps().StateOf(0), State::kDone);
  EXPECT_EQ(run.steps().StateOf(1), State::kWaiting);
  EXPECT_EQ(run.steps().index(0, StepModel::kStep).data(), "send setHostType {\"type\":1}");
  ASSERT_TRUE(StepOnce());
  EXPECT_TRUE(run.IsOver());
  run.Step();
  ASSERT_TRUE(Until([&] { return run.current() == 1; }));
  EXPECT_EQ(run.steps().StateOf(1), State::kWaiting);
}

TEST_F(ScenarioRunTest, AFailedStepStopsPlayingAndSaysWhy) {
  ASSERT_EQ(Open("{\"note\": \"n\"},\n{\"press\": \"Leave\"},\n{\"note\": \"m\"}"), std::nullopt);
  EXPECT_THAT(PlayAll(), Optional(EndsWith("s.json:3: a user could not press Leave now")));
  EXPECT_EQ(run.steps().StateOf(1), State::kFailed);
  EXPECT_EQ(run.steps().index(1, StepModel::kResult).data(), "a user could not press Leave now");
  EXPECT_EQ(run.steps().StateOf(2), State::kWaiting);
  EXPECT_TRUE(StepOnce()) << "a tester may look at what comes after";
  EXPECT_EQ(run.steps().StateOf(2), State::kDone);
}

TEST_F(ScenarioRunTest, WaitsInQtsLoopAndGivesUp) {
  ASSERT_EQ(Open("{\"waitFor\": {\"notification\": \"chat\"}, \"within\": 10}"), std::nullopt);
  EXPECT_THAT(PlayAll(), Optional(HasSubstr("no chat {} within 10 ms")));
}

TEST_F(ScenarioRunTest, AWaitingStepGoesOnWhenTheNotificationComes) {
  ASSERT_EQ(Open("{\"waitFor\": {\"notification\": \"controlbarCreated\"}, \"within\": 60000}"),
            std::nullopt);
  run.Play();
  ASSERT_TRUE(Until([&] { return run.steps().StateOf(0) == State::kRunning; }));
  ShowBar();
  EXPECT_EQ(WaitForEnd(run), std::nullopt);
}

TEST_F(ScenarioRunTest, UnloadingWhileAStepWaitsEndsTheWait) {
  ASSERT_EQ(Open("{\"waitFor\": {\"notification\": \"chat\"}, \"within\": 60000}"), std::nullopt);
  run.Play();
  ASSERT_TRUE(Until([&] { return run.steps().StateOf(0) == State::kRunning; }));
  ASSERT_EQ(bench.Restart(), std::nullopt);
  EXPECT_TRUE(Until([&] { return run.steps().StateOf(0) == State::kFailed; }));
  EXPECT_EQ(run.steps().index(0, StepModel::kResult).data(), "the plug-in was unloaded");
  EXPECT_FALSE(run.IsPlaying());
}

TEST_F(ScenarioRunTest, AFileWithFaultsLeavesTheScenarioThatIsOpen) {
  ASSERT_EQ(Open("{\"note\": \"n\"}"), std::nullopt);
  EXPECT_THAT(Open("{\"pres\": \"Leave\"}"), Optional(HasSubstr("s.json:2: ")));
  EXPECT_THAT(run.Open("/no/such/file.json"), Optional(HasSubstr("cannot read")));
  EXPECT_EQ(run.steps().rowCount(), 1);
  EXPECT_EQ(PlayAll(), std::nullopt);
}

TEST_F(ScenarioRunTest, TheBarIsTheUsersUntilTheyGoOn) {
  run.SetUnattended(false);
  const auto display = R"({"x": 0, "y": 0, "width": 800, "height": 600})";
  ASSERT_EQ(Open(std::string("{\"send\": \"showSharedControlbar\", \"args\": {\"display\": ") +
                 display + "}},\n{\"keepOpen\": true},\n{\"closeBar\": true}"),
            std::nullopt);
  run.Play();
  ASSERT_TRUE(Until([&] { return run.steps().StateOf(1) == State::kDone && !run.IsPlaying(); }));
  EXPECT_TRUE(bench.bar_exists());
  EXPECT_EQ(PlayAll(), std::nullopt);
  EXPECT_FALSE(bench.bar_exists());
}

}  // namespace
}  // namespace vellomar_workbench
