// SPDX-License-Identifier: MIT
// The log front and the record of function statistics.
#include "frame/log.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <limits>
#include <new>
#include <string>

#include "frame/function_statistics.h"
#include "support/recording_log.h"

namespace {

using VELLOMAR_LOG::FunctionStatistics;

class LogTest : public testing::Test {
 protected:
  void SetUp() override { recording_log::Clear(); }
};

TEST_F(LogTest, LongLinesAreWrittenWhole) {
  const std::string text(5000, 'x');
  VELLOMAR_LOG::Info("{}!", text);
  EXPECT_EQ(recording_log::Texts(3), std::vector<std::string>{text + "!"});
}

TEST_F(LogTest, ATextWithoutArgumentsMayHoldBraces) {
  VELLOMAR_LOG::Fault("a {} that is none");
  EXPECT_EQ(recording_log::Lines(),
            (std::vector<recording_log::Line>{{"vellomar_controlbar", 4, "a {} that is none"}}));
}

TEST_F(LogTest, StatisticsWriteTheirAverageAndDoNotDivideByZero) {
  {
    FunctionStatistics none("Idle");
    EXPECT_EQ(none.threshold, std::numeric_limits<std::int64_t>::max());
    FunctionStatistics some("Busy", 12);
    EXPECT_EQ(some.threshold, 12);
    some.count = 3;
    some.total_cost = 10;
  }
  EXPECT_EQ(recording_log::Lines(),
            (std::vector<recording_log::Line>{
                {"PCSDK", 3, "Function Busy be executed 3,cost 10us,avg 3us"},
                {"PCSDK", 3, "Function Idle be executed 0,cost 0us,avg 0us"}}));
}

}  // namespace
