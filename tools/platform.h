// SPDX-License-Identifier: MIT
// What the tools ask of the operating system; a source file for each.
//
//   ExecutableFolder() / ".." / "lib"
#pragma once

#include <filesystem>

namespace vellomar_tools {

// The folder that the running program lies in. Throws std::filesystem::filesystem_error.
std::filesystem::path ExecutableFolder();

// Whether windows can be seen by somebody.
bool HasDisplay();

}  // namespace vellomar_tools
