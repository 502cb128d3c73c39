// SPDX-License-Identifier: MIT
#include "table.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdio>

namespace bench {
namespace {

constexpr const char* kRow =
    "| {:<31} | {:>5} | {:>28} | {:>28} | {:>5} | {:>24} | {:>5} | {:>8} |\n";

std::string Nanoseconds(double median, double least, double most) {
  if (median == 0) {
    return "";
  }
  return fmt::format("{:.0f} ({:.0f}-{:.0f})", median, least, most);
}

std::string Ratio(double part, double whole) {
  return whole == 0 ? "" : fmt::format("{:.2f}", part / whole);
}

}  // namespace

void Table::ReportRuns(const std::vector<Run>& runs) {
  for (const Run& run : runs) {
    if (run.run_type != Run::RT_Iteration || run.error_occurred) {
      continue;
    }
    times_[run.run_name.function_name].push_back(run.GetAdjustedCPUTime());
  }
}

Table::Spread Table::Of(std::size_t index, const std::string& side) const {
  const auto found = times_.find(Name(index, side));
  if (found == times_.end()) {
    return {};
  }
  std::vector<double> times = found->second;
  std::sort(times.begin(), times.end());
  const std::size_t middle = times.size() / 2;
  const double median =
      times.size() % 2 != 0 ? times[middle] : (times[middle - 1] + times[middle]) / 2;
  return {times.front(), median, times.back()};
}

void Table::Print() const {
  const auto print = [](const auto&... cells) { fmt::print(kRow, cells...); };
  print("work", "n", "plug-in, ns (min-max)", "by hand, ns (min-max)", "ratio",
        "asio::post, ns (min-max)", "ratio", "ns per n");
  print("---", "---:", "---:", "---:", "---:", "---:", "---:", "---:");
  for (std::size_t i = 0; i < cases_.size(); ++i) {
    const Spread plugin = Of(i, "plugin");
    const Spread by_hand = Of(i, "by_hand");
    const Spread asio = Of(i, "asio");
    if (plugin.median == 0) {
      continue;  // filtered out
    }
    const std::size_t n = cases_[i].elements;
    const auto text = [](const Spread& s) { return Nanoseconds(s.median, s.least, s.most); };
    print(cases_[i].name, n != 0 ? std::to_string(n) : "", text(plugin), text(by_hand),
          Ratio(plugin.median, by_hand.median), text(asio), Ratio(plugin.median, asio.median),
          n != 0 ? fmt::format("{:.1f}", plugin.median / static_cast<double>(n)) : "");
  }
}

}  // namespace bench
