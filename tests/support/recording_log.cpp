// SPDX-License-Identifier: MIT
#include "recording_log.h"

#include <algorithm>
#include <mutex>
#include <utility>

namespace recording_log {
namespace {

struct Recording {
  std::mutex mutex;
  std::vector<Line> lines;
  std::vector<Opening> openings;
  std::function<void(const Line&)> on_line;
  std::function<void(const Opening&)> on_opening;
};

// Not a function's static: it has to outlive the objects of the libraries that log.
Recording recording;

std::string OrEmpty(const char* text) {
  return text != nullptr ? text : "";
}

std::optional<std::string> OrNothing(const char* text) {
  return text != nullptr ? std::optional<std::string>(text) : std::nullopt;
}

template <typename Wanted>
std::vector<std::string> TextsWhere(Wanted wanted) {
  const std::lock_guard lock(recording.mutex);
  std::vector<std::string> texts;
  for (const Line& line : recording.lines) {
    if (wanted(line)) {
      texts.push_back(line.text);
    }
  }
  return texts;
}

}  // namespace

std::vector<Line> Lines() {
  const std::lock_guard lock(recording.mutex);
  return recording.lines;
}

std::vector<Opening> Opened() {
  const std::lock_guard lock(recording.mutex);
  return recording.openings;
}

void Observe(std::function<void(const Line&)> on_line,
             std::function<void(const Opening&)> on_opening) {
  recording.on_line = std::move(on_line);
  recording.on_opening = std::move(on_opening);
}

void Clear() {
  const std::lock_guard lock(recording.mutex);
  recording.lines.clear();
  recording.openings.clear();
}

std::vector<std::string> Texts() {
  return TextsWhere([](const Line&) { return true; });
}

std::vector<std::string> Texts(int level) {
  return TextsWhere([level](const Line& line) { return line.level == level; });
}

bool Contains(std::string_view text) {
  const std::lock_guard lock(recording.mutex);
  return std::any_of(recording.lines.begin(), recording.lines.end(),
                     [text](const Line& line) { return line.text == text; });
}

}  // namespace recording_log

int CreateVellomarLogger(std::uint32_t kind, const char* first, const char* second,
                         const char* module, int reserved, int files, int flush) {
  using namespace recording_log;
  const Opening opening = {
      kind, OrNothing(first), OrNothing(second), OrEmpty(module), reserved, files, flush};
  if (recording.on_opening) recording.on_opening(opening);
  const std::lock_guard lock(recording.mutex);
  recording.openings.push_back(opening);
  return 1;
}

void VellomarLogWrite(const char* module, int level, const char* text) {
  using namespace recording_log;
  const Line line = {OrEmpty(module), level, OrEmpty(text)};
  if (recording.on_line) recording.on_line(line);
  const std::lock_guard lock(recording.mutex);
  recording.lines.push_back(line);
}
