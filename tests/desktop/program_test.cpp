// SPDX-License-Identifier: MIT
// The host program with a bar that the user sees: it stays until the user stops sharing.
#include <gtest/gtest.h>

#include <QDeadlineTimer>

#include "desktop/desktop.h"

namespace {

TEST(DesktopProgramTest, TheBarStaysUntilTheUserStopsSharing) {
  const QString scenario = VELLOMAR_SCENARIOS "/first-share.json";
  const QString pictures = VELLOMAR_PICTURES "/desktop";
  desktop::Program host(VELLOMAR_CONTROLBAR_HOST,
                        {"play", scenario, "--widgets", "qt", "--out", pictures});
  host.ReadLineWith("until the user stops sharing");
  const QString bar =
      desktop::Xdotool({"search", "--sync", "--onlyvisible", "--name", "Weekly planning"})
          .trimmed();
  desktop::Xdotool({"windowactivate", bar});
  const QDeadlineTimer deadline(std::chrono::minutes(1));
  while (desktop::Xdotool({"getwindowfocus"}) != bar) {
    ASSERT_FALSE(deadline.hasExpired()) << "the bar does not get the focus";
  }
  // The last three controls: stop, leave, collapse.
  desktop::Xdotool({"key", "End", "Left", "Left", "space"});
  host.ReadLineWith("stopSharing");
  host.ReadLineWith("controlbarClosed");
  EXPECT_TRUE(host.waitForFinished());
  EXPECT_EQ(host.exitCode(), 0) << host.readAll().toStdString();
}

}  // namespace
