// SPDX-License-Identifier: MIT
// The trace of log lines: begins and ends pair and nest.
#include "host/scenario/trace_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <thread>

#include "host/host_error.h"
#include "host/scenario/scenario.h"

namespace vellomar_host {
namespace {

using nlohmann::json;
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

  const std::filesystem::path file_ =
      std::filesystem::path(testing::TempDir()) /
      (std::string(testing::UnitTest::GetInstance()->current_test_info()->name()) + ".json");
};

TEST_F(TraceFileTest, ScopesNestWhateverTheLinesSay) {
  const std::thread::id one;
  std::thread::id two;
  std::thread([&two] { two = std::this_thread::get_id(); }).join();
  const struct {
    const char* text;
    int microseconds;
    std::thread::id thread;
  } lines[] = {{"exit Before, cost : 1", 100, one}, {"entry Outer", 100, one},
               {"entry Inner", 103, one},           {"entry Beside", 104, two},
               {"a \"quoted\" line", 105, one},     {"exit Outer, cost : 0", 110, one},
               {"exit Beside, cost : 0", 109, two},  // the clock was read before the other's
               {"exit Inner, cost : 0", 111, one},  {"exit Outer, cost : soon", 112, one},
               {"entry Unfinished", 113, one}};
  {
    TraceFile trace(file_);
    for (const auto& [text, microseconds, thread] : lines) {
      const std::chrono::steady_clock::time_point when{std::chrono::microseconds(microseconds)};
      trace.Write({when, thread, "module", 3, text});
    }
  }
  const json events = Read();
  EXPECT_THAT(
      Events(events),
      ElementsAre("B Outer", "B Inner", "B Beside", "i a \"quoted\" line", "E Inner", "E Outer",
                  "E Beside", "i exit Outer, cost : soon", "B Unfinished", "E Unfinished"));
  EXPECT_EQ(events[0]["ts"], 0);
  EXPECT_EQ(events[1]["ts"], 3);
  EXPECT_EQ(events[6]["ts"], 10) << "time does not go back";
  EXPECT_EQ(events[0]["tid"], events[1]["tid"]);
  EXPECT_NE(events[0]["tid"], events[2]["tid"]);
}

TEST_F(TraceFileTest, AFileThatCannotBeWrittenIsTold) {
  EXPECT_THROW(TraceFile("/proc/no/such/folder/trace.json"), HostError);
}

}  // namespace
}  // namespace vellomar_host
