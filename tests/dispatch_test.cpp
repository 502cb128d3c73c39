// SPDX-License-Identifier: MIT
// From an event id to an operation: every row of the command table, and how payloads are read.
#include <gmock/gmock.h>

#include <string>

#include "bridge/antenna_event_loop.h"
#include "bridge/resources.h"
#include "host/payload.h"
#include "host/tables.h"
#include "support/bar_test.h"
#include "vellomar/controlbar.h"

namespace {

using VELLOMAR_CONTROLBAR::__ResourceCollectionPool__;
using VELLOMAR_CONTROLBAR::AntennaEventLoop;

class DispatchTest : public BarTest {
 protected:
  // Sends a record as it stands.
  template <typename Record>
  bool SendRecord(std::uint32_t id, Record record) {
    const bool known = ExportedCallEvent(id, 0, &record);
    host.RunAll();
    return known;
  }
};

TEST_F(DispatchTest, EveryCommandTracesItselfAndTakesItsRoute) {
  ASSERT_EQ(vellomar_host::Commands().size(), 71u);
  for (const vellomar_host::Command& command : vellomar_host::Commands()) {
    recording_log::Clear();
    std::vector<std::uint64_t> zeros(16);
    EXPECT_TRUE(ExportedCallEvent(static_cast<std::uint32_t>(command.id), 0, zeros.data()));
    const std::string name(command.name);
    EXPECT_TRUE(Logged("entry " + name)) << name;
    const bool posted = command.route == vellomar_host::Route::Post;
    EXPECT_EQ(AntennaEventLoop::GetInstance()->TaskCount(), posted ? 1u : 0u) << name;
    host.RunAll();
    if (command.route == vellomar_host::Route::TraceOnly) continue;
    const std::string operation = "entry VELLOMAR_CONTROLBAR::ControlbarManager::";
    EXPECT_TRUE(Logged(operation + std::string(command.operation))) << name;
  }
}

TEST_F(DispatchTest, NumbersAreSignExtended) {
  Send("setHostType", {{"type", -1}});
  EXPECT_EQ(Manager().Data().GetHostType(), -1);
  SendRecord(VELLOMAR_COMMAND_setChatMessageCount, VellomarLong{1000});
  EXPECT_EQ(Manager().Data().GetChatMessageCount(), "...");
  // Of a slot the low half counts, whatever the high half holds.
  SendRecord(VELLOMAR_COMMAND_setButtonVisible,
             VellomarButtonFlag{(std::int64_t{0x7777} << 32) | 1007, 0});
  EXPECT_EQ(Button(1007).status, 2);
  VellomarHostControlInfo info{};
  info.selectedSecurityLevel = (std::int64_t{5} << 32) | 0xFFFFFFFF;
  info.onlyHostCanShare = (std::int64_t{5} << 32) | 1;
  SendRecord(VELLOMAR_COMMAND_setHostControlInfo, info);
  EXPECT_EQ(Manager().Data().GetCurrentSecurityLevel(), -1);
  EXPECT_TRUE(Manager().Data().IsOnlyHostCanShare());
}

TEST_F(DispatchTest, NullTextsAndListsAreEmpty) {
  SendRecord(VELLOMAR_COMMAND_setMeetingNumber, VellomarText{nullptr});
  EXPECT_EQ(Manager().Data().GetMeetingNumber(), "");
  const char* const texts[] = {nullptr, "Camera"};
  const std::int64_t ids[] = {10001, 10002};
  SendRecord(VELLOMAR_COMMAND_setTextMap, VellomarTextMap{ids, 2, texts, 2});
  EXPECT_STREQ(Button(1001).text, "");
  EXPECT_STREQ(Button(1002).text, "Camera");
  SendRecord(VELLOMAR_COMMAND_setTextMap, VellomarTextMap{nullptr, 5, texts, -1});
  EXPECT_EQ(Button(1002).text, nullptr) << "two empty lists empty the map";
}

TEST_F(DispatchTest, ADurationIsDecimalDigitsOrZero) {
  const std::pair<const char*, std::uint64_t> cases[] = {
      {"3600", 3600}, {"18446744073709551615", 18446744073709551615u},
      {"", 0},        {"18446744073709551616", 0},
      {"-5", 0},      {"12 minutes", 0}};
  for (const auto& [text, seconds] : cases) {
    SendRecord(VELLOMAR_COMMAND_setMeetingDuration, VellomarDuration{text});
    EXPECT_EQ(Library().Duration(), seconds) << text;
  }
}

TEST_F(DispatchTest, AnAnswerKeepsItsResourcesUntilTheHostDropsThem) {
  auto& pool = *__ResourceCollectionPool__::GetInstance();
  for (const char* command : {"showSharedControlbar", "closeSharedControlbar",
                              "getControlbarPosition", "showSketchControlbar"}) {
    const std::uint64_t id = vellomar_host::FindCommand(command)->id;
    const Json arguments = [&]() -> Json {
      if (std::string(command) == "showSharedControlbar") {
        return {{"display", {{"x", 0}, {"y", 0}, {"width", 800}, {"height", 600}}}};
      }
      return std::string(command) == "showSketchControlbar" ? Json{{"show", true}} : Json::object();
    }();
    Send(command, arguments);
    Send(command, arguments);
    EXPECT_TRUE(ExportedCallDrop(static_cast<std::uint32_t>(id), 0));
    EXPECT_EQ(pool.Drop(id), 0u) << command << ": the second answer replaced the first";
  }
  Send("getControlbarPosition");
  EXPECT_TRUE(ExportedCallDrop(28200089, 1)) << "another key";
  EXPECT_EQ(pool.Drop(28200089), 1u);
}

TEST_F(DispatchTest, AHostThatRunsTasksAtOnceIsServed) {
  host.run_at_once = true;
  Send("setWindowTitle", {{"title", "At once"}});
  EXPECT_EQ(Manager().Data().GetWindowTitle(), "At once");
  EXPECT_EQ(AntennaEventLoop::GetInstance()->TaskCount(), 0u);
}

TEST(ResourcesTest, TextsAreCopiedUpToTheirFirstZero) {
  VELLOMAR_CONTROLBAR::__ResourceCollection__ texts;
  const char* text = nullptr;
  VELLOMAR_CONTROLBAR::MakeCString(std::string_view("ab\0cd", 5), text, texts);
  EXPECT_EQ(std::string(text, 6), std::string("ab\0\0\0\0", 6));
  VELLOMAR_CONTROLBAR::MakeCString("", text, texts);
  EXPECT_STREQ(text, "");
  EXPECT_EQ(texts.Size(), 2u);
}

}  // namespace
