// SPDX-License-Identifier: MIT
// The plug-in's tables, held against tables/messages.txt. That a command takes its route and runs
// its operation says every block of the streams.
#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>
#include <utility>

#include "plugin/messages.h"
#include "vellomar/controlbar.h"

namespace {

using streams::Message;

using Rows = std::set<std::string>;

const Rows kCommands = {
#define VELLOMAR_COMMAND(id, name, record, route, operation, fields, meaning) \
#  id " " #  name " " #  route " " #  operation " " fields,
#include "vellomar/command_table.def"
};

const Rows kNotifications = {
#define VELLOMAR_NOTIFICATION(id, name, record, fields, meaning) #id " " #name " " fields,
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

}  // namespace
