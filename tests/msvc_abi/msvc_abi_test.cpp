// SPDX-License-Identifier: MIT
// The plug-in, built with MinGW, and a widget library built for the Microsoft C++ ABI: they find
// each other by name, agree on `this`, on arguments of every kind and on who clears the stack.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>
#include <sstream>
#include <string>

#include "host/library.h"
#include "host/session.h"
#include "host/tables.h"
#include "tiny_lorimel.h"
#include "vellomar/lorimel.h"

namespace {

using nlohmann::json;
using testing::Contains;
using vellomar_host::FindCommand;
using VELLOMAR_LORIMEL::BtnParams;
using VELLOMAR_LORIMEL::EventKey;

constexpr std::int64_t kWide = 0x123456789;  // more than 32 bits

BtnParams RecordOf(const TinyRecord& raw) {
  BtnParams params;
  std::memcpy(&params, raw.bytes, sizeof params);
  return params;
}

class MsvcAbiTest : public testing::Test {
 protected:
  json Send(const char* command, const json& arguments) {
    json answer = session.Send(*FindCommand(command), arguments);
    session.loop().RunUntilIdle(vellomar_host::EventLoop::Clock::now() + std::chrono::seconds(5));
    return answer;
  }

  void ShowBar() {
    Send("setTextMap", {{"ids", {10001, 10018}}, {"texts", {"Audio", "Camera"}}});
    Send("setWindowTitle", {{"title", "Stand-up"}});
    Send("setMeetingSubType", {{"type", 2}});
    const json rectangle = {{"x", -kWide}, {"y", 2}, {"width", kWide}, {"height", 1080}};
    EXPECT_EQ(Send("showSharedControlbar", {{"display", rectangle}})["result"], true);
  }

  // The payloads of the notifications of one name.
  std::vector<json> Notified(std::string_view name) const {
    std::vector<json> payloads;
    for (const auto& [notification, payload] : session.notifications()) {
      if (notification->name == name) payloads.push_back(payload);
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
  ShowBar();
  EXPECT_STREQ(received.title, "Stand-up");
  EXPECT_EQ(received.x, -kWide);
  EXPECT_EQ(received.y, 2);
  EXPECT_EQ(received.width, kWide);
  EXPECT_EQ(received.height, 1080);
  EXPECT_EQ(received.paramsCount, 92);
  EXPECT_EQ(received.type, 2);
  EXPECT_EQ(RecordOf(received.first).key, EventKey::MainWindow);
  EXPECT_EQ(static_cast<int>(RecordOf(received.last).key), 1091);
  EXPECT_EQ(received.shown, 1);
  EXPECT_NE(received.shownHandle, nullptr);
  EXPECT_EQ(received.wrongThis, 0);
  const json position = {{"x", -1}, {"y", 2}, {"width", 3}, {"height", 4}};
  EXPECT_THAT(Notified("controlbarCreated"),
              Contains(json{{"nativeHandle", 0x1122334455667788}, {"position", position}}));
}

TEST_F(MsvcAbiTest, APushedRecordHasItsFieldsInTheirPlaces) {
  ShowBar();
  const int before = received.pushes;
  Send("setAudioStatus", {{"status", 0}});
  ASSERT_GT(received.pushes, before);
  const TinyRecord& raw = received.pushed[received.pushes - 1];
  const BtnParams pushed = RecordOf(raw);
  EXPECT_EQ(pushed.key, EventKey::MuteAudio);
  EXPECT_TRUE(pushed.hasExpand);
  EXPECT_EQ(pushed.status, VELLOMAR_LORIMEL::kStatusDeviceMuted);
  EXPECT_STREQ(raw.text, "Audio");
  EXPECT_EQ(received.wrongThis, 0);
}

TEST_F(MsvcAbiTest, NumbersAndReferencesArriveWhole) {
  ShowBar();
  Send("setMicVolume", {{"volume", 77}});
  Send("setMeetingDuration", {{"seconds", std::to_string(kWide)}});
  EXPECT_EQ(received.volume, 77);
  EXPECT_EQ(received.duration, static_cast<std::uint64_t>(kWide));
  EXPECT_EQ(Send("getControlbarPosition", json::object())["position"],
            (json{{"x", 1000}, {"y", -2}, {"width", 30}, {"height", 2147483647}}));
  EXPECT_EQ(received.wrongThis, 0);
}

TEST_F(MsvcAbiTest, TheLibraryCallsBack) {
  ShowBar();
  tiny.Resolve<TinyPress>("TinyPressButton")(1001, 0);
  EXPECT_THAT(Notified("muteAudio"), Contains(json{{"mute", true}}));

  Send("setCameraInfo",
       {{"cameras", {{{"id", "cam-1"}, {"name", "Front Camera"}}}}, {"currentCameraId", "cam-1"}});
  char last[kTinyTextSize] = {};
  EXPECT_EQ(tiny.Resolve<TinyOpen>("TinyOpenList")(1020, last), 2);
  EXPECT_STREQ(last, "Front Camera");

  Send("closeSharedControlbar", json::object());
  EXPECT_EQ(Notified("controlbarClosed").size(), 1u);
}

}  // namespace
