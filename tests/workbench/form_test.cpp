// SPDX-License-Identifier: MIT
// The forms that are made from the command table: all of them can be sent as they are, and say in
// words what cannot.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QTest>
#include <algorithm>

#include "tests/workbench/bench_fixture.h"
#include "tools/workbench/command_panel.h"
#include "tools/workbench/form_model.h"
#include "tools/workbench/record_table.h"
#include "tools/workbench/values.h"

namespace vellomar_workbench {
namespace {

using nlohmann::json;
using testing::HasSubstr;

TEST(FormModel, SaysInWordsWhatIsWrongWithAField) {
  FormModel form(*vellomar_host::FindCommand("setButtonVisible"));
  const auto fault_of = [&](const std::string& key) {
    form.SetValue(0, FromText(form.fields()[0], key));
    EXPECT_EQ(form.IsValid(), !form.Fault(0));
    return form.Fault(0).value_or("");
  };
  EXPECT_EQ(fault_of("NoSuchButton"), "should be a key's number or name, not \"NoSuchButton\"");
  EXPECT_THAT(fault_of("3000000000"), HasSubstr("-2147483648 to 2147483647, not 3000000000"));
  EXPECT_EQ(fault_of("Chat"), "");
  EXPECT_EQ(fault_of("1007"), "");
  form.SetValue(1, FromText(form.fields()[1], "true"));
  EXPECT_EQ(form.Arguments(), json({{"key", 1007}, {"visible", true}}));
}

class CommandFormTest : public BenchTest {
 protected:
  void SetUp() override {
    BenchTest::SetUp();
    bench.AddEntryListener([this](const auto& entry) {
      if (entry.kind == "send") sent.push_back(entry.details);
    });
  }

  template <typename Widget>
  static Widget* Find(QWidget& form, const std::string& field) {
    auto* found = form.findChild<Widget*>(QString::fromStdString(field));
    EXPECT_NE(found, nullptr) << field;
    return found;
  }

  static QPushButton* SendButton(QWidget& form) {
    for (auto* button : form.findChildren<QPushButton*>()) {
      if (button->text().startsWith("Send ")) return button;
    }
    return nullptr;
  }

  std::vector<json> sent;  // the arguments of the commands
};

TEST_F(CommandFormTest, EveryCommandHasAnEditorForEachFieldAndCanBeSentAsItIs) {
  for (const auto& command : vellomar_host::Commands()) {
    CommandForm form(bench, command);
    const FormModel model(command);
    for (const auto& field : model.fields()) Find<QWidget>(form, field.name);
    SendButton(form)->click();
  }
  EXPECT_EQ(sent.size(), vellomar_host::Commands().size());
}

TEST_F(CommandFormTest, WhatIsTypedIsSentAndAFaultIsShownBesideTheField) {
  CommandForm form(bench, *vellomar_host::FindCommand("setAudioStatus"));
  auto* line = Find<QLineEdit>(form, "status");
  line->clear();
  QTest::keyClicks(line, "2x");
  EXPECT_FALSE(SendButton(form)->isEnabled());
  const auto labels = line->parentWidget()->findChildren<QLabel*>();
  EXPECT_TRUE(std::any_of(labels.begin(), labels.end(), [](const QLabel* label) {
    return !label->isHidden() && label->text().contains("not \"2x\"");
  }));
  QTest::keyClick(line, Qt::Key_Return);
  EXPECT_TRUE(sent.empty());
  QTest::keyClick(line, Qt::Key_Backspace);
  QTest::keyClick(line, Qt::Key_Return);
  EXPECT_EQ(sent, std::vector<json>({{{"status", 2}}}));
}

TEST_F(CommandFormTest, KeysFlagsAndListsHaveEditorsOfTheirOwn) {
  CommandForm visible(bench, *vellomar_host::FindCommand("setButtonVisible"));
  Find<QComboBox>(visible, "key")->setCurrentText("Chat");
  Find<QCheckBox>(visible, "visible")->click();
  visible.Send();
  CommandForm cameras(bench, *vellomar_host::FindCommand("setCameraInfo"));
  RecordTableModel& list = dynamic_cast<RecordTable*>(Find<QWidget>(cameras, "cameras"))->model();
  list.AddRow();
  list.setData(list.index(0, 0), "cam-1", Qt::EditRole);
  list.setData(list.index(0, 1), "Front", Qt::EditRole);
  cameras.Send();
  const json camera = {{"id", "cam-1"}, {"name", "Front"}};
  EXPECT_EQ(sent,
            std::vector<json>({{{"key", "Chat"}, {"visible", true}},
                               {{"cameras", json::array({camera})}, {"currentCameraId", ""}}}));
}

TEST_F(CommandFormTest, ThePanelFindsCommandsAndShowsWhatWasSentLast) {
  CommandPanel panel(bench);
  panel.findChild<QLineEdit*>()->setText("setCameraS");
  EXPECT_EQ(panel.chosen(), "setCameraStatus");
  panel.findChild<QLineEdit*>()->setText("avatarK");  // a field of no command
  panel.findChild<QLineEdit*>()->setText("");
  Send("setLiveStatus", {{"status", 1}, {"count", 9}});
  panel.Choose("setLiveStatus");
  EXPECT_EQ(Find<QLineEdit>(*panel.form(), "count")->text(), "9");
  Send("setLiveStatus", {{"status", 1}, {"count", 10}});
  EXPECT_EQ(Find<QLineEdit>(*panel.form(), "count")->text(), "10");
}

}  // namespace
}  // namespace vellomar_workbench
