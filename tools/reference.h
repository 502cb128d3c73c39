// SPDX-License-Identifier: MIT
// The commands and notifications in print, as Markdown: docs/commands.md and docs/notifications.md.
//
//   std::string page = CommandsAsMarkdown();
//
// Offsets and sizes are those of the 32-bit interface, on whatever platform this runs.
#pragma once

#include <string>

namespace vellomar_tools {

std::string CommandsAsMarkdown();
std::string NotificationsAsMarkdown();

}  // namespace vellomar_tools
