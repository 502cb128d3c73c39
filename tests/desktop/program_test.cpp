// SPDX-License-Identifier: MIT
// The host program with a bar that the user sees: it stays until the user stops sharing.
#include <gtest/gtest.h>

#include <QDeadlineTimer>

#include "desktop.h"

namespace {

TEST(DesktopProgramTest, TheBarStaysUntilTheUserStopsSharing) {
  const QString scenario = QStringLiteral(VELLOMAR_SCENARIOS "/first-share.json");
  const QString pictures = QStringLiteral(VELLOMAR_PICTURES "/desktop");
  desktop::Program host(VELLOMAR_CONTROLBAR_HOST,
                        {"play", scenario, "--widgets", "qt", "--out", pictures});
  host.ReadLineWith("until the user stops sharing");
  const QString bar =
      desktop::Run("xdotool", {"search", "--sync", "--onlyvisible", "--name", "Weekly planning"})
          .trimmed();
  EXPECT_EQ(host.state(), QProcess::Running);
  desktop::Run("xdotool", {"windowactivate", bar});
  const QDeadlineTimer deadline(std::chrono::minutes(1));
  while (desktop::Run("xdotool", {"getwindowfocus"}).trimmed() != bar) {
    ASSERT_FALSE(deadline.hasExpired()) << "the bar does not get the focus";
  }
  // The last three controls: stop, leave, collapse.
  desktop::Run("xdotool", {"key", "End", "Left", "Left", "space"});
  host.ReadLineWith("stopSharing");
  host.ReadLineWith("controlbarClosed");
  EXPECT_TRUE(host.waitForFinished());
  EXPECT_EQ(host.exitCode(), 0);
}

}  // namespace
