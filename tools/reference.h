// SPDX-License-Identifier: MIT
// The commands, notifications and keys in print, as Markdown: docs/commands.md,
// docs/notifications.md, docs/keys.md.
//
//   std::string page = CommandsAsMarkdown();
//
// Offsets and sizes are those of the 32-bit interface, on whatever platform this runs.
#pragma once

#include <string>

namespace vellomar_tools {

std::string CommandsAsMarkdown();
std::string NotificationsAsMarkdown();
std::string KeysAsMarkdown();

}  // namespace vellomar_tools
