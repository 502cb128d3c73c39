// SPDX-License-Identifier: MIT
// What tests ask of the system about this process. One source file per operating system.
#pragma once

#include <filesystem>
#include <string>

// Whether the library is in the process's memory.
bool IsLoaded(const std::filesystem::path& file);

// A name that no other running process has, for folders: the tests of several builds may run at
// once.
std::string ProcessName();
