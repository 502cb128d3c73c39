// SPDX-License-Identifier: MIT
// The plug-in's tables and records, held against tables/messages.txt.
#include <gtest/gtest.h>

#include <cstddef>
#include <map>
#include <string>
#include <type_traits>
#include <vector>

#include "plugin/messages.h"
#include "plugin/player.h"
#include "vellomar/controlbar.h"

namespace {

using streams::Field;
using streams::Message;

struct Any {
  template <typename T>
  operator T() const;  // NOLINT: only for the question whether a record has so many fields
};

template <typename T, typename... Fields>
constexpr std::size_t FieldCount() {
  if constexpr (requires { T{Fields{}..., Any{}}; }) {
    return FieldCount<T, Fields..., Any>();
  } else {
    return sizeof...(Fields);
  }
}

using Offsets = std::vector<std::size_t>;

template <typename T>
void AddOffsets(const T& value, const void* start, Offsets& offsets) {
  const auto add = [&](const auto&... fields) { (AddOffsets(fields, start, offsets), ...); };
  if constexpr (!std::is_class_v<T>) {
    offsets.push_back(static_cast<std::size_t>(reinterpret_cast<const char*>(&value) -
                                               static_cast<const char*>(start)));
  }
#define FIELDS(count, ...)                                          \
  if constexpr (std::is_class_v<T> && FieldCount<T>() == (count)) { \
    const auto& [__VA_ARGS__] = value;                              \
    add(__VA_ARGS__);                                               \
  }
  FIELDS(1, a)
  FIELDS(2, a, b)
  FIELDS(3, a, b, c)
  FIELDS(4, a, b, c, d)
  FIELDS(5, a, b, c, d, e)
  FIELDS(6, a, b, c, d, e, f)
  FIELDS(8, a, b, c, d, e, f, g, h)
  FIELDS(11, a, b, c, d, e, f, g, h, i, j, k)
#undef FIELDS
}

template <typename T>
Offsets OffsetsOf() {
  const T record{};
  Offsets offsets;
  AddOffsets(record, &record, offsets);
  return offsets;
}

void AddOffsets(const Message& message, std::size_t start, Offsets& offsets) {
  for (const Field& field : message.fields) {
    const Message* const nested = streams::FindMessage("record", field.type);
    if (nested != nullptr && !field.is_array) {
      AddOffsets(*nested, start + field.offset, offsets);
      continue;
    }
    offsets.push_back(start + field.offset);
    if (field.is_array) offsets.push_back(start + field.offset + sizeof(void*));
  }
}

// "slot key, flag visible", as the plug-in's tables have it.
std::string Notation(const Message& message) {
  std::string notation;
  for (const Field& field : message.fields) {
    notation += std::string(notation.empty() ? "" : ", ") + (field.is_out ? "out " : "") +
                field.type + (field.is_array ? "[] " : " ") + field.name;
  }
  return notation;
}

struct Row {
  std::string name, route, operation, fields;
  Offsets offsets;
};

const std::map<std::uint64_t, Row> kCommands = {
#define VELLOMAR_COMMAND(id, name, record, route, operation, fields) \
  {id, {#name, #route, #operation, fields, OffsetsOf<record>()}},
#include "vellomar/command_table.def"
};

const std::map<std::uint64_t, Row> kNotifications = {
#define VELLOMAR_NOTIFICATION(id, name, record, fields) \
  {id, {#name, "", "", fields, OffsetsOf<record>()}},
#include "vellomar/notification_table.def"
};

void Compare(const std::string& kind, std::map<std::uint64_t, Row> rows) {
  const std::map<char, std::string> routes = {{'P', "Post"}, {'S', "Sync"}, {'-', "TraceOnly"}};
  for (const Message& message : streams::Messages()) {
    if (message.kind != kind) continue;
    SCOPED_TRACE(message.name);
    const auto row = rows.extract(message.id);
    if (!row) {
      ADD_FAILURE() << "no row for " << message.id;
      continue;
    }
    EXPECT_EQ(row.mapped().name, message.name);
    EXPECT_EQ(row.mapped().fields, Notation(message));
    if (kind == "command") {
      EXPECT_EQ(row.mapped().route, routes.at(message.route));
      EXPECT_EQ(row.mapped().operation, message.operation == "-" ? "None" : message.operation);
    }
    Offsets offsets;
    AddOffsets(message, 0, offsets);
    if (message.fields.empty()) continue;
    EXPECT_EQ(row.mapped().offsets, offsets);
  }
  EXPECT_TRUE(rows.empty()) << "nothing says what " << rows.begin()->second.name << " is";
}

TEST(Tables, CommandsAreTheseAndNoOthers) {
  Compare("command", kCommands);
}

TEST(Tables, NotificationsAreTheseAndNoOthers) {
  Compare("notification", kNotifications);
}

TEST(Tables, RequestAndResponseLieAsWritten) {
  for (const auto& [kind, id, offsets] :
       {std::tuple("request", std::uint64_t{VELLOMAR_REQUEST_PARTICIPANT},
                   OffsetsOf<VellomarParticipantRequest>()),
        std::tuple("response", std::uint64_t{VELLOMAR_RESPONSE_AVATAR},
                   OffsetsOf<VellomarAvatarResponse>())}) {
    const Message* const message = streams::FindMessage(kind, id);
    ASSERT_NE(message, nullptr) << kind;
    Offsets written;
    AddOffsets(*message, 0, written);
    EXPECT_EQ(written, offsets) << kind;
  }
}

// Where pointers have four bytes, the computed offsets are the written ones.
TEST(Tables, WrittenOffsetsAreThoseOfThe32BitTarget) {
  for (const Message& message : streams::Messages(4)) {
    for (const Field& field : message.fields) {
      EXPECT_EQ(field.offset, field.written_offset) << message.name << '.' << field.name;
    }
  }
}

// Each command, by its number, traces itself, takes its route and runs its operation.
TEST(Tables, EveryCommandTakesItsRouteToItsOperation) {
  for (const Message& command : streams::Messages()) {
    if (command.kind != "command") continue;
    streams::Player player;
    player.Play("init");
    player.Play("show calls");
    streams::Lines lines = player.Play(command.name);
    streams::Lines expected = {"in ExportedCallEvent", "  in " + command.name};
    if (command.route == 'P') {
      expected.insert(expected.end(), {"    loop post 100", "in Manager::" + command.operation});
    } else if (command.route == 'S') {
      expected.insert(expected.end(), {"    loop runSync", "    in Manager::" + command.operation});
    }
    ASSERT_GE(lines.size(), expected.size()) << command.name;
    if (command.route != '-') lines.resize(expected.size());
    EXPECT_EQ(lines, expected);
  }
}

}  // namespace
