// SPDX-License-Identifier: MIT
// The forms that are made from the command table: all of them can be sent as they are, and say in
// words what cannot.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QTest>

#include "host/payload.h"
#include "tests/workbench/bench_fixture.h"
#include "tools/workbench/command_panel.h"
#include "tools/workbench/form_model.h"
#include "tools/workbench/record_table.h"
#include "tools/workbench/values.h"

namespace vellomar_workbench {
namespace {

using nlohmann::json;
using testing::HasSubstr;
using testing::Optional;

TEST(FormModel, EveryCommandCanBeSentWithWhatItsFormBeginsWith) {
  for (const auto& command : vellomar_host::Commands()) {
    const FormModel form(command);
    EXPECT_TRUE(form.IsValid()) << command.name;
    EXPECT_NO_THROW(vellomar_host::EncodeArguments(command, form.Arguments())) << command.name;
  }
}

TEST(FormModel, SaysWhatIsWrongWithAFieldInWords) {
  FormModel form(*vellomar_host::FindCommand("setButtonVisible"));
  const auto type = [&](std::size_t index, const std::string& text) {
    form.SetValue(index, FromText(form.fields()[index], text));
  };
  EXPECT_EQ(form.Fault(0), std::nullopt);
  type(0, "NoSuchButton");
  EXPECT_EQ(form.Fault(0), "should be a key's number or name, not \"NoSuchButton\"");
  EXPECT_FALSE(form.IsValid());
  type(0, "Chat");
  EXPECT_EQ(form.Fault(0), std::nullopt);
  type(0, "3000000000");
  EXPECT_THAT(form.Fault(0), Optional(HasSubstr("-2147483648 to 2147483647, not 3000000000")));
  type(0, "1007");
  type(1, "true");
  EXPECT_EQ(form.Arguments(), json({{"key", 1007}, {"visible", true}}));
}

TEST(FormModel, TellsWhichElementOfAListIsWrong) {
  FormModel form(*vellomar_host::FindCommand("setCameraInfo"));
  form.SetValue(0, {{{"id", "cam-1"}, {"name", "One"}}, {{"id", 7}, {"name", "Two"}}});
  EXPECT_THAT(form.Fault(0), Optional(HasSubstr("\"cameras[1].id\" should be a text")));
}

TEST(FormModel, LoadTakesWhatFits) {
  FormModel form(*vellomar_host::FindCommand("setLiveStatus"));
  form.Load({{"status", 2}, {"unknown", 1}});
  form.Load("nothing");
  EXPECT_EQ(form.Arguments(), json({{"status", 2}, {"count", 0}}));
}

class CommandFormTest : public BenchTest {
 protected:
  template <typename Widget>
  static Widget* Find(QWidget& form, const char* field) {
    auto* found = form.findChild<Widget*>(field);
    EXPECT_NE(found, nullptr) << field;
    return found;
  }

  static QPushButton* SendButton(QWidget& form) {
    for (auto* button : form.findChildren<QPushButton*>()) {
      if (button->text().startsWith("Send ")) return button;
    }
    return nullptr;
  }
};

TEST_F(CommandFormTest, EveryCommandHasAnEditorForEachField) {
  for (const auto& command : vellomar_host::Commands()) {
    CommandForm form(bench, command);
    const FormModel model(command);
    for (const auto& field : model.fields()) {
      EXPECT_NE(form.findChild<QWidget*>(QString::fromStdString(field.name)), nullptr)
          << command.name << " " << field.name;
    }
    EXPECT_TRUE(SendButton(form)->isEnabled()) << command.name;
  }
}

TEST_F(CommandFormTest, WhatIsTypedIsSentAndAFaultIsShownBesideTheField) {
  CommandForm form(bench, *vellomar_host::FindCommand("setAudioStatus"));
  std::vector<json> sent;
  bench.AddEntryListener([&](const auto& entry) {
    if (entry.kind == "send") sent.push_back(entry.details);
  });
  auto* line = Find<QLineEdit>(form, "status");
  line->clear();
  QTest::keyClicks(line, "2x");
  EXPECT_FALSE(SendButton(form)->isEnabled());
  bool told = false;
  for (const auto* label : line->parentWidget()->findChildren<QLabel*>()) {
    told |= !label->isHidden() && label->text().contains("not \"2x\"");
  }
  EXPECT_TRUE(told);
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
  std::vector<json> sent;
  bench.AddEntryListener([&](const auto& entry) {
    if (entry.kind == "send") sent.push_back(entry.details);
  });
  visible.Send();
  CommandForm cameras(bench, *vellomar_host::FindCommand("setCameraInfo"));
  RecordTableModel& list = dynamic_cast<RecordTable*>(Find<QWidget>(cameras, "cameras"))->model();
  list.AddRow();
  list.setData(list.index(0, 0), "cam-1", Qt::EditRole);
  list.setData(list.index(0, 1), "Front", Qt::EditRole);
  cameras.Send();
  ASSERT_EQ(sent.size(), 2u);
  EXPECT_EQ(sent[0], json({{"key", "Chat"}, {"visible", true}}));
  EXPECT_EQ(sent[1],
            json({{"cameras", {{{"id", "cam-1"}, {"name", "Front"}}}}, {"currentCameraId", ""}}));
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
