// SPDX-License-Identifier: MIT
// Scopes nest, whatever comes, and their costs stand beside the line that opened them.
#include "tools/workbench/log_model.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QSignalSpy>

namespace vellomar_workbench {
namespace {

using testing::ElementsAre;
using vellomar_host::LogLine;

class LogModelTest : public testing::Test {
 protected:
  void Append(const std::vector<std::string>& texts, int level = 3, std::thread::id thread = {}) {
    std::vector<LogLine> lines;
    lines.reserve(texts.size());
    for (const std::string& text : texts) {
      lines.push_back({{}, thread, "module", level, text});
    }
    model.Append(lines);
  }

  // "   name:cost" for each row, indented by its depth.
  std::vector<std::string> Rows() const {
    std::vector<std::string> rows;
    for (int i = 0; i < model.rowCount(); ++i) {
      const QString line = model.index(i, LogModel::kText).data().toString();
      const QString cost = model.index(i, LogModel::kCost).data().toString();
      rows.push_back(line.toStdString() + (cost.isEmpty() ? "" : ":" + cost.toStdString()));
    }
    return rows;
  }

  LogModel model;
  QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::Fatal};
};

TEST_F(LogModelTest, ScopesNestAndCarryTheirCosts) {
  Append({"entry Call", "entry A", "line", "exit A, cost : 2", "entry B"});
  EXPECT_THAT(Rows(), ElementsAre("Call", "   A:2", "      line", "   B"));
  std::thread::id other;
  std::thread([&other] { other = std::this_thread::get_id(); }).join();
  Append({"beside"}, 3, other);
  const QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
  const QSignalSpy inserted(&model, &QAbstractItemModel::rowsInserted);
  Append({"exit B, cost : 0", "exit Call, cost : 3"});
  EXPECT_EQ(changed.count(), 2) << "the rows are there already";
  EXPECT_EQ(inserted.count(), 0);
  EXPECT_THAT(Rows(), ElementsAre("Call:3", "   A:2", "      line", "   B:0", "beside"));
}

TEST_F(LogModelTest, FiltersByLevelAndText) {
  Append({"entry A::Run"});
  Append({"key out of range!"}, 4);
  Append({"unknown event"}, 5);
  LogFilter filter;
  filter.setSourceModel(&model);
  EXPECT_EQ(filter.rowCount(), 3);
  filter.SetLowestLevel(4);
  EXPECT_EQ(filter.rowCount(), 2);
  filter.SetText("RANGE");
  ASSERT_EQ(filter.rowCount(), 1);
  EXPECT_EQ(filter.index(0, LogModel::kLevel).data(), "fault");
}

}  // namespace
}  // namespace vellomar_workbench
