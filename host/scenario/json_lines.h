// SPDX-License-Identifier: MIT
// The lines on which the parts of a JSON text begin, which the JSON library does not keep.
//
//   JsonLines lines = FindLines(text);
//   lines.elements["steps"][2]  ->  the line of the third step
#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace vellomar_host {

struct JsonLines {
  std::map<std::string, int> members;                // of the outermost object, by name
  std::map<std::string, std::vector<int>> elements;  // of those members that are lists
};

// The text must be valid JSON. Names that are written with escapes are not found.
JsonLines FindLines(std::string_view text);

// The line, from 1, of a position in the text.
int LineAt(std::string_view text, std::size_t position);

}  // namespace vellomar_host
