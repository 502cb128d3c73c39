// SPDX-License-Identifier: MIT
// The tables without windows: what they show, what they signal, and that they keep to the rules of
// Qt's models.
#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <map>
#include <optional>

#include "tools/workbench/button_model.h"
#include "tools/workbench/notification_model.h"
#include "tools/workbench/record_table_model.h"
#include "tools/workbench/step_model.h"

namespace vellomar_workbench {
namespace {

using nlohmann::json;

constexpr auto kFatal = QAbstractItemModelTester::FailureReportingMode::Fatal;

class ButtonModelTest : public testing::Test {
 protected:
  void Update() {
    model.Update([this](std::int32_t key, LorimelButton* out) {
      const auto found = held.find(key);
      if (found == held.end()) return false;
      *out = found->second;
      return true;
    });
  }

  static LorimelButton Button(std::int32_t key, const char* text, std::int32_t status) {
    return {key, false, "", text, "", status, "", "", "", "", "", 0};
  }

  QVariant At(std::int32_t key, int column, int role = Qt::DisplayRole) const {
    return model.index(key - ButtonModel::kFirstKey, column).data(role);
  }

  std::map<std::int32_t, LorimelButton> held;
  ButtonModel model;
  QAbstractItemModelTester tester{&model, kFatal};
};

TEST_F(ButtonModelTest, MarksTheFieldsThatChangeUntilTheMarksAreCleared) {
  held[1001] = Button(1001, "Audio", 0);
  held[1002] = Button(1002, "Camera", 0);
  Update();
  EXPECT_FALSE(model.HasMarks()) << "a new record has not changed";
  held[1001].status = 32;
  const QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
  Update();
  EXPECT_EQ(changed.count(), 1);
  EXPECT_EQ(At(1001, ButtonModel::kStatus), "32 muted");
  EXPECT_TRUE(At(1001, ButtonModel::kStatus, ButtonModel::kMarkedRole).toBool());
  EXPECT_FALSE(At(1001, ButtonModel::kText, ButtonModel::kMarkedRole).toBool());
  EXPECT_FALSE(At(1002, ButtonModel::kStatus, ButtonModel::kMarkedRole).toBool());
  held[1001].text = "Ton";
  Update();
  EXPECT_TRUE(At(1001, ButtonModel::kStatus, ButtonModel::kMarkedRole).toBool()) << "still marked";
  EXPECT_TRUE(At(1001, ButtonModel::kText, ButtonModel::kMarkedRole).toBool());
  model.ClearMarks();
  EXPECT_FALSE(model.HasMarks());
  held.clear();
  Update();
  EXPECT_EQ(At(1001, ButtonModel::kText), "") << "the bar has gone";
  EXPECT_EQ(At(1001, ButtonModel::kName), "MuteAudio");
}

TEST_F(ButtonModelTest, FiltersByNameKeyAndLabel) {
  held[1014] = Button(1014, "Leave", 0);
  held[1007] = Button(1007, "Conversation", 0);
  Update();
  ButtonFilter filter;
  filter.setSourceModel(&model);
  const std::pair<const char*, int> cases[] = {{"", 92},    {"chat", 1},    {"conVER", 1},
                                               {"101", 10}, {"sketch", 19}, {"nothing", 0}};
  for (const auto& [text, rows] : cases) {
    filter.SetText(text);
    EXPECT_EQ(filter.rowCount(), rows) << text;
  }
}

TEST(NotificationModel, ShowsWhatCameByNameAndForgetsTheOldest) {
  NotificationModel model;
  std::optional<QAbstractItemModelTester> tester(std::in_place, &model, kFatal);
  using std::chrono::milliseconds;
  model.Append({milliseconds(1500), "notify", "muteAudio", {{"mute", true}}});
  model.Append({milliseconds(1500), "send", "setAudioStatus", {{"status", 1}}});
  model.Append({milliseconds(1501), "notify", "leaveMeeting", json::object()});
  ASSERT_EQ(model.rowCount(), 2);
  EXPECT_EQ(model.index(0, NotificationModel::kTime).data(), "1.500");
  EXPECT_EQ(model.index(0, NotificationModel::kPayload).data(), "mute = true");
  EXPECT_EQ(model.index(1, NotificationModel::kPayload).data(), "");
  tester.reset();  // it looks at all rows at every change
  for (int i = 0; i < NotificationModel::kMostRows; ++i) {
    model.Append({milliseconds(2000), "notify", "chat", {{"open", true}}});
  }
  EXPECT_EQ(model.rowCount(), NotificationModel::kMostRows);
  EXPECT_EQ(model.index(0, NotificationModel::kName).data(), "chat");
}

TEST(StepModel, ShowsWhatBecameOfEachStep) {
  StepModel model;
  const QAbstractItemModelTester tester(&model, kFatal);
  model.SetSteps({{4, "press Chat"}, {5, "press Leave"}});
  model.SetState(0, StepModel::State::kDone);
  model.SetState(1, StepModel::State::kFailed, "a user could not press Leave now");
  EXPECT_EQ(model.index(0, StepModel::kResult).data(), "done");
  EXPECT_EQ(model.index(1, StepModel::kResult).data(), "a user could not press Leave now");
  model.Reset();
  EXPECT_EQ(model.index(1, StepModel::kResult).data(), "");
}

class RecordTableTest : public testing::Test {
 protected:
  static vellomar_host::Field FieldOf(std::string_view notation) {
    return vellomar_host::ParseLayout(notation).fields[0];
  }
};

TEST_F(RecordTableTest, ParticipantsAreAddedChangedAndRemoved) {
  RecordTableModel model(FieldOf("participant[] participants"), RecordTableModel::kList);
  const QAbstractItemModelTester tester(&model, kFatal);
  int changes = 0;
  model.on_changed = [&changes] { ++changes; };
  model.SetValue(json::array({{{"userId", "u-1"}}, {{"userId", "u-2"}}}));
  EXPECT_EQ(changes, 0);
  EXPECT_EQ(model.columnCount(), 8);
  model.AddRow();
  EXPECT_TRUE(model.setData(model.index(2, 0), "u-3", Qt::EditRole));
  EXPECT_TRUE(model.setData(model.index(2, 2), "seven", Qt::EditRole));
  EXPECT_EQ(model.index(2, 2).data(Qt::ToolTipRole),
            "should be an integer of 64 bits, not \"seven\"");
  EXPECT_TRUE(model.setData(model.index(2, 2), "7", Qt::EditRole));
  EXPECT_FALSE(model.index(2, 2).data(Qt::ToolTipRole).isValid());
  EXPECT_TRUE(model.setData(model.index(2, 7), Qt::Checked, Qt::CheckStateRole));
  model.RemoveRow(0);
  model.RemoveRow(9);
  EXPECT_EQ(changes, 6);
  ASSERT_EQ(model.rowCount(), 2);
  EXPECT_EQ(model.value()[0]["userId"], "u-2");
  EXPECT_EQ(model.value()[1]["number"], 7);
  EXPECT_EQ(model.value()[1]["flag"], true);
}

TEST_F(RecordTableTest, OneRecordAndPlainListsAreTablesToo) {
  RecordTableModel rect(FieldOf("rect display"), RecordTableModel::kOne);
  rect.setData(rect.index(0, 2), "1920", Qt::EditRole);
  EXPECT_EQ(rect.value(), json({{"x", 0}, {"y", 0}, {"width", 1920}, {"height", 0}}));
  RecordTableModel ids(FieldOf("long[] ids"), RecordTableModel::kList);
  ids.SetValue({10001, 10002});
  ids.setData(ids.index(1, 0), "-5", Qt::EditRole);
  EXPECT_EQ(ids.value(), json({10001, -5}));
  ids.SetValue(nullptr);
  EXPECT_EQ(ids.rowCount(), 0);
}

}  // namespace
}  // namespace vellomar_workbench
