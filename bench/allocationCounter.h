// Counts calls of the global operator new in this program, so a benchmark can report heap traffic.
#pragma once

#include <cstdint>

namespace bench {
std::uint64_t allocationCount();
}  // namespace bench

// Sets the counter "allocs/iter" of a benchmark from the allocations made while it ran.
#define BENCH_COUNT_ALLOCATIONS(state, before)          \
  (state).counters["allocs/iter"] = benchmark::Counter( \
      static_cast<double>(bench::allocationCount() - (before)), benchmark::Counter::kAvgIterations)
