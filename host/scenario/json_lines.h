// SPDX-License-Identifier: MIT
// JSON texts: their values, and the lines on which their parts begin, which the JSON library does
// not keep.
//
//   JsonLines lines = FindLines(text);
//   lines.elements["steps"][2]  ->  the line of the third step
#pragma once

#include <cstddef>
#include <map>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>
#include <vector>

#include "host/host_error.h"

namespace vellomar_host {

struct JsonLines {
  std::map<std::string, int> members;                // of the outermost object, by name
  std::map<std::string, std::vector<int>> elements;  // of those members that are lists
};

// What is wrong with a text, and the line, from 1.
struct JsonError : HostError {
  JsonError(int at, const std::string& reason) : HostError(reason), line(at) {}
  int line;
};

// Throws JsonError where the text is no JSON, or brackets stand deeper in each other than anything
// that we read: what walks a value calls itself for each.
nlohmann::json ParseJson(std::string_view text);

// The text must be valid JSON. Names that are written with escapes are not found.
JsonLines FindLines(std::string_view text);

}  // namespace vellomar_host
