// SPDX-License-Identifier: MIT
// Includes the public tables.
#include "host/abi/tables.h"

#include <algorithm>
#include <array>

#include "vellomar/command_records.h"
#include "vellomar/notification_records.h"

namespace vellomar_host {
namespace {

template <typename Record>
constexpr std::string_view kShape = "record";
template <>
constexpr std::string_view kShape<VellomarFlag> = "flag";
template <>
constexpr std::string_view kShape<VellomarInt> = "int";
template <>
constexpr std::string_view kShape<VellomarLong> = "long";
template <>
constexpr std::string_view kShape<VellomarText> = "text";
template <>
constexpr std::string_view kShape<VellomarDuration> = "text";
template <>
constexpr std::string_view kShape<VellomarNone> = "none";

template <typename Record>
constexpr std::string_view ShapeOf(Route route) {
  return route == Route::kSync ? "answering" : kShape<Record>;
}

template <typename Record>
constexpr std::size_t kPayloadSize = sizeof(Record);
template <>
constexpr std::size_t kPayloadSize<VellomarNone> = 0;

constexpr std::array kCommands = {
#define VELLOMAR_COMMAND(id, name, record, route, operation, fields, meaning) \
  Command{id,                                                                 \
          #name,                                                              \
          sizeof(record),                                                     \
          Route::k##route,                                                    \
          #operation,                                                         \
          fields,                                                             \
          ShapeOf<record>(Route::k##route),                                   \
          meaning},
#include "vellomar/command_table.def"
};

constexpr std::array kNotifications = {
#define VELLOMAR_NOTIFICATION(id, name, record, fields, meaning) \
  Notification{id, #name, kPayloadSize<record>, fields, meaning},
#include "vellomar/notification_table.def"
};

template <typename Table, typename Predicate>
auto Find(const Table& table, Predicate predicate) -> decltype(table.data()) {
  const auto row = std::find_if(table.begin(), table.end(), predicate);
  return row != table.end() ? &*row : nullptr;
}

}  // namespace

std::span<const Command> Commands() {
  return kCommands;
}
std::span<const Notification> Notifications() {
  return kNotifications;
}

const Command* FindCommand(std::string_view name) {
  return Find(kCommands, [name](const Command& row) { return row.name == name; });
}

const Command* FindCommand(std::uint64_t id) {
  return Find(kCommands, [id](const Command& row) { return row.id == id; });
}

const Notification* FindNotification(std::string_view name) {
  return Find(kNotifications, [name](const Notification& row) { return row.name == name; });
}

const Notification* FindNotification(std::uint64_t id) {
  return Find(kNotifications, [id](const Notification& row) { return row.id == id; });
}

std::string_view RouteName(Route route) {
  switch (route) {
    case Route::kPost:
      return "Post";
    case Route::kSync:
      return "Sync";
    case Route::kTraceOnly:
      break;
  }
  return "TraceOnly";
}

}  // namespace vellomar_host
