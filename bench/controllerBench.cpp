// One remote-controller command end to end: the operation call up to the bytes at a custom sender, and up to
// the interaction handed to the connection, each beside the same bytes written by hand.
#include <benchmark/benchmark.h>

#include <cstring>
#include <vector>

#include "allocationCounter.h"
#include "tarvex/dtExerciseConn.h"
#include "tarvex/dtNetTypes.h"
#include "tarvex/dtWire.h"
#include "vistralcontrol/vistralControlRegister.h"
#include "vistralcontrol/vistralRemoteController.h"

namespace {
const DtString kTank("1:3001:12");
const float kRadius = 120, kHeading = 0.5f, kPitch = -0.3f, kRate = 0.1f;

struct KeepingSender : DtCustomRemoteControlSender {
  void sendPdu(const unsigned char* bytes, int length) override {
    last = bytes;
    total += length;
  }
  const unsigned char* last = nullptr;
  long total = 0;
};

// The orbit command's 312 bytes as a hand-written encoder would produce them.
void orbitByHand(unsigned char* image) {
  std::memset(image, 0, 312);
  image[0] = 6;
  image[1] = 1;
  image[2] = 202;
  image[3] = 129;
  DtWire::storeU16(image + 8, 312);
  DtNetGlobalObjectDesignator::assign(image + 12, "vistral-1");
  DtNetGlobalObjectDesignator::assign(image + 76, "bench-controller");
  DtWire::storeU16(image + 146, 5);
  DtWire::storeU32(image + 152, 0xFFEBFDE7);
  DtWire::storeF32(image + 156, kRadius);
  DtWire::storeF32(image + 160, kRate);
  DtWire::storeF32(image + 164, kHeading);
  DtWire::storeF32(image + 168, kPitch);
  DtNetGlobalObjectDesignator::assign(image + 184, kTank.c_str());
}

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
