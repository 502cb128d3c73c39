// SPDX-License-Identifier: MIT
#include "plugin/stream.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "plugin/text.h"

namespace streams {
namespace {

// "Manager::" and "Data::" stand for the two classes that trace themselves.
std::string ShortName(const std::string& scope) {
  for (const auto& [start, brief] : {std::pair<std::string, std::string>(
                                         "VELLOMAR_CONTROLBAR::ControlbarManager::", "Manager::"),
                                     {"VELLOMAR_CONTROLBAR::ControlBarDataManager::", "Data::"}}) {
    if (scope.starts_with(start)) {
      return brief + scope.substr(start.size());
    }
  }
  return scope;
}

std::string LevelName(int level) {
  constexpr const char* kNames[] = {"log", "fault", "refused"};
  return level >= 3 && level <= 5 ? kNames[level - 3] : "log" + std::to_string(level);
}

// What differs between machines.
std::string Masked(const std::string& text) {
  constexpr std::string_view kPath = "Init controlbar res path len: ";
  return text.starts_with(kPath) ? std::string(kPath) + "#" : text;
}

// The key of a record that was pushed and had not changed, or -1.
int UnchangedKey(const std::string& line) {
  constexpr std::string_view kPush = "push ";
  const std::size_t start = std::min(line.find_first_not_of(' '), line.size());
  const std::string key = line.substr(std::min(start + kPush.size(), line.size()));
  const bool is_key = key.size() == 4 && key.find_first_not_of("0123456789") == key.npos;
  return is_key && line.compare(start, kPush.size(), kPush) == 0 ? std::stoi(key) : -1;
}

// A text map pushes all records: where many in a row have not changed, one line says so.
Lines WithRunsInOneLine(const Lines& lines) {
  constexpr std::size_t kMany = 8;
  Lines short_lines;
  for (std::size_t i = 0, count = 1; i < lines.size(); i += count) {
    const int key = UnchangedKey(lines[i]);
    const auto follows = [&](std::size_t n) {
      return i + n < lines.size() && UnchangedKey(lines[i + n]) == key + static_cast<int>(n);
    };
    for (count = 1; key >= 0 && follows(count);) {
      ++count;
    }
    if (count < kMany) {
      count = 1;
    }
    const std::string end =
        count > 1 ? ".." + std::to_string(key + static_cast<int>(count) - 1) : "";
    short_lines.push_back(lines[i] + end);
  }
  return short_lines;
}

std::size_t Depth(const std::string& line) {
  return std::min(line.find_first_not_of(' '), line.size());
}

// UpdateUIElement is most of what happens: its scope, its log line and its push are one line where
// they are just these.
Lines WithUpdatesInOneLine(const Lines& lines) {
  const std::string scope = "in Manager::UpdateUIElement", log = "log update lorimel ui: ";
  Lines short_lines;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    const std::string indent(Depth(lines[i]), ' ');
    if (lines[i] == indent + scope && i + 2 < lines.size() &&
        lines[i + 1].starts_with(indent + "  " + log) &&
        (i + 3 == lines.size() || Depth(lines[i + 3]) <= indent.size())) {
      const std::string key = lines[i + 1].substr(indent.size() + 2 + log.size());
      const std::string push = indent + "  push " + key;
      if (lines[i + 2] == push || lines[i + 2].starts_with(push + " ")) {
        short_lines.push_back(indent + "update " + key + lines[i + 2].substr(push.size()));
        i += 2;
        continue;
      }
    }
    short_lines.push_back(lines[i]);
  }
  return short_lines;
}

}  // namespace

void Stream::Add(const std::string& line) {
  const auto depth =
      std::count_if(scopes_.begin(), scopes_.end(), [](const Scope& scope) { return scope.shown; });
  lines_.push_back(std::string(2 * static_cast<std::size_t>(depth), ' ') + line);
}

bool Stream::OpenOrClose(const std::string& text) {
  constexpr std::string_view kEntry = "entry ", kExit = "exit ", kCost = ", cost : ";
  if (text.starts_with(kEntry)) {
    const std::string name = ShortName(text.substr(kEntry.size()));
    const bool shown = shows_data_scopes || !name.starts_with("Data::");
    if (shown) {
      Add("in " + name);
    }
    scopes_.push_back({name, shown});
    return true;
  }
  const std::size_t cost = text.rfind(kCost);
  if (!text.starts_with(kExit) || cost == text.npos || scopes_.empty()) {
    return false;
  }
  const std::string name = ShortName(text.substr(kExit.size(), cost - kExit.size()));
  const std::string number = text.substr(cost + kCost.size());
  if (scopes_.back().name != name || number.empty() ||
      number.find_first_not_of("0123456789") != number.npos) {
    return false;
  }
  scopes_.pop_back();
  return true;
}

void Stream::Log(const recording_log::Line& line) {
  if (line.level == 0) {
    return Add("opens log " + line.text);
  }
  const bool ours = line.module == "vellomar_controlbar";
  if (ours && line.level == 3 && OpenOrClose(line.text)) {
    return;
  }
  const std::string text = Masked(line.text);
  const bool plain = !text.empty() && text.front() != ' ' && text.back() != ' ';
  Add(LevelName(line.level) + (ours ? " " : "[" + line.module + "] ") +
      (plain ? text : Quoted(std::string_view(text))));
}

Lines Stream::Take() {
  for (const Scope& scope : std::exchange(scopes_, {})) {
    lines_.push_back("open " + scope.name);
  }
  return WithUpdatesInOneLine(WithRunsInOneLine(std::exchange(lines_, {})));
}

}  // namespace streams
