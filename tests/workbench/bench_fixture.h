// SPDX-License-Identifier: MIT
// A bench with the built plug-in loaded, and Qt's loop to run until something is so.
//
//   class MyTest : public BenchTest {};
//   ASSERT_TRUE(Until([&] { return bench.bar_exists(); }));
#pragma once

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QTemporaryDir>
#include <filesystem>
#include <functional>

#include "host/scenario.h"
#include "tools/workbench/bench.h"
#include "tools/workbench/content.h"

namespace vellomar_workbench {

inline bool Until(const std::function<bool()>& predicate) {
  const QDeadlineTimer deadline(30'000);
  while (!predicate() && !deadline.hasExpired()) {
    QCoreApplication::processEvents(QEventLoop::AllEvents, 50);
  }
  return predicate();
}

class BenchTest : public testing::Test {
 protected:
  void SetUp() override { ASSERT_EQ(bench.Load(VELLOMAR_PLUGIN_PATH), std::nullopt); }

  Fault Send(std::string_view command, const nlohmann::json& arguments) {
    return bench.Send(*vellomar_host::FindCommand(command), arguments);
  }

  void ShowBar() {
    ASSERT_EQ(Send("setTextMap", ReadTexts(VELLOMAR_SCENARIOS, "en")), std::nullopt);
    ASSERT_TRUE(Until([&] { return !bench.session()->loop().HasPosted(); }));
    const nlohmann::json display = {{"x", 0}, {"y", 0}, {"width", 1600}, {"height", 900}};
    ASSERT_EQ(Send("showSharedControlbar", {{"display", display}}), std::nullopt);
    ASSERT_TRUE(bench.bar_exists());
  }

  QString Cell(std::int32_t key, ButtonModel::Column column) {
    bench.Refresh();
    return bench.buttons().index(key - ButtonModel::kFirstKey, column).data().toString();
  }

  std::filesystem::path Scratch(const char* file) const {
    return std::filesystem::path(folder_.path().toStdString()) / file;
  }

  QTemporaryDir folder_;
  Bench bench{VELLOMAR_LORIMEL_PATH};
};

}  // namespace vellomar_workbench
