// SPDX-License-Identifier: MIT
// The commands, notifications and keys in print, as Markdown: docs/commands.md,
// docs/notifications.md, docs/keys.md.
//
//   std::string page = CommandsAsMarkdown();
//
// Offsets and sizes are those of the 32-bit interface, on whatever platform this runs.
#pragma once

#include <string>

#include "host/abi/tables.h"

namespace vellomar_tools {

// For a terminal: id, what it means, fields.
std::string About(const vellomar_host::Command& command);
std::string About(const vellomar_host::Notification& notification);

std::string CommandsAsMarkdown();
std::string NotificationsAsMarkdown();
std::string KeysAsMarkdown();

}  // namespace vellomar_tools
