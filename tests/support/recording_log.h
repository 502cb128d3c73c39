// SPDX-License-Identifier: MIT
// What the code under test has logged. A test that links vellomar-recording-log in place of the log
// library finds every line here, and Observe hears of every opening.
//
//     recording_log::Clear();
//     manager.SetMicVolume(50);
//     EXPECT_TRUE(recording_log::Contains("[Controlbar] set mic volume 50"));
//
// Results are copies. One thread only.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "vellomar/log.h"

namespace recording_log {

struct Line {
  std::string module;
  int level = 0;
  std::string text;

  bool operator==(const Line&) const = default;
};

VELLOMAR_LOG_API std::vector<Line> Lines();
// Calls this for every line, and for every opening of the log with its arguments in one line at
// level 0. May be null.
VELLOMAR_LOG_API void Observe(std::function<void(const Line&)> on_line);
// Forgets the lines.
VELLOMAR_LOG_API void Clear();

VELLOMAR_LOG_API std::vector<std::string> Texts(int level);
// Whether a line has exactly this text.
VELLOMAR_LOG_API bool Contains(std::string_view text);

}  // namespace recording_log
