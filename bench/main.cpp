// SPDX-License-Identifier: MIT
// Measures the plug-in against the same work by hand. See README.md.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <vector>

#include "cases.h"
#include "table.h"

namespace {

void Register(const std::string& name, const std::function<void()>& prepare,
              const std::function<void()>& work) {
  if (!work) {
    return;
  }
  benchmark::RegisterBenchmark(name.c_str(), [&prepare, &work](benchmark::State& state) {
    prepare();
    work();  // the first run grows what later runs reuse
    for (auto _ : state) {
      work();
    }
  })->Unit(benchmark::kNanosecond);
}

}  // namespace

int main(int argc, char** argv) {
  bench::StartPlugin();
  const std::vector<bench::Case> cases = bench::AllCases();
  if (!std::all_of(cases.begin(), cases.end(), &bench::DoTheSame)) {
    std::fputs("the plug-in and the work by hand differ: nothing was measured\n", stderr);
    return 1;
  }
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
    return 2;
  }
  for (std::size_t i = 0; i < cases.size(); ++i) {
    const bench::Case& c = cases[i];
    Register(bench::Table::Name(i, "plugin"), c.prepare, c.plugin);
    Register(bench::Table::Name(i, "by_hand"), c.prepare, c.by_hand);
    Register(bench::Table::Name(i, "asio"), c.prepare, c.asio);
  }
  bench::Table table(cases);
  benchmark::RunSpecifiedBenchmarks(&table);
  table.Print();
}
