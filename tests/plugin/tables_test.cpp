// SPDX-License-Identifier: MIT
// The plug-in's tables, held against tables/messages.txt.
#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>
#include <utility>

#include "plugin/messages.h"
#include "plugin/player.h"
#include "vellomar/controlbar.h"

namespace {

using streams::Message;

using Rows = std::set<std::string>;

const Rows kCommands = {
#define VELLOMAR_COMMAND(id, name, record, route, operation, fields) \
#  id " " #  name " " #  route " " #  operation " " fields,
#include "vellomar/command_table.def"
};

const Rows kNotifications = {
#define VELLOMAR_NOTIFICATION(id, name, record, fields) #id " " #name " " fields,
#include "vellomar/notification_table.def"
};

// The messages of a kind in the notation of the plug-in's tables: "slot key, flag visible".
Rows Written(const std::string& kind) {
  const std::map<char, std::string> routes = {
      {'P', "Post "}, {'S', "Sync "}, {'-', "TraceOnly None"}, {' ', ""}};
  Rows rows;
  for (const Message& message : streams::Messages()) {
    if (message.kind != kind) continue;
    std::string row = std::to_string(message.id) + " " + message.name + " " +
                      routes.at(message.route) +
                      (message.operation == "-" ? "" : message.operation) +
                      (message.kind == "command" ? " " : "");
    const char* comma = "";
    for (const streams::Field& field : message.fields) {
      row += std::exchange(comma, ", ") + std::string(field.is_out ? "out " : "") + field.type +
             (field.is_array ? "[] " : " ") + field.name;
    }
    rows.insert(row);
  }
  return rows;
}

// One line each: the difference is printed line by line.
std::string Text(const Rows& rows) {
  std::string text;
  for (const std::string& row : rows) text += row + '\n';
  return text;
}

TEST(Tables, CommandsAndNotificationsAreTheseAndNoOthers) {
  EXPECT_EQ(Text(kCommands), Text(Written("command")));
  EXPECT_EQ(Text(kNotifications), Text(Written("notification")));
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
