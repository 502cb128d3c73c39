// SPDX-License-Identifier: MIT
// How often a function ran and what it cost in all: a record that its owner feeds, and that writes
// a line when it is destroyed. Part of the log facility; nothing in the plug-in feeds one.
#pragma once

#include <cstdint>
#include <limits>
#include <string>
#include <utility>

#include "frame/log/log.h"

namespace VELLOMAR_LOG {

struct FunctionStatistics {
  explicit FunctionStatistics(std::string function, std::int64_t threshold_or_zero = 0)
      : name(std::move(function)),
        threshold(threshold_or_zero != 0 ? threshold_or_zero
                                         : std::numeric_limits<std::int64_t>::max()) {}

  ~FunctionStatistics() {
    const std::uint64_t average = count != 0 ? total_cost / count : 0;
    Write("PCSDK", VELLOMAR_LOG_INFO, "Function {} be executed {},cost {}us,avg {}us", name, count,
          total_cost, average);
  }

  FunctionStatistics(const FunctionStatistics&) = delete;
  FunctionStatistics& operator=(const FunctionStatistics&) = delete;

  std::string name;
  std::int64_t threshold;
  std::uint64_t count = 0;
  std::uint64_t total_cost = 0;  // microseconds
  std::uint64_t reserved = 0;
};

}  // namespace VELLOMAR_LOG
