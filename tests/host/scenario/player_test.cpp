// SPDX-License-Identifier: MIT
// Scenarios on the built plug-in and the widget library without a screen, both loaded as a host
// does.
#include "host/scenario/player.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

#include "host/abi/library.h"
#include "support/error_of.h"

namespace vellomar_host {
namespace {

using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

// Buttons without a label are not shown: the one that is used here gets one.
constexpr const char* kShowBar = R"(
{"send": "setTextMap", "args": {"ids": [10014], "texts": ["Stop"]}},
{"waitIdle": true},
{"send": "showSharedControlbar",
 "args": {"display": {"x": 0, "y": 0, "width": 800, "height": 600}}, "expect": {"result": true}},
)";

PlayOptions Options() {
  PlayOptions options;
  options.files = {VELLOMAR_PLUGIN_PATH, VELLOMAR_WIDGETS_PATH, ""};
  return options;
}

// What it says has failed, and then the transcript.
std::string Play(const std::string& steps, const PlayOptions& options = Options()) {
  std::ostringstream out;
  Transcript transcript(out, Transcript::Form::kText);
  const auto scenario = ParseScenario("{\"steps\": [" + steps + "]}", "s.json");
  const auto failure = PlayScenario(scenario, options, transcript);
  return failure.value_or("played") + "\n" + out.str();
}

// The steps begin on line 6.
std::string PlayOnBar(const std::string& steps) {
  return Play(kShowBar + steps);
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
    EXPECT_THAT(Play("{\"note\": \"before\"},\n" + step), StartsWith("s.json:2: " + reason + "\n"));
  }
}

TEST(Player, TellsWhatAUserCouldDoThatShouldBeRefused) {
  EXPECT_THAT(PlayOnBar(R"({"press": "StopSharing", "refused": true})"),
              AllOf(StartsWith("s.json:6: a user could press StopSharing now\n"),
                    HasSubstr("stopSharing")));
}

TEST(Player, UsesUpNotificationsInOrder) {
  const std::string none_created = R"({"expectNone": "controlbarCreated"})";
  const std::string wait_created = R"({"waitFor": {"notification": "controlbarCreated"}},)";
  EXPECT_THAT(PlayOnBar(wait_created + none_created), StartsWith("played"));
  EXPECT_THAT(PlayOnBar(none_created),
              StartsWith("s.json:6: controlbarCreated came, expected none\n"));
}

TEST(Player, ClosesTheBarThatAScenarioLeaves) {
  const std::string played = PlayOnBar(R"({"note": "the end"})");
  EXPECT_LT(played.find("controlbarClosed"), played.find("stop ")) << played;
}

TEST(Player, RefusesLibrariesThatLackWhatIsNeeded) {
  const auto error = [](const char* plugin, const char* widgets) {
    PlayOptions options;
    options.files = {plugin, widgets, ""};
    return ErrorOf([&] { Play(R"({"press": "Leave"})", options); });
  };
  EXPECT_THAT(error("/absent/plugin", VELLOMAR_WIDGETS_PATH),
              StartsWith("cannot load \"/absent/plugin\": "));
  EXPECT_THAT(error(VELLOMAR_WIDGETS_PATH, VELLOMAR_WIDGETS_PATH),
              EndsWith("\" does not export ExportedInit"));

  // Here already, so that the plug-in finds this one and not the one with a screen.
  const SharedLibrary headless(VELLOMAR_WIDGETS_PATH);
  EXPECT_THAT(error(VELLOMAR_PLUGIN_PATH, VELLOMAR_LOG_PATH),
              StartsWith("s.json:1: the step acts on the widgets"));
}

}  // namespace
}  // namespace vellomar_host
