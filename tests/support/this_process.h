// SPDX-License-Identifier: MIT
// What tests ask of the system, about this process and beyond what the standard library does. One
// source file per operating system.
#pragma once

#include <filesystem>
#include <string>

// Whether the library is in the process's memory.
bool IsLoaded(const std::filesystem::path& file);

// A name that no other running process has, for folders: the tests of several builds may run at
// once.
std::string ProcessName();

// Makes a folder, however deep it lies, and puts a copy of the file into it. Returns the copy.
std::filesystem::path CopyDeep(const std::filesystem::path& file,
                               const std::filesystem::path& folder);
// Removes the copy and the folders from its own up to `top`.
void RemoveDeep(const std::filesystem::path& copy, const std::filesystem::path& top);
