// SPDX-License-Identifier: MIT
// The trace of log lines, and of the plug-in at work: begins and ends pair and nest.
#include "host/trace_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

#include "host/host_error.h"
#include "host/player.h"

namespace vellomar_host {
namespace {

using nlohmann::json;
using testing::Contains;
using testing::ElementsAre;

class TraceFileTest : public testing::Test {
 protected:
  // "B entry", "i text", "E entry", ... in the order of the file.
  static std::vector<std::string> Events(const json& trace) {
    std::vector<std::string> events;
    for (const json& event : trace) {
      events.push_back(event["ph"].get<std::string>() + " " + event["name"].get<std::string>());
    }
    return events;
  }

  json Read() const { return json::parse(ReadFile(file_)); }

  static LogLine Line(std::string text, int microseconds, std::thread::id thread = {}) {
    return {std::chrono::steady_clock::time_point(std::chrono::microseconds(microseconds)), thread,
            "module", 3, std::move(text)};
  }

  const std::filesystem::path file_ =
      std::filesystem::path(testing::TempDir()) /
      (std::string(testing::UnitTest::GetInstance()->current_test_info()->name()) + ".json");
};

TEST_F(TraceFileTest, ScopesNestWhateverTheLinesSay) {
  {
    TraceFile trace(file_);
    trace.Write(Line("exit Before, cost : 1", 100));
    trace.Write(Line("entry Outer", 100));
    trace.Write(Line("entry Inner", 103));
    trace.Write(Line("a \"quoted\" line", 104));
    trace.Write(Line("exit Outer, cost : 0", 110));
    trace.Write(Line("exit Inner, cost : 0", 111));
    trace.Write(Line("exit Outer, cost : soon", 112));
    trace.Write(Line("entry Unfinished", 113));
  }
  const json events = Read();
  EXPECT_THAT(Events(events),
              ElementsAre("B Outer", "B Inner", "i a \"quoted\" line", "E Inner", "E Outer",
                          "i exit Outer, cost : soon", "B Unfinished", "E Unfinished"));
  EXPECT_EQ(events[0]["ts"], 0);
  EXPECT_EQ(events[1]["ts"], 3);
  EXPECT_EQ(events[1]["cat"], "module");
}

TEST_F(TraceFileTest, ThreadsHaveStacksOfTheirOwn) {
  std::thread::id other;
  std::thread([&other] { other = std::this_thread::get_id(); }).join();
  {
    TraceFile trace(file_);
    trace.Write(Line("entry A", 1));
    trace.Write(Line("entry B", 2, other));
    trace.Write(Line("exit A, cost : 0", 3));
    trace.Write(Line("exit B, cost : 0", 2, other));  // its clock was read before A's exit
  }
  const json events = Read();
  EXPECT_THAT(Events(events), ElementsAre("B A", "B B", "E A", "E B"));
  EXPECT_EQ(events[0]["tid"], events[2]["tid"]);
  EXPECT_NE(events[0]["tid"], events[1]["tid"]);
  EXPECT_EQ(events[3]["ts"], 2);
}

TEST_F(TraceFileTest, HoldsThePluginsScopesFromTheFirstToTheLast) {
  {
    TraceFile trace(file_);
    std::ostringstream out;
    Transcript transcript(out, Transcript::Form::kNone);
    PlayOptions options{.files = {VELLOMAR_PLUGIN_PATH, VELLOMAR_WIDGETS_PATH, ""},
                        .on_log = [&](const LogLine& line) { trace.Write(line); }};
    const auto scenario = ParseScenario(
        R"({"steps": [{"send": "setHostType", "args": {"type": 1}}, {"waitIdle": true}]})", "s");
    ASSERT_EQ(PlayScenario(scenario, options, transcript), std::nullopt);
  }
  const auto events = Events(Read());
  EXPECT_EQ(events.front(), "B ExportedInit");
  EXPECT_THAT(events, Contains("E setHostType"));
  EXPECT_EQ(events.back(), "E ExportedUninit");
}

TEST_F(TraceFileTest, AFileThatCannotBeWrittenIsTold) {
  EXPECT_THROW(TraceFile("/proc/no/such/folder/trace.json"), HostError);
}

}  // namespace
}  // namespace vellomar_host
