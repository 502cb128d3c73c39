// SPDX-License-Identifier: MIT
// The plug-in, built with MinGW, and a widget library built for the Microsoft C++ ABI: they find
// each other by name, agree on `this`, on arguments of every kind and on who clears the stack.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include "host/abi/library.h"
#include "host/abi/tables.h"
#include "host/scenario/session.h"
#include "msvc_abi/tiny_lorimel.h"

namespace {

using nlohmann::json;
using testing::Contains;
using vellomar_host::FindCommand;
using VELLOMAR_LORIMEL::EventKey;

constexpr std::int64_t kWide = 0x123456789;  // more than 32 bits

class MsvcAbiTest : public testing::Test {
 protected:
  void SetUp() override {
    Send("setTextMap", {{"ids", {10001, 10018}}, {"texts", {"Audio", "Camera"}}});
    Send("setWindowTitle", {{"title", "Stand-up"}});
    Send("setMeetingSubType", {{"type", 2}});
    const json rectangle = {{"x", -kWide}, {"y", 2}, {"width", kWide}, {"height", 1080}};
    EXPECT_EQ(Send("showSharedControlbar", {{"display", rectangle}})["result"], true);
  }

  void TearDown() override { EXPECT_EQ(received.wrongThis, 0); }

  json Send(const char* command, const json& arguments) {
    json answer = session.Send(*FindCommand(command), arguments);
    session.loop().RunUntilIdle(vellomar_host::EventLoop::Clock::now() + std::chrono::seconds(5));
    return answer;
  }

  // The payloads of the notifications of one name.
  std::vector<json> Notified(std::string_view name) const {
    std::vector<json> payloads;
    for (const auto& [notification, payload] : session.notifications()) {
      if (notification->name == name) {
        payloads.push_back(payload);
      }
    }
    return payloads;
  }

  std::ostringstream out;
  vellomar_host::Transcript transcript{out, vellomar_host::Transcript::Form::kNone};
  // Loaded before the plug-in, which asks for a library of this name.
  vellomar_host::SharedLibrary tiny{VELLOMAR_TINY_LORIMEL};
  vellomar_host::Session session{
      {.plugin = VELLOMAR_PLUGIN_PATH, .widgets = VELLOMAR_TINY_LORIMEL, .log = ""},
      {},
      transcript};
  const TinyReceived& received = *tiny.Resolve<TinyGetReceived>("TinyReceivedSoFar")();
};

TEST_F(MsvcAbiTest, TheBarIsCreatedWithEveryArgumentInItsPlace) {
  EXPECT_STREQ(received.title, "Stand-up");
  EXPECT_EQ(received.display.x, -kWide);
  EXPECT_EQ(received.display.y, 2);
  EXPECT_EQ(received.display.width, kWide);
  EXPECT_EQ(received.display.height, 1080);
  EXPECT_EQ(received.count, VELLOMAR_LORIMEL::kKeyCount);
  EXPECT_EQ(received.type, 2);
  EXPECT_EQ(received.first.key, EventKey::MainWindow);
  EXPECT_EQ(static_cast<int>(received.last.key), VELLOMAR_LORIMEL::kLastKey);
  EXPECT_TRUE(received.shown);
  EXPECT_NE(received.shownHandle, nullptr);
  const json position = {{"x", -1}, {"y", 2}, {"width", 3}, {"height", 4}};
  EXPECT_THAT(Notified("controlbarCreated"),
              Contains(json{{"nativeHandle", 0x1122334455667788}, {"position", position}}));
}

TEST_F(MsvcAbiTest, RecordsNumbersAndReferencesArriveWhole) {
  Send("setAudioStatus", {{"status", 0}});
  EXPECT_EQ(received.pushed.key, EventKey::MuteAudio);
  EXPECT_TRUE(received.pushed.hasExpand);
  EXPECT_EQ(received.pushed.status, VELLOMAR_LORIMEL::kStatusDeviceMuted);
  EXPECT_STREQ(received.pushed.text, "Audio");

  Send("setMicVolume", {{"volume", 77}});
  EXPECT_EQ(received.volume, 77);
  Send("setMeetingDuration", {{"seconds", std::to_string(kWide)}});
  EXPECT_EQ(received.duration, static_cast<std::uint64_t>(kWide));
  EXPECT_EQ(Send("getControlbarPosition", json::object())["position"],
            (json{{"x", 1000}, {"y", -2}, {"width", 30}, {"height", 2147483647}}));
}

TEST_F(MsvcAbiTest, TheLibraryCallsBack) {
  tiny.Resolve<TinyPress>("TinyPressButton")(EventKey::MuteAudio);
  EXPECT_THAT(Notified("muteAudio"), Contains(json{{"mute", true}}));

  Send("setCameraInfo",
       {{"cameras", {{{"id", "cam-1"}, {"name", "Front Camera"}}}}, {"currentCameraId", "cam-1"}});
  int count = 0;
  const auto* rows = tiny.Resolve<TinyOpen>("TinyOpenList")(EventKey::CameraDevices, &count);
  ASSERT_EQ(count, 2);
  EXPECT_STREQ(rows[1].text, "Front Camera");

  Send("closeSharedControlbar", json::object());
  EXPECT_EQ(Notified("controlbarClosed").size(), 1u);
}

}  // namespace
