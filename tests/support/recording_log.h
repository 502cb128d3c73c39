// SPDX-License-Identifier: MIT
// What the code under test has logged. A test that links vellomar-recording-log in place of the log
// library finds every line here, and hears of every opening.
//
//     recording_log::Clear();
//     manager.SetMicVolume(50);
//     EXPECT_TRUE(recording_log::Contains("[Controlbar] set mic volume 50"));
//
// Results are copies. One thread only.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
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

// A call of CreateVellomarLogger.
struct Opening {
  std::uint32_t kind = 0;
  std::optional<std::string> first;  // nothing: a null pointer
  std::optional<std::string> second;
  std::string module;
  int reserved = 0;
  int files = 0;
  int flush = 0;
};

VELLOMAR_LOG_API std::vector<Line> Lines();
// Calls these for every line and opening, on the thread that logs; both may be null.
VELLOMAR_LOG_API void Observe(std::function<void(const Line&)> on_line,
                              std::function<void(const Opening&)> on_opening);
// Forgets the lines.
VELLOMAR_LOG_API void Clear();

VELLOMAR_LOG_API std::vector<std::string> Texts(int level);
// Whether a line has exactly this text.
VELLOMAR_LOG_API bool Contains(std::string_view text);

}  // namespace recording_log
