// SPDX-License-Identifier: MIT
// The forms that are made from the command table: all of them can be sent as they are, and say in
// words what cannot.
#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QTest>
#include <algorithm>

#include "tools/workbench/command_panel.h"
#include "tools/workbench/form_model.h"
#include "tools/workbench/record_table.h"
#include "tools/workbench/values.h"
#include "tools/workbench/watched_plugin_fixture.h"

namespace vellomar_workbench {
namespace {

using nlohmann::json;

class CommandFormTest : public WatchedPluginTest {
 protected:
  void SetUp() override {
    WatchedPluginTest::SetUp();
    watched.AddEntryListener([this](const auto& entry) {
      if (entry.kind == "send") {
        sent.push_back(entry.details);
      }
    });
  }

  template <typename Widget>
  static Widget* Find(QWidget& form, const std::string& field) {
    auto* found = form.findChild<Widget*>(QString::fromStdString(field));
    EXPECT_NE(found, nullptr) << field;
    return found;
  }

  std::vector<json> sent;  // the arguments of the commands
};

TEST_F(CommandFormTest, EveryCommandHasAnEditorForEachFieldAndCanBeSentAsItIs) {
  for (const auto& command : vellomar_host::Commands()) {
    CommandForm form(watched, command);
    const FormModel model(command);
    for (const auto& field : model.fields()) {
      Find<QWidget>(form, field.name);
    }
    form.Send();
  }
  EXPECT_EQ(sent.size(), vellomar_host::Commands().size());
}

TEST_F(CommandFormTest, WhatIsTypedIsSentAndAFaultIsShownBesideTheField) {
  CommandForm form(watched, *vellomar_host::FindCommand("setAudioStatus"));
  auto* line = Find<QLineEdit>(form, "status");
  line->clear();
  QTest::keyClicks(line, "2x");
  EXPECT_FALSE(form.findChild<QPushButton*>()->isEnabled());
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
  CommandForm visible(watched, *vellomar_host::FindCommand("setButtonVisible"));
  Find<QCheckBox>(visible, "visible")->click();
  for (const char* key : {"Chat", "NoSuchButton", "1007"}) {
    Find<QComboBox>(visible, "key")->setCurrentText(key);
    visible.Send();
  }
  CommandForm cameras(watched, *vellomar_host::FindCommand("setCameraInfo"));
  RecordTableModel& list = dynamic_cast<RecordTable*>(Find<QWidget>(cameras, "cameras"))->model();
  list.AddRow();
  list.setData(list.index(0, 0), "cam-1", Qt::EditRole);
  list.setData(list.index(0, 1), "Front", Qt::EditRole);
  cameras.Send();
  const json camera = {{"id", "cam-1"}, {"name", "Front"}};
  EXPECT_EQ(sent,
            std::vector<json>({{{"key", "Chat"}, {"visible", true}},
                               {{"key", 1007}, {"visible", true}},
                               {{"cameras", json::array({camera})}, {"currentCameraId", ""}}}));
}

TEST_F(CommandFormTest, ThePanelFindsCommandsAndShowsWhatWasSentLast) {
  CommandPanel panel(watched);
  panel.findChild<QLineEdit*>()->setText("setCameraS");
  EXPECT_EQ(panel.chosen(), "setCameraStatus");
  for (const int count : {9, 10}) {  // before it is chosen, and after
    Send("setLiveStatus", {{"status", 1}, {"count", count}});
    panel.Choose("setLiveStatus");
    EXPECT_EQ(Find<QLineEdit>(*panel.form(), "count")->text(), QString::number(count));
  }
}

}  // namespace
}  // namespace vellomar_workbench
