// SPDX-License-Identifier: MIT
// Scenarios on the built plug-in and the widget library without a screen, both loaded as a host
// does.
#include "host/player.h"

#include <gtest/gtest.h>

#include <sstream>

#include "host/host_error.h"
#include "host/library.h"
#include "host/payload.h"
#include "host/session.h"

namespace vellomar_host {
namespace {

// Buttons without a label are not shown: the two that are used here get one.
constexpr const char* kShowBar = R"(
{"send": "setTextMap", "args": {"ids": [10013, 10014], "texts": ["Remote", "Stop"]}},
{"waitIdle": true},
{"send": "showSharedControlbar",
 "args": {"display": {"x": 0, "y": 0, "width": 800, "height": 600}}, "expect": {"result": true}})";

struct Played {
  std::string failure;
  std::string transcript;
  bool Has(std::string_view text) const { return transcript.find(text) != std::string::npos; }
};

PlayOptions Options() {
  PlayOptions options;
  options.files.plugin = VELLOMAR_PLUGIN_PATH;
  options.files.widgets = VELLOMAR_WIDGETS_PATH;
  options.out = testing::TempDir();
  return options;
}

Played Play(const std::string& steps, const std::string& members = "") {
  const auto scenario = ParseScenario("{" + members + "\"steps\": [" + steps + "]}", "s.json");
  std::ostringstream out;
  Transcript transcript(out, Transcript::Form::kText);
  const auto failure = PlayScenario(scenario, Options(), transcript);
  return {failure.value_or(""), out.str()};
}

TEST(Player, PlaysTheProjectsScenariosAndCanDoSoAgain) {
  for (int i = 0; i < 2; ++i) {
    for (const auto& entry : std::filesystem::directory_iterator(VELLOMAR_SCENARIOS)) {
      if (entry.path().extension() != ".json") continue;
      std::ostringstream out;
      Transcript transcript(out, Transcript::Form::kText);
      EXPECT_EQ(PlayScenario(LoadScenario(entry.path()), Options(), transcript), std::nullopt)
          << out.str();
    }
  }
}

TEST(Player, TellsTheStepThatFails) {
  const std::pair<std::string, std::string> cases[] = {
      {R"({"press": "Leave"})", "a user could not press Leave now"},
      {R"({"open": "CameraDevices"})", "a user could not open CameraDevices now"},
      {R"({"pick": "CameraItem", "value": "c"})", "a user could not pick CameraItem \"c\" now"},
      {R"({"pick": "CameraItem"})", "a user could not pick CameraItem now"},
      {R"({"closeBar": true})", "a user could not close the bar now"},
      {R"({"expectRow": {"index": 0}})", "there is no row 0"},
      {R"({"expectButton": {"key": 5}})", "there is no button 5"},
      {R"({"send": "closeSharedControlbar", "expect": {"result": true}})",
       "the answer of closeSharedControlbar: \"result\" is false, expected true"},
      {R"({"waitFor": {"notification": "muteAudio", "payload": {"mute": true}}, "within": 1})",
       "no muteAudio {\"mute\":true} within 1 ms"},
  };
  for (const auto& [step, reason] : cases) {
    EXPECT_EQ(Play("{\"note\": \"before\"},\n" + step).failure, "s.json:2: " + reason);
  }
}

TEST(Player, CanExpectThatAUserIsRefused) {
  const std::string show = std::string(kShowBar) + ",\n";
  EXPECT_EQ(Play(show + R"({"press": "Leave", "refused": true},
                           {"pick": "CameraItem", "value": "c", "refused": true})")
                .failure,
            "");
  const Played pressed = Play(show + R"({"press": "StopSharing", "refused": true})");
  EXPECT_EQ(pressed.failure, "s.json:6: a user could press StopSharing now");
  EXPECT_TRUE(pressed.Has("stopSharing")) << pressed.transcript;
}

TEST(Player, UsesUpNotificationsInOrder) {
  const std::string wait_created = R"({"waitFor": {"notification": "controlbarCreated"}},)";
  EXPECT_EQ(Play(std::string(kShowBar) + "," + wait_created +
                 R"({"expectNone": "controlbarCreated"}, {"press": "StopSharing"},
                    {"waitFor": {"notification": "stopSharing"}}, {"expectNone": "uiEvent"})")
                .failure,
            "");
  EXPECT_EQ(Play(std::string(kShowBar) + R"(,
                 {"expectNone": "controlbarCreated"})")
                .failure,
            "s.json:6: controlbarCreated came, expected none");
}

TEST(Player, AnswersTheRequestForAParticipantAndDeliversItsAvatar) {
  const Played played = Play(std::string(kShowBar) + R"(,
      {"send": "updateParticipants", "args": {"participants": [
        {"userId": "u1", "instanceId": "i", "number": 1, "displayName": "Ada", "room": "",
         "avatarKey": "k1", "avatarPath": "", "flag": true},
        {"userId": "u2", "instanceId": "i", "number": 2, "displayName": "Ben", "room": "",
         "avatarKey": "k2", "avatarPath": "", "flag": false}]}},
      {"waitIdle": true},
      {"respond": {"avatarKey": "k2", "avatarPath": "/a/b.png"}},
      {"open": "RemoteControl", "rows": 3},
      {"expectRow": {"index": 1, "key": "ParticipantRow", "text": "Ada", "iconPath": ""}},
      {"expectRow": {"index": 2, "text": "Ben", "iconPath": "/a/b.png", "status": 4}})",
                             R"("participantAnswers": {"u2": -1},)");
  EXPECT_EQ(played.failure, "");
  EXPECT_TRUE(played.Has(R"({"answer":0,"userId":"u1"})")) << played.transcript;
  EXPECT_TRUE(played.Has(R"({"answer":-1,"userId":"u2"})")) << played.transcript;
}

