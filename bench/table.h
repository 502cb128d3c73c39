// SPDX-License-Identifier: MIT
// Collects the repetitions of all benchmarks and prints one table: a line for each case, the
// plug-in beside its baselines.
//
//     benchmark::RegisterBenchmark(Table::Name(3, "plugin").c_str(), ...);
//     benchmark::RunSpecifiedBenchmarks(&table);
//     table.Print();
#pragma once

#include <benchmark/benchmark.h>

#include <cstddef>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "cases.h"

namespace bench {

class Table : public benchmark::BenchmarkReporter {
 public:
  explicit Table(const std::vector<Case>& cases) : cases_(cases) {}

  // The benchmark of a side of a case, by its place in the list.
  static std::string Name(std::size_t index, const std::string& side) {
    return std::to_string(index) + "/" + side;
  }

  bool ReportContext(const Context&) override { return true; }
  void ReportRuns(const std::vector<Run>& runs) override;
  void Print() const;

 private:
  struct Spread {
    double least = 0, median = 0, most = 0;  // nanoseconds of processor time; 0: not measured
  };
  Spread Of(std::size_t index, const std::string& side) const;

  const std::vector<Case>& cases_;
  std::map<std::string, std::vector<double>> times_;  // of the repetitions, by name
};

}  // namespace bench
