// Building and receiving an absolute PDU, each beside the same bytes written or copied by hand.
#include <benchmark/benchmark.h>

#include <cstring>
#include <memory>

#include "allocationCounter.h"
#include "tarvex/dtMessage.h"
#include "tarvex/dtWire.h"
#include "vistralcontrol/absoluteVcPdu.h"

namespace {
const DtVector64 kLocation(-2476512.25, -4665431.5, 3588000.75);
const DtTaitBryan kOrientation(1.5, -0.25, 0.125);

void BM_AbsoluteBuildAndFill(benchmark::State& state) {
  delete DtNewViewControlPdu(DtVcAbsolute);  // the banner goes out before timing
  const auto before = bench::allocationCount();
  for (auto _ : state) {
    DtAbsoluteVCPdu pdu;
    pdu.setWorldLocation(kLocation);
    pdu.setOrientation(kOrientation);
    pdu.setIgnoreFlags(0xFFFFFFC0);
    benchmark::DoNotOptimize(pdu.packet());
    benchmark::ClobberMemory();
  }
  BENCH_COUNT_ALLOCATIONS(state, before);
}
BENCHMARK(BM_AbsoluteBuildAndFill);

// The same 196 bytes with plain stores into a stack buffer.
void BM_AbsoluteBuildAndFill_Baseline(benchmark::State& state) {
  const auto before = bench::allocationCount();
  for (auto _ : state) {
    unsigned char image[196];
    std::memset(image, 0, sizeof image);
    image[0] = 6;
    image[1] = 1;
    image[2] = 202;
    image[3] = 129;
    DtWire::storeU16(image + 8, 196);
    DtWire::storeU16(image + 146, 0);
    DtWire::storeU32(image + 152, 0xFFFFFFC0);
    DtWire::storeF64(image + 160, kLocation.x());
    DtWire::storeF64(image + 168, kLocation.y());
    DtWire::storeF64(image + 176, kLocation.z());
    DtWire::storeF32(image + 184, static_cast<float>(kOrientation.psi()));
    DtWire::storeF32(image + 188, static_cast<float>(kOrientation.theta()));
    DtWire::storeF32(image + 192, static_cast<float>(kOrientation.phi()));
    benchmark::DoNotOptimize(image);
    benchmark::ClobberMemory();
  }
  BENCH_COUNT_ALLOCATIONS(state, before);
}
BENCHMARK(BM_AbsoluteBuildAndFill_Baseline);

std::unique_ptr<unsigned char[]> absoluteImage() {
  DtAbsoluteVCPdu pdu;
  pdu.setWorldLocation(kLocation);
  pdu.setOrientation(kOrientation);
  std::unique_ptr<unsigned char[]> image(new unsigned char[DtPdu::kMaxLength + 1]());
  std::memcpy(image.get(), pdu.packet(), static_cast<std::size_t>(pdu.length()));
  return image;
}

void BM_CreateFromNetAbsolute(benchmark::State& state) {
  const auto image = absoluteImage();
  const auto* header = reinterpret_cast<const DtNetPduHeader*>(image.get());
  const auto before = bench::allocationCount();
  for (auto _ : state) {
    std::unique_ptr<DtPdu> pdu(DtVistralControlPdu::createFromNet(header, nullptr, nullptr));
    benchmark::DoNotOptimize(pdu->packet());
  }
  BENCH_COUNT_ALLOCATIONS(state, before);
}
BENCHMARK(BM_CreateFromNetAbsolute);

// The same image copied with memcpy into a new heap block of the same size as the object.
void BM_CreateFromNetAbsolute_Baseline(benchmark::State& state) {
  const auto image = absoluteImage();
  const auto before = bench::allocationCount();
  for (auto _ : state) {
    std::unique_ptr<unsigned char[]> copy(new unsigned char[sizeof(DtAbsoluteVCPdu)]);
    std::memcpy(copy.get(), image.get(), 196);
    benchmark::DoNotOptimize(copy.get());
    benchmark::ClobberMemory();
  }
  BENCH_COUNT_ALLOCATIONS(state, before);
}
BENCHMARK(BM_CreateFromNetAbsolute_Baseline);
}  // namespace
