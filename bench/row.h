// SPDX-License-Identifier: MIT
// One line of a benchmark's table: what is done, with which input, by whom. scripts/bench.sh puts
// the competitors of the same work and input side by side.
#ifndef QUARNFC_BENCH_ROW_H_
#define QUARNFC_BENCH_ROW_H_

#include <benchmark/benchmark.h>

#include <string>

namespace bench {

inline constexpr const char* kOurs = "QuarnFC";

// Runs body once per iteration.
template <class Body>
benchmark::internal::Benchmark* Row(const std::string& work, const std::string& input,
                                    const std::string& who, Body body) {
  return benchmark::RegisterBenchmark((work + '|' + input + '|' + who).c_str(),
                                      [body](benchmark::State& state) {
                                        for (auto _ : state) body();
                                      });
}

// One line that is about memory: measure returns a number of bytes.
template <class Measure>
void SizeRow(const std::string& work, const std::string& input, const std::string& who,
             Measure measure) {
  benchmark::RegisterBenchmark((work + '|' + input + '|' + who).c_str(),
                               [measure](benchmark::State& state) {
                                 for (auto _ : state) state.counters["bytes"] = measure();
                               })
      ->Iterations(1);
}

// Keeps the compiler from leaving out what made the value.
template <class Value>
void Keep(const Value& value) {
  benchmark::DoNotOptimize(&value);
  benchmark::ClobberMemory();
}

inline int Run(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}

}  // namespace bench

#endif  // QUARNFC_BENCH_ROW_H_
