// SPDX-License-Identifier: MIT
// The built plug-in, watched, and Qt's loop to run until something is so.
//
//   class MyTest : public WatchedPluginTest {};
//   ASSERT_TRUE(Until([&] { return watched.bar_exists(); }));
#pragma once

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QTemporaryDir>
#include <filesystem>
#include <functional>

#include "host/scenario/scenario.h"
#include "tools/workbench/content.h"
#include "tools/workbench/watched_plugin.h"

namespace vellomar_workbench {

inline bool Until(const std::function<bool()>& predicate) {
  const QDeadlineTimer deadline(30'000);
  while (!predicate() && !deadline.hasExpired()) {
    QCoreApplication::processEvents(QEventLoop::AllEvents, 50);
  }
  return predicate();
}

class WatchedPluginTest : public testing::Test {
 protected:
  void SetUp() override { ASSERT_EQ(watched.Load(VELLOMAR_PLUGIN_PATH), std::nullopt); }

  Fault Send(std::string_view command, const nlohmann::json& arguments) {
    return watched.Send(*vellomar_host::FindCommand(command), arguments);
  }

  void ShowBar() {
    ASSERT_EQ(Send("setTextMap", ReadTexts(VELLOMAR_SCENARIOS, "en")), std::nullopt);
    ASSERT_TRUE(Until([&] { return !watched.session()->loop().HasPosted(); }));
    const nlohmann::json display = {{"x", 0}, {"y", 0}, {"width", 1600}, {"height", 900}};
    ASSERT_EQ(Send("showSharedControlbar", {{"display", display}}), std::nullopt);
    ASSERT_TRUE(watched.bar_exists());
  }

  QString Cell(VELLOMAR_LORIMEL::EventKey key, ButtonModel::Column column) {
    watched.Refresh();
    const int row = static_cast<int>(key) - VELLOMAR_LORIMEL::kFirstKey;
    return watched.buttons().index(row, column).data().toString();
  }

  std::filesystem::path Scratch(const char* file) const {
    return std::filesystem::path(folder_.path().toStdString()) / file;
  }

  QTemporaryDir folder_;
  WatchedPlugin watched{VELLOMAR_LORIMEL_PATH};
};

}  // namespace vellomar_workbench
