// SPDX-License-Identifier: MIT
// The window: what it remembers, and where it tells faults.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QDockWidget>

#include "tools/workbench/main_window.h"
#include "tools/workbench/unattended.h"
#include "tools/workbench/watched_plugin_fixture.h"

namespace vellomar_workbench {
namespace {

using testing::HasSubstr;
using testing::Optional;

class WindowTest : public WatchedPluginTest {
 protected:
  WindowOptions Options() const {
    return {.scenarios = VELLOMAR_SCENARIOS,
            .settings = QString::fromStdString(Scratch("settings.ini").string()),
            .language = ""};
  }
};

TEST_F(WindowTest, RemembersItsLayoutAndChoices) {
  {
    MainWindow window(watched, Options());
    window.show();
    window.findChild<QDockWidget*>("Notifications")->hide();
    window.resize(780, 700);  // fits on the screen; newer Qt restores no larger one
    window.ChooseLanguage("zh");
    window.buttons().filter().setText("mute");
    window.commands().Choose("setCameraInfo");
    window.close();
  }
  MainWindow window(watched, Options());
  EXPECT_TRUE(window.findChild<QDockWidget*>("Notifications")->isHidden());
  EXPECT_EQ(window.size(), QSize(780, 700));
  EXPECT_EQ(window.language(), "zh");
  EXPECT_EQ(window.buttons().table().model()->rowCount(), 5);
  EXPECT_EQ(window.commands().chosen(), "setCameraInfo");
}

TEST_F(WindowTest, TellsFaultsInTheWindow) {
  MainWindow window(watched, Options());
  window.show();
  EXPECT_NE(window.LoadPlugin("/no/such/plugin.so"), std::nullopt);
  EXPECT_THAT(window.fault().toStdString(), HasSubstr("cannot load \"/no/such/plugin.so\""));
  EXPECT_EQ(window.LoadPlugin(VELLOMAR_PLUGIN_PATH), std::nullopt);
  EXPECT_EQ(window.fault(), "");
  EXPECT_THAT(window.StartMeeting("party"), Optional(HasSubstr("no meeting \"party\"")));
  EXPECT_THAT(window.SaveRecording("/proc/no/such.json"), Optional(HasSubstr("cannot write")));
  EXPECT_THAT(TakePicture(watched, window, "/proc/picture.png"),
              Optional(HasSubstr("cannot write")));
  window.ChooseLanguage("xx");
  EXPECT_THAT(window.fault().toStdString(), HasSubstr("no texts in \"xx\""));
}

TEST_F(WindowTest, AMeetingSpeaksTheChosenLanguage) {
  MainWindow window(watched, Options());
  window.ChooseLanguage("de");
  ASSERT_EQ(window.StartMeeting("host"), std::nullopt);
  const auto key = VELLOMAR_LORIMEL::EventKey::Participants;
  EXPECT_TRUE(Until([&] { return Cell(key, ButtonModel::kText) == "Teilnehmer (12)"; }));
}

}  // namespace
}  // namespace vellomar_workbench
