// SPDX-License-Identifier: MIT
// The commands and notifications as data, taken from the public tables.
//
//   const Command* command = FindCommand("setMeetingNumber");
//   command->id  ->  28200625,  command->shape  ->  "text"
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace vellomar_host {

enum class Route { kPost, kSync, kTraceOnly };

struct Command {
  std::uint64_t id;
  std::string_view name;
  std::size_t record_size;  // in bytes, at least 1
  Route route;
  std::string_view operation;  // "None" where there is none
  std::string_view fields;     // in the notation of vellomar/command_table.def
  std::string_view shape;      // flag, int, long, text, none, record or answering
  std::string_view meaning;    // a few sentences; names of fields in backticks
};

struct Notification {
  std::uint64_t id;
  std::string_view name;
  std::size_t record_size;  // in bytes; 0: it has no payload
  std::string_view fields;
  std::string_view meaning;  // what has happened, and what the host does
};

std::span<const Command> Commands();
std::span<const Notification> Notifications();

// Null where there is none.
const Command* FindCommand(std::string_view name);
const Command* FindCommand(std::uint64_t id);
const Notification* FindNotification(std::string_view name);
const Notification* FindNotification(std::uint64_t id);

std::string_view RouteName(Route route);

}  // namespace vellomar_host
