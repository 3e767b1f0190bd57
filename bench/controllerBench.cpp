// One remote-controller command end to end: the operation call up to the bytes at a custom sender, and up to
// the interaction handed to the connection, each beside the same bytes written by hand.
#include <benchmark/benchmark.h>

#include <vector>

#include "allocationCounter.h"
#include "orbitCommand.h"
#include "tarvex/dtExerciseConn.h"
#include "vistralcontrol/vistralControlRegister.h"
#include "vistralcontrol/vistralRemoteController.h"

namespace {
using bench::kHeading;
using bench::kPitch;
using bench::kRadius;
using bench::kRate;
using bench::kTank;
using bench::orbitByHand;

struct KeepingSender : DtCustomRemoteControlSender {
  void sendPdu(const unsigned char* bytes, int length) override {
    last = bytes;
    total += length;
  }
  const unsigned char* last = nullptr;
  long total = 0;
};

void BM_ControllerOrbitToSender(benchmark::State& state) {
  KeepingSender sender;
  DtVistralRemoteController controller(&sender, "vistral-1");
  controller.setControllerId("bench-controller");
  controller.reset();  // the banner goes out before timing
  const auto before = bench::allocationCount();
  for (auto _ : state) {
    controller.setOrbitMode(&kTank, &kRadius, &kHeading, &kPitch, &kRate);
    benchmark::DoNotOptimize(sender.last);
  }
  BENCH_COUNT_ALLOCATIONS(state, before);
}
BENCHMARK(BM_ControllerOrbitToSender);

void BM_ControllerOrbitToSender_Baseline(benchmark::State& state) {
  KeepingSender sender;
  const auto before = bench::allocationCount();
  for (auto _ : state) {
    unsigned char image[312];
    orbitByHand(image);
    sender.sendPdu(image, 312);
    benchmark::DoNotOptimize(sender.last);
    benchmark::ClobberMemory();
  }
  BENCH_COUNT_ALLOCATIONS(state, before);
}
BENCHMARK(BM_ControllerOrbitToSender_Baseline);

void BM_ControllerOrbitToConnection(benchmark::State& state) {
  DtExerciseConn conn("ControllerBench", "bench-controller");
  DtVistralControlRegister(&conn);
  DtVistralRemoteController controller(&conn, "vistral-1");
  controller.setControllerId("bench-controller");
  controller.reset();
  const auto before = bench::allocationCount();
  for (auto _ : state) controller.setOrbitMode(&kTank, &kRadius, &kHeading, &kPitch, &kRate);
  BENCH_COUNT_ALLOCATIONS(state, before);
}
BENCHMARK(BM_ControllerOrbitToConnection);

// The same bytes written by hand and copied into the parameter value the connection sends.
void BM_ControllerOrbitToConnection_Baseline(benchmark::State& state) {
  std::vector<unsigned char> parameter;
  parameter.reserve(312);
  const auto before = bench::allocationCount();
  for (auto _ : state) {
    unsigned char image[312];
    orbitByHand(image);
    parameter.assign(image, image + 312);
    benchmark::DoNotOptimize(parameter.data());
    benchmark::ClobberMemory();
  }
  BENCH_COUNT_ALLOCATIONS(state, before);
}
BENCHMARK(BM_ControllerOrbitToConnection_Baseline);
}  // namespace
