// SPDX-License-Identifier: MIT
// What the tools ask of the operating system; a source file for each.
//
//   ExecutableFolder() / ".." / "lib"
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace vellomar_tools {

// The folder that the running program lies in. Throws std::filesystem::filesystem_error.
std::filesystem::path ExecutableFolder();

// What `main` was given after the program's name, in UTF-8 and with the last argument first, as
// CLI11 takes it.
std::vector<std::string> Arguments(int argc, char** argv);

// Whether windows can be seen by somebody.
bool HasDisplay();

}  // namespace vellomar_tools
