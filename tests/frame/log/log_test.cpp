// SPDX-License-Identifier: MIT
// The log front and the record of function statistics.
#include "frame/log/log.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <ctime>
#include <limits>
#include <string>

#include "frame/log/function_statistics.h"
#include "frame/log/trace_scope.h"
#include "support/recording_log.h"

namespace {

using recording_log::Line;
using testing::ElementsAre;
using VELLOMAR_LOG::FunctionStatistics;

TEST(LogTest, LongLinesAreWrittenWholeAndATextWithoutArgumentsMayHoldBraces) {
  recording_log::Clear();
  const std::string text(5000, 'x');
  VELLOMAR_LOG::Info("{}!", text);
  VELLOMAR_LOG::Fault("a {} that is none");
  EXPECT_THAT(recording_log::Lines(),
              ElementsAre(Line{"vellomar_controlbar", 3, text + "!"},
                          Line{"vellomar_controlbar", 4, "a {} that is none"}));
}

TEST(LogTest, AScopeNamesItsModuleAndCostsMilliseconds) {
  const std::uint64_t start = VELLOMAR_LOG::NowMilliseconds();
  EXPECT_NEAR(static_cast<double>(start) / 1'000, static_cast<double>(std::time(nullptr)), 2);
  {
    const VELLOMAR_LOG::TraceScope scope("Work", "Of::", "other");
  }
  const Line exit = recording_log::Lines().back();
  EXPECT_EQ(exit.module, "other");
  EXPECT_LE(std::stoull(exit.text.substr(exit.text.rfind(' '))),
            VELLOMAR_LOG::NowMilliseconds() - start);
}

TEST(LogTest, StatisticsWriteTheirAverageAndDoNotDivideByZero) {
  recording_log::Clear();
  {
    FunctionStatistics none("Idle");
    EXPECT_EQ(none.threshold, std::numeric_limits<std::int64_t>::max());
    FunctionStatistics some("Busy", 12);
    EXPECT_EQ(some.threshold, 12);
    some.count = 3;
    some.total_cost = 10;
  }
  EXPECT_THAT(recording_log::Lines(),
              ElementsAre(Line{"PCSDK", 3, "Function Busy be executed 3,cost 10us,avg 3us"},
                          Line{"PCSDK", 3, "Function Idle be executed 0,cost 0us,avg 0us"}));
}

}  // namespace
