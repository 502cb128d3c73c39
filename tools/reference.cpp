// SPDX-License-Identifier: MIT
// Writes the tables with the records' layout beside the names. What a page says about types it says
// only of those that occur on it.
#include "tools/reference.h"

#include <fmt/format.h>

#include <array>
#include <cstddef>
#include <set>
#include <string_view>

#include "host/abi/keys.h"
#include "host/abi/layout.h"
#include "host/abi/tables.h"

namespace vellomar_tools {
namespace {

using vellomar_host::Field;
using vellomar_host::FieldType;
using vellomar_host::Layout;

constexpr std::size_t kPointerSize = 4;

struct TypeMeaning {
  FieldType type;
  std::string_view meaning;  // "": a record, whose fields say it
};

constexpr std::array kMeanings = {
    TypeMeaning{FieldType::kFlag, "boolean: 0 is false, all else is true"},
    TypeMeaning{FieldType::kInt, "signed integer"},
    TypeMeaning{FieldType::kLong, "signed integer"},
    TypeMeaning{FieldType::kULong, "unsigned integer"},
    TypeMeaning{FieldType::kSlot,
                "signed integer, of which the low 32 bits are read and sign-extended"},
    TypeMeaning{FieldType::kText, "pointer to NUL-terminated UTF-8; null is the empty text"},
    TypeMeaning{FieldType::kRect, ""},
    TypeMeaning{FieldType::kDevice, ""},
    TypeMeaning{FieldType::kParticipant, ""},
};

// What a page's notation has to explain.
struct Used {
  std::set<FieldType> types;
  bool arrays = false;
  bool out = false;
};

Layout LayoutOf(std::string_view fields) {
  return vellomar_host::ParseLayout(fields, kPointerSize);
}

void Note(std::string_view fields, Used& used) {
  for (const Field& field : LayoutOf(fields).fields) {
    used.types.insert(field.type);
    used.arrays |= field.is_array;
    used.out |= field.is_out;
    Note(vellomar_host::NestedFields(field.type), used);
  }
}

// "0 `slot key`, 8 `flag visible`"
std::string FieldsWithOffsets(std::string_view fields) {
  std::string text;
  for (const Field& field : LayoutOf(fields).fields) {
    text += fmt::format("{}{} `{}{}{} {}`", text.empty() ? "" : ", ", field.offset,
                        field.is_out ? "out " : "", vellomar_host::TypeName(field.type),
                        field.is_array ? "[]" : "", field.name);
    if (field.is_array) {
      text += fmt::format(" (count {})", field.count_offset);
    }
  }
  return text;
}

std::string Notation(const Used& used) {
  std::string text =
      "## How to read the fields\n\n"
      "A field is its offset in bytes, its type and its name. Offsets and sizes are those of the "
      "32-bit\ninterface, with pointers of 4 bytes and 64-bit fields aligned on 8; in a 64-bit "
      "build "
      "pointers are\nwider and the order stays.";
  if (used.out) {
    text += " `out` marks what the plug-in writes.";
  }
  text += "\n\n| type | bytes | meaning |\n|---|---|---|\n";
  for (const auto& [type, meaning] : kMeanings) {
    if (!used.types.contains(type)) {
      continue;
    }
    const std::string_view name = vellomar_host::TypeName(type);
    text += fmt::format(
        "| `{}` | {} | {} |\n", name, LayoutOf(fmt::format("{} x", name)).size,
        meaning.empty() ? FieldsWithOffsets(vellomar_host::NestedFields(type)) : meaning);
  }
  if (used.arrays) {
    text += fmt::format(
        "| `T[]` | {} | pointer to the first of the `T`s, and their number: an `int` at the offset "
        "given as count |\n",
        LayoutOf("flag[] x").size);
  }
  return text + "\n";
}

// A list, a row each.
template <typename Table>
std::string Meanings(const Table& table) {
  std::string text = "\n## What they mean\n\n";
  for (const auto& row : table) {
    text += fmt::format("- `{}`: {}\n", row.name, row.meaning);
  }
  return text;
}

template <typename Table>
Used UsedIn(const Table& table) {
  Used used;
  for (const auto& row : table) {
    Note(row.fields, used);
  }
  return used;
}

}  // namespace

std::string About(const vellomar_host::Command& command) {
  return fmt::format("{} ({}), {}\n{}\nfields: {}\n", command.name, command.id,
                     vellomar_host::RouteName(command.route), command.meaning,
                     command.fields.empty() ? "none" : command.fields);
}

std::string About(const vellomar_host::Notification& notification) {
  return fmt::format("{} ({})\n{}\nfields: {}\n", notification.name, notification.id,
                     notification.meaning,
                     notification.fields.empty() ? "none" : notification.fields);
}

std::string CommandsAsMarkdown() {
  const auto commands = vellomar_host::Commands();
  std::string text = fmt::format(
      "# Commands\n\n"
      "The {} commands that the plug-in takes, by id, through `ExportedCallEvent`. The payload is "
      "a "
      "pointer to\nthe command's record and is never null; record, texts and arrays stay the "
      "host's. This page is\nprinted by `controlbar-host commands --markdown` from "
      "`include/vellomar/command_table.def`.\n\n"
      "The shape is what the record is made of: one value of a type, `record` for several, `none` "
      "for nothing,\n`answering` where the plug-in writes into it. Without fields the payload is "
      "not "
      "read. The route says\nwhen the operation of `ControlbarManager` runs: `Post` later, on the "
      "host's loop; `Sync` before the\ncall returns; `TraceOnly` never: the call is traced and "
      "succeeds.\n\n",
      commands.size());
  text += Notation(UsedIn(commands)) +
          "## The commands\n\n"
          "| id | name | shape | route | operation | bytes | fields |\n"
          "|---|---|---|---|---|---|---|\n";
  for (const auto& command : commands) {
    text += fmt::format("| {} | `{}` | {} | {} | {} | {} | {} |\n", command.id, command.name,
                        command.shape, vellomar_host::RouteName(command.route),
                        command.operation == "None" ? "" : fmt::format("`{}`", command.operation),
                        LayoutOf(command.fields).size, FieldsWithOffsets(command.fields));
  }
  return text + Meanings(commands);
}

std::string NotificationsAsMarkdown() {
  const auto notifications = vellomar_host::Notifications();
  std::string text = fmt::format(
      "# Notifications\n\n"
      "The {} notifications that the plug-in sends, by id, through the host's `Notify`. Record and "
      "texts are\nthe plug-in's and are freed when the call returns; where there are no fields the "
      "payload is a null\npointer. This page is printed by `controlbar-host notifications "
      "--markdown` from\n`include/vellomar/notification_table.def`.\n\n",
      notifications.size());
  text += Notation(UsedIn(notifications)) +
          "## The notifications\n\n"
          "| id | name | bytes | fields |\n"
          "|---|---|---|---|\n";
  for (const auto& notification : notifications) {
    text += fmt::format("| {} | `{}` | {} | {} |\n", notification.id, notification.name,
                        LayoutOf(notification.fields).size, FieldsWithOffsets(notification.fields));
  }
  return text + Meanings(notifications);
}

std::string KeysAsMarkdown() {
  std::string text =
      "# Keys\n\n"
      "What the buttons of the bars and the rows of their lists are called and numbered: "
      "`EventKey` in\n`vellomar/lorimel.h`, the same names in scenarios and in the tools. This "
      "page "
      "is printed by\n`controlbar-host keys --markdown` from "
      "`include/vellomar/event_key_table.def`.\n\n"
      "| key | name | what it is |\n"
      "|---|---|---|\n";
  for (const auto& row : vellomar_host::Keys()) {
    text += fmt::format("| {} | `{}` | {} |\n", row.key, row.name, row.meaning);
  }
  return text;
}

}  // namespace vellomar_tools
