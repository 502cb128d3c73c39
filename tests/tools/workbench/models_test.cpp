// SPDX-License-Identifier: MIT
// The tables without windows: what they show, what they signal, and that they keep to the rules of
// Qt's models.
#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <map>

#include "tools/workbench/button_model.h"
#include "tools/workbench/notification_model.h"
#include "tools/workbench/record_table_model.h"

namespace vellomar_workbench {
namespace {

using nlohmann::json;

constexpr auto kFatal = QAbstractItemModelTester::FailureReportingMode::Fatal;

constexpr auto kAudio = static_cast<std::int32_t>(VELLOMAR_LORIMEL::EventKey::MuteAudio);

class ButtonModelTest : public testing::Test {
 protected:
  void Update() {
    model.Update([this](std::int32_t key, LorimelButton* out) {
      if (held.contains(key)) {
        *out = held.at(key);
      }
      return held.contains(key);
    });
  }

  // Of the microphone's button.
  QVariant At(int column, int role = Qt::DisplayRole) const {
    return model.index(kAudio - VELLOMAR_LORIMEL::kFirstKey, column).data(role);
  }

  bool IsMarked(int column) const { return At(column, Qt::BackgroundRole).isValid(); }

  std::map<std::int32_t, LorimelButton> held;
  ButtonModel model;
  QAbstractItemModelTester tester{&model, kFatal};
};

TEST_F(ButtonModelTest, MarksTheFieldsThatChangeUntilTheMarksAreCleared) {
  held[kAudio] = {kAudio, false, "", "Audio", "", 0, "", "", "", "", "", 0};
  Update();
  EXPECT_FALSE(model.HasMarks()) << "a new record has not changed";
  held[kAudio].status = VELLOMAR_LORIMEL::kStatusDeviceMuted;
  const QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
  Update();
  EXPECT_EQ(changed.count(), 1);
  EXPECT_TRUE(IsMarked(ButtonModel::kStatus));
  EXPECT_FALSE(IsMarked(ButtonModel::kText));
  held[kAudio].text = "Ton";
  Update();
  EXPECT_TRUE(IsMarked(ButtonModel::kStatus)) << "still";
  EXPECT_TRUE(IsMarked(ButtonModel::kText));
  model.ClearMarks();
  EXPECT_FALSE(model.HasMarks());
  held.clear();
  Update();
  EXPECT_EQ(At(ButtonModel::kText), "") << "the bar has gone";
}

TEST(NotificationModel, ShowsWhatCameByNameAndForgetsTheOldest) {
  constexpr std::chrono::milliseconds kWhen(1500);
  NotificationModel model;
  model.Append({kWhen, "notify", "muteAudio", {{"mute", true}}});
  model.Append({kWhen, "send", "setAudioStatus", {{"status", 1}}});
  ASSERT_EQ(model.rowCount(), 1);
  EXPECT_EQ(model.index(0, NotificationModel::kTime).data(), "1.500");
  EXPECT_EQ(model.index(0, NotificationModel::kPayload).data(), "mute = true");
  for (int i = 0; i < NotificationModel::kMostRows; ++i) {
    model.Append({kWhen, "notify", "chat", {{"open", true}}});
  }
  EXPECT_EQ(model.rowCount(), NotificationModel::kMostRows);
  EXPECT_EQ(model.index(0, NotificationModel::kName).data(), "chat");
}

vellomar_host::Field FieldOf(std::string_view notation) {
  return vellomar_host::ParseLayout(notation).fields[0];
}

bool Edit(RecordTableModel& model, int row, int column, const char* text) {
  return model.setData(model.index(row, column), text, Qt::EditRole);
}

TEST(RecordTableModel, ParticipantsAreAddedChangedAndRemoved) {
  RecordTableModel model(FieldOf("participant[] participants"), RecordTableModel::kList);
  const QAbstractItemModelTester tester(&model, kFatal);
  int changes = 0;
  model.on_changed = [&changes] { ++changes; };
  model.SetValue(json::array({{{"userId", "u-1"}}}));
  EXPECT_EQ(changes, 0);
  model.AddRow();
  EXPECT_TRUE(Edit(model, 1, 2, "seven"));
  const QModelIndex number = model.index(1, 2);
  EXPECT_EQ(number.data(Qt::ToolTipRole), "should be an integer of 64 bits, not \"seven\"");
  EXPECT_TRUE(Edit(model, 1, 2, "7"));
  EXPECT_FALSE(number.data(Qt::ToolTipRole).isValid());
  EXPECT_TRUE(model.setData(model.index(1, 7), Qt::Checked, Qt::CheckStateRole));
  model.RemoveRow(0);
  model.RemoveRow(-1);  // none is selected
  EXPECT_EQ(changes, 5);
  ASSERT_EQ(model.rowCount(), 1);
  EXPECT_EQ(model.value()[0]["number"], 7);
  EXPECT_EQ(model.value()[0]["flag"], true);
}

}  // namespace
}  // namespace vellomar_workbench
