// SPDX-License-Identifier: MIT
// Payload records from JSON and back, and the errors for arguments that do not fit.
#include "host/payload.h"

#include <gtest/gtest.h>

#include <cstring>

#include "host/host_error.h"
#include "host/keys.h"
#include "vellomar/command_records.h"
#include "vellomar/notification_records.h"

namespace vellomar_host {
namespace {

using nlohmann::json;

Payload Encode(std::string_view command, const json& arguments) {
  return EncodeArguments(*FindCommand(command), arguments);
}

std::string ErrorOf(std::string_view command, const json& arguments) {
  try {
    Encode(command, arguments);
  } catch (const HostError& error) {
    return error.what();
  }
  return "no error";
}

// A value that differs from a zeroed field, for any field.
json Sample(const Field& field) {
  json value;
  switch (field.type) {
    case FieldType::kFlag:
      value = true;
      break;
    case FieldType::kInt:
    case FieldType::kSlot:
      value = INT32_MIN;
      break;
    case FieldType::kLong:
      value = INT64_MIN;
      break;
    case FieldType::kULong:
      value = UINT64_MAX;
      break;
    case FieldType::kText:
      value = "Grüße " + field.name;
      break;
    default:
      value = json::object();
      for (const Field& part : ParseLayout(NestedFields(field.type)).fields) {
        value[part.name] = Sample(part);
      }
  }
  return field.is_array ? json::array({value, value}) : value;
}

TEST(Payload, RoundTripsEveryCommandAndNotification) {
  for (const Command& command : Commands()) {
    json arguments = json::object();
    Layout layout = ParseLayout(command.fields);
    std::erase_if(layout.fields, [](const Field& field) { return field.is_out; });
    for (const Field& field : layout.fields) arguments[field.name] = Sample(field);
    Payload payload = EncodeArguments(command, arguments);
    payload = Payload(std::move(payload));  // what it points to must not move with it
    EXPECT_EQ(DecodeFields(layout, payload.data()), arguments) << command.name;
  }
  for (const Notification& notification : Notifications()) {
    json fields = json::object();
    for (const Field& field : ParseLayout(notification.fields).fields) {
      fields[field.name] = Sample(field);
    }
    EXPECT_EQ(CheckExpectedPayload(notification, fields), fields) << notification.name;
  }
}

TEST(Payload, IsTheRecordOfTheInterface) {
  Payload bar = Encode("showSharedControlbar",
                       {{"display", {{"x", -1920}, {"y", 0}, {"width", 1920}, {"height", 1080}}}});
  auto* show = static_cast<VellomarShowControlbar*>(bar.data());
  EXPECT_EQ(show->display.x, -1920);
  EXPECT_EQ(show->display.height, 1080);
  show->result = 1;
  EXPECT_EQ(DecodeAnswer(*FindCommand("showSharedControlbar"), show), json({{"result", true}}));

  Payload cameras = Encode("setCameraInfo", {{"cameras", {{{"id", "c"}, {"name", nullptr}}}},
                                             {"currentCameraId", nullptr}});
  const auto* info = static_cast<VellomarCameraInfo*>(cameras.data());
  ASSERT_EQ(info->cameraCount, 1);
  EXPECT_STREQ(info->cameras[0].id, "c");
  EXPECT_EQ(info->cameras[0].name, nullptr);
  EXPECT_EQ(info->currentCameraId, nullptr);

  Payload none = Encode("setCameraInfo", {{"cameras", nullptr}, {"currentCameraId", ""}});
  EXPECT_EQ(static_cast<VellomarCameraInfo*>(none.data())->cameras, nullptr);
  EXPECT_NE(Encode("leaveMeetingSubRoom", json::object()).data(), nullptr);
}

TEST(Payload, TakesKeysByNumberOrName) {
  const auto key = [](const json& value) {
    Payload payload = Encode("setButtonVisible", {{"key", value}, {"visible", true}});
    return static_cast<VellomarButtonFlag*>(payload.data())->key;
  };
  EXPECT_EQ(key("MuteAudio"), 1001);
  EXPECT_EQ(key("GroupHeader"), -1);
  EXPECT_EQ(key(1092), 1092);
  Payload map = Encode("setTestContentMap", {{"keys", {"Leave", 7}}, {"texts", {"a", "b"}}});
  EXPECT_EQ(static_cast<VellomarTextMap*>(map.data())->ids[0], 1014);
  EXPECT_EQ(KeyName(1090), "Settings");
  EXPECT_EQ(KeyName(999), "999");
  EXPECT_EQ(CheckExpectedPayload(*FindNotification("uiEvent"), {{"key", "Chat"}}),
            json({{"key", 1007}}));
}

TEST(Payload, NamesTheArgumentThatDoesNotFit) {
  EXPECT_EQ(ErrorOf("setHostType", json::object()), "setHostType: \"type\" is missing");
  EXPECT_EQ(ErrorOf("setHostType", {{"type", 1}, {"role", 2}}), "setHostType has no \"role\"");
  EXPECT_EQ(ErrorOf("setHostType", {{"type", 2147483648}}),
            "setHostType: \"type\" should be an integer from -2147483648 to 2147483647, not "
            "2147483648");
  EXPECT_EQ(ErrorOf("setHostType", 5), "setHostType: expected an object, got 5");
  EXPECT_EQ(ErrorOf("setMicVolume", {{"volume", 9223372036854775808U}}),
            "setMicVolume: \"volume\" should be an integer of 64 bits, not 9223372036854775808");
  EXPECT_EQ(ErrorOf("setMicVolume", {{"volume", 1.0}}),
            "setMicVolume: \"volume\" should be an integer of 64 bits, not 1.0");
  EXPECT_EQ(ErrorOf("setRecordStatus", {{"recording", 1}}),
            "setRecordStatus: \"recording\" should be true or false, not 1");
  EXPECT_EQ(ErrorOf("setWindowTitle", {{"title", std::string("a\0b", 3)}}),
            "setWindowTitle: \"title\" should be a text without NUL characters, not \"a\\u0000b\"");
  EXPECT_EQ(ErrorOf("setButtonVisible", {{"key", "MuteAll!"}, {"visible", true}}),
            "setButtonVisible: \"key\" should be a key's number or name, not \"MuteAll!\"");
  EXPECT_EQ(ErrorOf("setCameraInfo",
                    {{"cameras", {{{"id", "a"}, {"name", 5}}}}, {"currentCameraId", ""}}),
            "setCameraInfo: \"cameras[0].name\" should be a text or null, not 5");
  EXPECT_EQ(ErrorOf("closeSharedControlbar", {{"result", true}}),
            "closeSharedControlbar has no \"result\"");
}

TEST(Payload, DecodesNotificationsOfAnyContent) {
  const Notification& text = *FindNotification("selectCamera");
  VellomarNotifyText record{"\xff camera"};
  const json decoded = DecodeNotification(text, &record);
  EXPECT_NO_THROW(ToLine(decoded)) << "not UTF-8, and still printed";
  EXPECT_EQ(DecodeNotification(text, nullptr), json());
  EXPECT_EQ(DecodeNotification(*FindNotification("stopSharing"), nullptr), json::object());
}

TEST(Payload, ComparesOnlyWhatIsExpected) {
  const json actual = {{"open", true}, {"count", 3}};
  EXPECT_EQ(FindMismatch({{"count", 3}}, actual), std::nullopt);
  EXPECT_EQ(FindMismatch(json::object(), nullptr), std::nullopt);
  EXPECT_EQ(FindMismatch({{"count", 4}}, actual), "\"count\" is 3, expected 4");
  EXPECT_EQ(FindMismatch({{"open", true}}, nullptr), "\"open\" is null, expected true");
}

}  // namespace
}  // namespace vellomar_host
