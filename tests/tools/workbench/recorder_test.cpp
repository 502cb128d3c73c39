// SPDX-License-Identifier: MIT
// What is recorded is a scenario again.
#include "tools/workbench/recorder.h"

#include <gtest/gtest.h>

#include "host/scenario/scenario.h"

namespace vellomar_workbench {
namespace {

using nlohmann::json;
using std::chrono::milliseconds;

class RecorderTest : public testing::Test {
 protected:
  void Take(const std::string& kind, const std::string& subject, const json& details = nullptr) {
    recorder.Take({milliseconds(0), kind, subject, details});
  }

  // The steps of the recording, which must be a scenario.
  json Steps() const {
    const std::string text = recorder.Scenario("A \"name\"");
    EXPECT_NO_THROW(vellomar_host::ParseScenario(text, "recording.json")) << text;
    return json::parse(text)["steps"];
  }

  Recorder recorder;
};

TEST_F(RecorderTest, RestsBeforeStepsThatLookAtWhatWasPosted) {
  Take("send", "setHostType", {{"type", 1}});
  Take("push", "MuteAudio", {{"status", 0}});
  Take("send", "closeSketchControlbar", json::object());
  Take("press", "Chat");
  Take("press", "More");
  Take("send", "setHostType", {{"type", 0}});
  Take("send", "closeSharedControlbar", json::object());
  Take("send", "setHostType", {{"type", 0}});
  const json rest = {{"waitIdle", true}};
  EXPECT_EQ(Steps(), json({{{"send", "setHostType"}, {"args", {{"type", 1}}}},
                           {{"send", "closeSketchControlbar"}},
                           rest,
                           {{"press", "Chat"}},
                           {{"press", "More"}},
                           {{"send", "setHostType"}, {"args", {{"type", 0}}}},
                           rest,
                           {{"send", "closeSharedControlbar"}},
                           {{"send", "setHostType"}, {"args", {{"type", 0}}}},
                           rest}));
}

TEST_F(RecorderTest, KeepsWhatTheUserDid) {
  recorder.SetParticipantAnswers({{"u-1", -1}});
  Take("open", "CameraDevices");
  Take("pick", "CameraItem", "cam-2");
  Take("pick", "MuteAll", "");
  Take("press", "Leave");
  Take("matched", "cannot press Leave");
  Take("close", "list");
  Take("respond", "avatar", {{"avatarKey", "a"}, {"avatarPath", "/tmp/a.png"}});
  Take("drop", "showSharedControlbar");
  Take("close", "bar");
  EXPECT_EQ(Steps(), json({{{"open", "CameraDevices"}},
                           {{"pick", "CameraItem"}, {"value", "cam-2"}},
                           {{"pick", "MuteAll"}},
                           {{"press", "Leave"}, {"refused", true}},
                           {{"closeList", true}},
                           {{"respond", {{"avatarKey", "a"}, {"avatarPath", "/tmp/a.png"}}}},
                           {{"drop", "showSharedControlbar"}},
                           {{"closeBar", true}}}));
  EXPECT_EQ(json::parse(recorder.Scenario(""))["participantAnswers"], json({{"u-1", -1}}));
  recorder.Clear();
  EXPECT_EQ(Steps(), json::array());
}

TEST_F(RecorderTest, WithResultsLeavesOutWhatIsDifferentEachTime) {
  Take("send", "getControlbarPosition", json::object());
  Take("notify", "chat", {{"open", true}});
  recorder.SetWithResults(true);
  Take("answer", "getControlbarPosition", {{"position", {{"x", 1}}}});
  Take("notify", "popupCreated", {{"windowId", 7}, {"position", {{"x", 1}}}});
  Take("send", "closeSharedControlbar", json::object());
  Take("answer", "closeSharedControlbar", {{"result", true}});
  Take("notify", "chat", {{"open", true}});
  EXPECT_EQ(Steps(),
            json({{{"send", "getControlbarPosition"}},
                  {{"waitFor", {{"notification", "popupCreated"}}}},
                  {{"send", "closeSharedControlbar"}, {"expect", {{"result", true}}}},
                  {{"waitFor", {{"notification", "chat"}, {"payload", {{"open", true}}}}}}}));
}

}  // namespace
}  // namespace vellomar_workbench
