// SPDX-License-Identifier: MIT
// Linux: the process file system and the environment of the desktop.
#include <algorithm>
#include <cstdlib>
#include <string_view>

#include "tools/platform.h"

namespace vellomar_tools {
namespace {

std::string_view Environment(const char* name) {
  const char* value = std::getenv(name);
  return value != nullptr ? value : "";
}

}  // namespace

std::filesystem::path ExecutableFolder() {
  return std::filesystem::read_symlink("/proc/self/exe").parent_path();
}

std::vector<std::string> Arguments(int argc, char** argv) {
  std::vector<std::string> arguments(argv + 1, argv + argc);
  std::reverse(arguments.begin(), arguments.end());
  return arguments;
}

bool HasDisplay() {
  // Qt draws into memory under these two whatever display there is.
  const std::string_view platform = Environment("QT_QPA_PLATFORM");
  if (platform.starts_with("offscreen") || platform.starts_with("minimal")) {
    return false;
  }
  return !Environment("DISPLAY").empty() || !Environment("WAYLAND_DISPLAY").empty();
}

}  // namespace vellomar_tools
