// SPDX-License-Identifier: MIT
// The plug-in in Qt's loop: timers run, the log comes, builds are exchanged, and what a user does
// with the mouse is recorded.
#include "tools/workbench/watched_plugin.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>

#include "tools/workbench/watched_plugin_fixture.h"

namespace vellomar_workbench {
namespace {

using nlohmann::json;
using testing::HasSubstr;
using testing::Optional;
using VELLOMAR_LORIMEL::EventKey;

void ClickOnBar(const QString& label) {
  for (QWidget* widget : QApplication::allWidgets()) {
    if (widget->accessibleName() != label || !widget->isVisible()) {
      continue;
    }
    return QTest::mouseClick(widget, Qt::LeftButton);
  }
  ADD_FAILURE() << "the bar shows no " << label.toStdString();
}

TEST_F(WatchedPluginTest, DelayedTasksAndTimersOfTheHostsLoopRun) {
  int ticks = 0;
  bool late = false;
  auto& loop = watched.session()->loop();
  const auto timer = loop.StartTimer(std::chrono::milliseconds(1), [&] { ++ticks; });
  loop.PostDelayed(std::chrono::milliseconds(5), [&] { late = true; });
  EXPECT_TRUE(Until([&] { return ticks >= 3 && late; }));
  loop.Cancel(timer);
}

TEST_F(WatchedPluginTest, TheLogComesFromTheFirstLineOn) {
  ASSERT_TRUE(watched.observes_log());
  watched.Refresh();
  ASSERT_GT(watched.log().rowCount(), 0);
  EXPECT_EQ(watched.log().index(0, LogModel::kText).data(Qt::ToolTipRole), "ExportedInit");
  watched.Unload();
  const int last = watched.log().rowCount() - 1;
  EXPECT_EQ(watched.log().index(last, LogModel::kText).data(Qt::ToolTipRole), "ExportedUninit");
}

TEST_F(WatchedPluginTest, AnotherBuildTakesThePlaceOfTheFirst) {
  ShowBar();
  EXPECT_THAT(watched.Load(VELLOMAR_LORIMEL_PATH), Optional(HasSubstr("does not export")));
  EXPECT_TRUE(watched.bar_exists()) << "the first is still there";
  const auto copy = Scratch("libvellomar-controlbar-other.so");
  std::filesystem::copy_file(VELLOMAR_PLUGIN_PATH, copy);
  ASSERT_EQ(watched.Load(copy), std::nullopt);
  EXPECT_FALSE(watched.bar_exists());
  EXPECT_EQ(watched.recorder().size(), 0u);
  ShowBar();
  EXPECT_EQ(Cell(EventKey::Leave, ButtonModel::kText), "Leave");
  EXPECT_THAT(Send("setHostType", {{"type", "host"}}), Optional(HasSubstr("should be an integer")));
  watched.Unload();
  EXPECT_EQ(Cell(EventKey::Leave, ButtonModel::kText), "");
  EXPECT_EQ(Send("setHostType", {{"type", 1}}), "no plug-in is loaded");
}

TEST_F(WatchedPluginTest, AnotherLanguageKeepsTheStateOfTheMeeting) {
  ShowBar();
  for (const int status : {2, 0}) {
    Send("setAudioStatus", {{"status", status}});
  }
  for (const char* key : {"Chat", "Reaction"}) {
    Send("setButtonVisible", {{"key", key}, {"visible", false}});
  }
  Send("setParticipantsCount", {{"count", 12}});
  ASSERT_EQ(watched.SendTexts(ReadTexts(VELLOMAR_SCENARIOS, "de")), std::nullopt);
  EXPECT_TRUE(
      Until([&] { return Cell(EventKey::Participants, ButtonModel::kText) == "Teilnehmer (12)"; }));
  EXPECT_EQ(Cell(EventKey::MuteAudio, ButtonModel::kStatus), "32 muted");
  EXPECT_EQ(Cell(EventKey::Chat, ButtonModel::kStatus), "2 hidden");
  EXPECT_EQ(Cell(EventKey::Reaction, ButtonModel::kStatus), "2 hidden");
}

TEST_F(WatchedPluginTest, WhatTheMouseDoesIsRecorded) {
  watched.recorder().SetWithResults(true);
  ShowBar();
  ClickOnBar("Chat");
  ClickOnBar("Leave");
  const std::string text = watched.recorder().Scenario("mouse");
  EXPECT_THAT(text, HasSubstr("{\"press\":\"Chat\"},\n"));
  EXPECT_THAT(text, HasSubstr("{\"notification\":\"leaveMeeting\"}"));
}

}  // namespace
}  // namespace vellomar_workbench
