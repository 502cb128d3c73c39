// SPDX-License-Identifier: MIT
// Trace scopes, the log front and the record of function statistics.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <limits>
#include <new>
#include <string>

#include "common/text.h"
#include "frame/function_statistics.h"
#include "frame/trace_scope.h"
#include "support/recording_log.h"

namespace {

using testing::ElementsAre;
using VELLOMAR_LOG::FunctionStatistics;
using VELLOMAR_LOG::TraceScope;

class LogTest : public testing::Test {
 protected:
  void SetUp() override { recording_log::Clear(); }
};

MATCHER_P(IsTheExitOf, scope, "") {
  const std::string start = std::string("exit ") + scope + ", cost : ";
  return arg.size() > start.size() && arg.starts_with(start) &&
         arg.find_first_not_of("0123456789", start.size()) == std::string::npos;
}

TEST_F(LogTest, AScopeWritesItsEntryAndItsExitWithTheCost) {
  {
    const TraceScope outer("setTextMap");
    const TraceScope inner("Show", "Space::Class::");
  }
  EXPECT_THAT(recording_log::Texts(),
              ElementsAre("entry setTextMap", "entry Space::Class::Show",
                          IsTheExitOf("Space::Class::Show"), IsTheExitOf("setTextMap")));
  for (const recording_log::Line& line : recording_log::Lines()) {
    EXPECT_EQ(line.level, 3);
    EXPECT_EQ(line.module, "vellomar_controlbar");
  }
}

TEST_F(LogTest, LongLinesAreWrittenWhole) {
  const std::string text(5000, 'x');
  VELLOMAR_LOG::Info("{}!", text);
  EXPECT_EQ(recording_log::Texts(), std::vector<std::string>{text + "!"});
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

TEST(FillPlaceholderTest, PutsTheValueInPlaceOfTheFirstName) {
  using VELLOMAR_COMMON::FillPlaceholder;
  EXPECT_EQ(FillPlaceholder("Meeting {{number}}!", "42"), "Meeting 42!");
  EXPECT_EQ(FillPlaceholder("{{a}}{{b}}", "{{c}}"), "{{c}}{{b}}");
  EXPECT_EQ(FillPlaceholder("no place", "42"), "no place");
  EXPECT_EQ(FillPlaceholder("{{open", "42"), "{{open");
  EXPECT_EQ(FillPlaceholder(nullptr, "42"), "42");
}

}  // namespace
