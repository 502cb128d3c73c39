// SPDX-License-Identifier: MIT
#include "support/recording_log.h"

#include <algorithm>
#include <sstream>
#include <utility>

namespace recording_log {
namespace {

struct Recording {
  std::vector<Line> lines;
  std::function<void(const Line&)> on_line;
};

// Not a function's static: it has to outlive the objects of the libraries that log.
Recording recording;

std::string OrEmpty(const char* text) {
  return text != nullptr ? text : "";
}

}  // namespace

std::vector<Line> Lines() {
  return recording.lines;
}

void Observe(std::function<void(const Line&)> on_line) {
  recording.on_line = std::move(on_line);
}

void Clear() {
  recording.lines.clear();
}

std::vector<std::string> Texts(int level) {
  std::vector<std::string> texts;
  for (const Line& line : recording.lines) {
    if (line.level == level) {
      texts.push_back(line.text);
    }
  }
  return texts;
}

bool Contains(std::string_view text) {
  return std::any_of(recording.lines.begin(), recording.lines.end(),
                     [text](const Line& line) { return line.text == text; });
}

}  // namespace recording_log

int CreateVellomarLogger(std::uint32_t kind, const char* first, const char* second,
                         const char* module, int reserved, int files, int flush) {
  using namespace recording_log;
  std::ostringstream text;
  text << kind << ' ' << (first != nullptr ? first : "null") << ' '
       << (second != nullptr ? second : "null") << ' ' << OrEmpty(module) << ' ' << reserved << ' '
       << files << ' ' << flush;
  if (recording.on_line) {
    recording.on_line({"", 0, text.str()});
  }
  return 1;
}

void VellomarLogWrite(const char* module, int level, const char* text) {
  using namespace recording_log;
  const Line line = {OrEmpty(module), level, OrEmpty(text)};
  if (recording.on_line) {
    recording.on_line(line);
  }
  recording.lines.push_back(line);
}