TEST(Player, ClosesTheBarThatAScenarioLeaves) {
  const Played played = Play(kShowBar);
  EXPECT_EQ(played.failure, "");
  const auto closed = played.transcript.find("controlbarClosed");
  EXPECT_LT(closed, played.transcript.find("stop ")) << played.transcript;
}

TEST(Player, RefusesLibrariesThatLackWhatIsNeeded) {
  const auto error = [](const PlayOptions& options) {
    std::ostringstream out;
    Transcript transcript(out, Transcript::Form::kNone);
    const auto scenario = ParseScenario(R"({"steps": [{"press": "Leave"}]})", "s.json");
    try {
      PlayScenario(scenario, options, transcript);
    } catch (const HostError& caught) {
      return std::string(caught.what());
    }
    return std::string("no error");
  };
  PlayOptions absent = Options();
  absent.files.plugin = "/absent/plugin";
  EXPECT_TRUE(error(absent).starts_with("cannot load \"/absent/plugin\": "));

  PlayOptions other = Options();
  other.files.plugin = other.files.widgets;
  EXPECT_EQ(error(other), "\"" + other.files.widgets.string() + "\" does not export ExportedInit");

  // Here already, so that the plug-in finds this one and not the one with a screen.
  const SharedLibrary widgets(Options().files.widgets);
  PlayOptions no_driver = Options();
  no_driver.files.widgets = VELLOMAR_LOG_PATH;
  EXPECT_TRUE(error(no_driver).starts_with("s.json:1: the step acts on the widgets"));
}

// A host waits in the pump while the user acts; the wait must end with what the user did.
TEST(Session, ANotificationEndsTheWaitInThePump) {
  std::ostringstream out;
  Transcript transcript(out, Transcript::Form::kNone);
  Session session(Options().files, {}, transcript);
  session.Send(*FindCommand("setTextMap"), {{"ids", {10014}}, {"texts", {"Stop"}}});
  const nlohmann::json display = {{"x", 0}, {"y", 0}, {"width", 800}, {"height", 600}};
  ASSERT_TRUE(session.loop().RunUntilIdle(EventLoop::Clock::now() + std::chrono::seconds(30)));
  session.Send(*FindCommand("showSharedControlbar"), {{"display", display}});
  session.driver()->pump(0);  // takes what woke it so far
  ASSERT_TRUE(session.driver()->press(ReadKey("StopSharing")));
  EXPECT_EQ(session.notifications().back().notification->name, "stopSharing");
  session.driver()->pump(600'000);  // without the wake the test runs into its time limit
}

}  // namespace
}  // namespace vellomar_host
