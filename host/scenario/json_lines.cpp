// SPDX-License-Identifier: MIT
// One pass over the text that tracks depth and strings and nothing else.
#include "host/scenario/json_lines.h"

#include <algorithm>

namespace vellomar_host {
namespace {

class LineFinder {
 public:
  explicit LineFinder(std::string_view text) : text_(text) {}

  JsonLines Find() {
    for (; position_ < text_.size(); ++position_) {
      const char character = text_[position_];
      if (character == '\n') {
        ++line_;
      }
      if (std::string_view(" \t\r\n:").find(character) != std::string_view::npos) {
        continue;
      }
      if (character == ']' || character == '}') {
        --depth_;
      } else if (character == ',') {
        expects_element_ = true;
      } else {
        BeginToken(character);
      }
    }
    return lines_;
  }

 private:
  void BeginToken(char character) {
    if (depth_ == 2 && in_list_ && expects_element_) {
      lines_.elements[member_].push_back(line_);
    }
    const bool is_member = depth_ == 1 && expects_element_;
    expects_element_ = false;
    if (character == '"') {
      const std::string_view text = SkipString();
      if (is_member) {
        member_ = text;
        lines_.members[member_] = line_;
        lines_.elements.erase(member_);
      }
    } else if (character == '[' || character == '{') {
      if (depth_ == 1) {
        in_list_ = character == '[';
      }
      ++depth_;
      expects_element_ = true;
    }
  }

  // Leaves the position on the closing quote; returns what stands between the quotes.
  std::string_view SkipString() {
    const std::size_t begin = ++position_;
    while (position_ < text_.size() && text_[position_] != '"') {
      position_ += text_[position_] == '\\' ? 2 : 1;
    }
    return text_.substr(begin, position_ - begin);
  }

  std::string_view text_;
  std::size_t position_ = 0;
  int line_ = 1;
  int depth_ = 0;
  bool in_list_ = false;          // the member of the outermost object is a list
  bool expects_element_ = false;  // the next token begins a member or an element
  std::string member_;
  JsonLines lines_;
};

// The line, from 1, of a position in the text.
int LineAt(std::string_view text, std::size_t position) {
  const auto before = text.substr(0, position);
  return 1 + static_cast<int>(std::count(before.begin(), before.end(), '\n'));
}

// Where brackets are first too deep in each other; npos: nowhere. The text need not be JSON.
std::size_t FindTooDeep(std::string_view text) {
  constexpr int kDeepest = 64;
  int depth = 0;
  bool in_string = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char character = text[i];
    if (in_string && character == '\\') {
      ++i;
    } else if (character == '"') {
      in_string = !in_string;
    } else if (!in_string && (character == '[' || character == '{') && ++depth > kDeepest) {
      return i;
    } else if (!in_string && (character == ']' || character == '}')) {
      --depth;
    }
  }
  return std::string_view::npos;
}

}  // namespace

nlohmann::json ParseJson(std::string_view text) {
  if (text.find_first_not_of(" \t\r\n") == std::string_view::npos) {
    throw JsonError(1, "the file is empty");
  }
  if (const std::size_t at = FindTooDeep(text); at != std::string_view::npos) {
    throw JsonError(LineAt(text, at), "more than 64 brackets are open in each other");
  }
  try {
    return nlohmann::json::parse(text);
  } catch (const nlohmann::json::parse_error& error) {
    // The position that the library puts before its reason is told by line here.
    const std::string_view what = error.what();
    const auto position = what.find("column");
    const auto end = position != std::string_view::npos ? what.find(": ", position) : position;
    const auto words = end != std::string_view::npos ? what.substr(end + 2) : what;
    throw JsonError(LineAt(text, error.byte > 0 ? error.byte - 1 : 0), std::string(words));
  }
}

JsonLines FindLines(std::string_view text) {
  return LineFinder(text).Find();
}

}  // namespace vellomar_host
