// SPDX-License-Identifier: MIT
// The plug-in in Qt's loop: commands run, the log comes, builds are exchanged, and what a user does
// with the mouse is recorded and can be played elsewhere.
#include "tools/workbench/bench.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QProcess>
#include <QTest>
#include <fstream>

#include "tests/workbench/bench_fixture.h"

namespace vellomar_workbench {
namespace {

using nlohmann::json;
using testing::HasSubstr;
using testing::Optional;

void ClickOnBar(const QString& label) {
  for (QWidget* widget : QApplication::allWidgets()) {
    if (widget->accessibleName() != label || !widget->isVisible()) continue;
    return QTest::mouseClick(widget, Qt::LeftButton);
  }
  ADD_FAILURE() << "the bar shows no " << label.toStdString();
}

TEST_F(BenchTest, CommandsRunInQtsLoopAndTheRecordsFollow) {
  ShowBar();
  Send("setAudioStatus", {{"status", 0}});
  EXPECT_TRUE(Until([&] { return Cell(1001, ButtonModel::kStatus) == "32 muted"; }));
  EXPECT_TRUE(bench.buttons().HasMarks());
  EXPECT_EQ(Send("setAudioStatus", {{"status", "loud"}}).value_or("").substr(0, 14),
            "setAudioStatus");
}

TEST_F(BenchTest, DelayedTasksAndTimersOfTheHostsLoopRun) {
  int ticks = 0;
  bool late = false;
  auto& loop = bench.session()->loop();
  const auto timer = loop.StartTimer(std::chrono::milliseconds(1), [&] { ++ticks; });
  loop.PostDelayed(std::chrono::milliseconds(5), [&] { late = true; });
  EXPECT_TRUE(Until([&] { return ticks >= 3 && late; }));
  loop.Cancel(timer);
}

TEST_F(BenchTest, TheLogComesFromTheFirstLineOn) {
  ASSERT_TRUE(bench.observes_log());
  bench.Refresh();
  ASSERT_GT(bench.log().rowCount(), 0);
  EXPECT_EQ(bench.log().index(0, LogModel::kText).data(Qt::ToolTipRole), "ExportedInit");
  bench.Unload();
  const int last = bench.log().rowCount() - 1;
  EXPECT_EQ(bench.log().index(last, LogModel::kText).data(Qt::ToolTipRole), "ExportedUninit");
}

TEST_F(BenchTest, AnotherBuildTakesThePlaceOfTheFirst) {
  ShowBar();
  EXPECT_THAT(bench.Load(VELLOMAR_LORIMEL_PATH), Optional(HasSubstr("does not export")));
  EXPECT_TRUE(bench.bar_exists()) << "the first is still there";
  const auto copy = Scratch("libvellomar-controlbar-other.so");
  std::filesystem::copy_file(VELLOMAR_PLUGIN_PATH, copy);
  ASSERT_EQ(bench.Load(copy), std::nullopt);
  EXPECT_FALSE(bench.bar_exists());
  EXPECT_EQ(bench.recorder().size(), 0u);
  ShowBar();
  EXPECT_EQ(Cell(1014, ButtonModel::kText), "Leave");
  bench.Unload();
  EXPECT_EQ(Cell(1014, ButtonModel::kText), "");
  EXPECT_EQ(Send("setHostType", {{"type", 1}}), "no plug-in is loaded");
}

TEST_F(BenchTest, AnotherLanguageKeepsTheStateOfTheMeeting) {
  ShowBar();
  for (const int status : {2, 0}) Send("setAudioStatus", {{"status", status}});
  for (const char* key : {"Chat", "Reaction"}) {
    Send("setButtonVisible", {{"key", key}, {"visible", false}});
  }
  Send("setParticipantsCount", {{"count", 12}});
  ASSERT_EQ(bench.SendTexts(ReadTexts(VELLOMAR_SCENARIOS, "de")), std::nullopt);
  EXPECT_TRUE(Until([&] { return Cell(1003, ButtonModel::kText) == "Teilnehmer (12)"; }));
  EXPECT_EQ(Cell(1001, ButtonModel::kStatus), "32 muted");
  EXPECT_EQ(Cell(1007, ButtonModel::kStatus), "2 hidden");
  EXPECT_EQ(Cell(1010, ButtonModel::kStatus), "2 hidden");
}

TEST_F(BenchTest, WhatTheMouseDoesIsRecordedAndPlaysInTheOtherTool) {
  bench.recorder().SetWithResults(true);
  ShowBar();
  ClickOnBar("Chat");
  ClickOnBar("Leave");
  const std::string text = bench.recorder().Scenario("mouse");
  EXPECT_THAT(text, HasSubstr("{\"press\":\"Chat\"},\n"));
  EXPECT_THAT(text, HasSubstr("{\"notification\":\"leaveMeeting\"}"));
  const auto file = Scratch("mouse.json");
  std::ofstream(file) << text;
  for (const char* widgets : {"headless", "qt"}) {
    const QStringList arguments = {"play", QString::fromStdString(file.string()), "--quiet",
                                   "--widgets", widgets};
    EXPECT_EQ(QProcess::execute(VELLOMAR_HOST_PATH, arguments), 0) << widgets << text;
  }
}

}  // namespace
}  // namespace vellomar_workbench
