// Runs every benchmark, then prints for each benchmark "X" that has a partner "X_Baseline" the ratio of their
// times: how much the library costs over doing the same work by hand; likewise for a partner
// "X_InterfaceFloor", which does by hand only what the library's interfaces force.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstring>
#include <map>
#include <string>
#include <vector>

#include "benchOptions.h"

std::string& bench::rtiExecution() {
  static std::string theExecution = "thread:///VistralBench";
  return theExecution;
}

std::string& bench::rti1516eExecution() {
  static std::string theExecution = "hla1516e+thread:///VistralBench1516e";
  return theExecution;
}

namespace {
class RatioReporter : public benchmark::ConsoleReporter {
 public:
  void ReportRuns(const std::vector<Run>& runs) override {
    for (const Run& run : runs) {
      if (run.run_type == Run::RT_Iteration && !run.error_occurred)
        times_[run.benchmark_name()] = run.GetAdjustedCPUTime();
    }
    ConsoleReporter::ReportRuns(runs);
  }

  void printRatios() const {
    // "X_Baseline" does the same work by hand; "X_InterfaceFloor" does by hand only what the interfaces
    // force.
    for (const char* suffix : {"_Baseline", "_InterfaceFloor"}) {
      std::printf("\nratio of each benchmark to its %s (CPU time):\n", suffix + 1);
      printRatios(suffix);
    }
  }

 private:
  void printRatios(const std::string& suffix) const {
    for (const auto& [name, time] : times_) {
      const auto cut = name.find(suffix);
      if (cut == std::string::npos) continue;
      const std::string subject = name.substr(0, cut) + name.substr(cut + suffix.size());
      const auto found = times_.find(subject);
      if (found == times_.end() || time <= 0) continue;
      std::printf("  %-48s %6.2fx  (%.1f ns vs %.1f ns)\n", subject.c_str(), found->second / time,
                  found->second, time);
    }
  }

  std::map<std::string, double> times_;
};

// Takes the program's own options out of argv, leaving Google Benchmark's.
void takeOwnOptions(int* argc, char** argv) {
  const char* const rtiOption = "--rti_execution=";
  const char* const rti1516eOption = "--rti1516e_execution=";
  int kept = 1;
  for (int i = 1; i < *argc; ++i) {
    if (std::strncmp(argv[i], rtiOption, std::strlen(rtiOption)) == 0) {
      bench::rtiExecution() = argv[i] + std::strlen(rtiOption);
    } else if (std::strncmp(argv[i], rti1516eOption, std::strlen(rti1516eOption)) == 0) {
      bench::rti1516eExecution() = argv[i] + std::strlen(rti1516eOption);
    } else {
      argv[kept++] = argv[i];
    }
  }
  *argc = kept;
}
}  // namespace

int main(int argc, char** argv) {
  takeOwnOptions(&argc, argv);
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  RatioReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  reporter.printRatios();
  benchmark::Shutdown();
  return 0;
}
