// SPDX-License-Identifier: MIT
// Payload records from JSON and back, and the errors for arguments that do not fit. Where the
// fields lie for the 32-bit interface stands in the printed reference, which a test compares.
#include "host/abi/payload.h"

#include <gtest/gtest.h>

#include "host/abi/keys.h"
#include "support/error_of.h"
#include "vellomar/command_records.h"
#include "vellomar/notification_records.h"

namespace vellomar_host {
namespace {

using nlohmann::json;

Payload Encode(std::string_view command, std::string_view arguments) {
  return EncodeArguments(*FindCommand(command), json::parse(arguments));
}

template <typename Record>
Record& As(Payload& payload) {
  return *static_cast<Record*>(payload.data());
}

TEST(Layout, IsAsLargeAsEveryRecordInTheTables) {
  const auto check = [](const auto& row) {
    if (row.fields.empty()) {
      return;  // a record of one unread byte, or none
    }
    EXPECT_EQ(ParseLayout(row.fields).size, row.record_size) << row.name;
  };
  for (const Command& command : Commands()) {
    check(command);
  }
  for (const Notification& notification : Notifications()) {
    check(notification);
  }
}

TEST(Payload, RoundTripsEveryTypeOfField) {
  const json arguments = json::parse(R"({
    "flag": true, "int": -2147483648, "long": -9223372036854775808, "slot": -1,
    "ulong": 18446744073709551615, "text": "Grüße", "rect": {"x": -1, "y": 2, "width": 3, "height": 4},
    "flags": [true, false], "devices": [{"id": "a", "name": "A"}, {"id": "b", "name": null}],
    "participant": {"userId": "u", "instanceId": "i", "number": 5, "displayName": "d", "room": "r",
                    "avatarKey": "k", "avatarPath": "p", "flag": true}})");
  const std::string_view fields =
      "flag flag, int int, long long, slot slot, ulong ulong, text text, rect rect, "
      "flag[] flags, device[] devices, participant participant";
  const Layout layout = ParseLayout(fields);
  Command command = Commands().front();
  command.fields = fields;
  command.record_size = layout.size;
  Payload encoded = EncodeArguments(command, arguments);
  Payload payload(std::move(encoded));  // what it points to must not move with it
  // As text: compared as numbers, -1 is the largest of 64 bits.
  EXPECT_EQ(ToLine(DecodeFields(layout, payload.data())), ToLine(arguments));
}

TEST(Payload, TakesKeysByNumberOrName) {
  const auto key = [](const std::string& text) {
    Payload payload = Encode("setButtonVisible", R"({"visible": true, "key": )" + text + "}");
    return As<VellomarButtonFlag>(payload).key;
  };
  EXPECT_EQ(key(R"("MuteAudio")"), 1001);
  EXPECT_EQ(key(R"("GroupHeader")"), -1);
  EXPECT_EQ(key("1092"), 1092);
  EXPECT_EQ(CheckExpectedPayload(*FindNotification("uiEvent"), {{"key", "Chat"}}),
            json({{"key", 1007}}));
  EXPECT_EQ(KeyName(1090), "Settings");
}

TEST(Payload, NamesTheArgumentThatDoesNotFit) {
  struct Case {
    const char *command, *arguments, *error;
  };
  const Case cases[] = {
      {"setHostType", "{}", R"(: "type" is missing)"},
      {"setHostType", R"({"type": 1, "role": 2})", R"( has no "role")"},
      {"setHostType", "5", ": expected an object, got 5"},
      {"setHostType", R"({"type": 2147483648})",
       R"(: "type" should be an integer from -2147483648 to 2147483647, not 2147483648)"},
      {"setMicVolume", R"({"volume": 9223372036854775808})",
       R"(: "volume" should be an integer of 64 bits, not 9223372036854775808)"},
      {"setWindowTitle", R"({"title": "a\u0000b"})",
       R"(: "title" should be a text without NUL characters, not "a\u0000b")"},
      {"setButtonVisible", R"({"key": "MuteAll!", "visible": true})",
       R"(: "key" should be a key's number or name, not "MuteAll!")"},
      {"setCameraInfo", R"({"cameras": [{"id": "a", "name": 5}], "currentCameraId": ""})",
       R"(: "cameras[0].name" should be a text or null, not 5)"},
  };
  for (const Case& it : cases) {
    EXPECT_EQ(ErrorOf([&] { Encode(it.command, it.arguments); }),
              std::string(it.command) + it.error);
  }
}

TEST(Payload, DecodesNotificationsOfAnyContent) {
  const Notification& text = *FindNotification("selectCamera");
  VellomarNotifyText record{"\xff camera"};
  const json decoded = DecodeNotification(text, &record);
  EXPECT_NO_THROW(ToLine(decoded)) << "not UTF-8, and still printed";
  EXPECT_EQ(DecodeNotification(text, nullptr), json());
  EXPECT_EQ(DecodeNotification(*FindNotification("stopSharing"), nullptr), json::object());
}

}  // namespace
}  // namespace vellomar_host
