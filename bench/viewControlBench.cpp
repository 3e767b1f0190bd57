// The options PDU's text form there and back, and a group PDU grown one entity at a time to 32, each beside
// the same work done by hand.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

#include "allocationCounter.h"
#include "tarvex/dtWire.h"
#include "vistralcontrol/groupVcPdu.h"
#include "vistralcontrol/optionsPdu.h"

namespace {
DtOptionsPdu filledOptions() {
  DtOptionsPdu pdu;
  pdu.setViewerId("vistral-1");
  pdu.setSenderId("controller");
  pdu.setFov(60);
  pdu.setFarClip(90000);
  pdu.setDatabaseToLoad("terrain/database-1");
  pdu.setSkyDome(true);
  pdu.setVideoCaptureCommand(DtVistralControlVideoCaptureRecord);
  pdu.setFeatureFilename("features.xml");
  return pdu;
}

void BM_OptionsTextRoundTrip(benchmark::State& state) {
  const DtOptionsPdu sent = filledOptions();
  DtOptionsPdu back;
  const auto before = bench::allocationCount();
  for (auto _ : state) {
    back.setFromString(sent.string());
    benchmark::DoNotOptimize(back.packet());
    benchmark::ClobberMemory();
  }
  BENCH_COUNT_ALLOCATIONS(state, before);
}
BENCHMARK(BM_OptionsTextRoundTrip);

// The same 1539 bytes written as hex digits with a table and read back into a byte array.
void BM_OptionsTextRoundTrip_Baseline(benchmark::State& state) {
  const DtOptionsPdu sent = filledOptions();
  const unsigned char* image = sent.packet();
  const int length = sent.length();
  static constexpr char kDigits[] = "0123456789abcdef";
  std::vector<char> text(static_cast<std::size_t>(2 * length + 1));
  std::vector<unsigned char> back(static_cast<std::size_t>(length));
  const auto nibble = [](char c) { return c <= '9' ? c - '0' : c - 'a' + 10; };
  const auto before = bench::allocationCount();
  for (auto _ : state) {
    for (int i = 0; i < length; ++i) {
      text[2 * i] = kDigits[image[i] >> 4];
      text[2 * i + 1] = kDigits[image[i] & 0x0F];
    }
    text[2 * length] = '\0';
    benchmark::ClobberMemory();
    const std::size_t digits = std::strlen(text.data());
    for (std::size_t i = 0; i < digits / 2; ++i)
      back[i] = static_cast<unsigned char>(nibble(text[2 * i]) << 4 | nibble(text[2 * i + 1]));
    benchmark::DoNotOptimize(back.data());
    benchmark::ClobberMemory();
  }
  BENCH_COUNT_ALLOCATIONS(state, before);
}
BENCHMARK(BM_OptionsTextRoundTrip_Baseline);

constexpr int kEntities = 32;

std::vector<std::string> entityIds() {
  std::vector<std::string> ids;
  for (int i = 0; i < kEntities; ++i)
    ids.push_back("1:" + std::to_string(100 + i) + ":" + std::to_string(7 * i));
  return ids;
}

// An application adding entities to a group one at a time: each raises the count, then names the entity.
void BM_GroupGrowTo32(benchmark::State& state) {
  const std::vector<std::string> names = entityIds();
  std::vector<DtString> ids(names.begin(), names.end());
  delete DtNewViewControlPdu(DtVcGroup);  // the banner goes out before timing
  const auto before = bench::allocationCount();
  for (auto _ : state) {
    DtGroupVCPdu pdu;
    pdu.setRadialOffset(500);
    for (int i = 0; i < kEntities; ++i) {
      pdu.setNumEntitiesToAdd(i + 1);
      pdu.setEntityToAdd(i, ids[static_cast<std::size_t>(i)]);
    }
    benchmark::DoNotOptimize(pdu.packet());
    benchmark::ClobberMemory();
  }
  BENCH_COUNT_ALLOCATIONS(state, before);
}
BENCHMARK(BM_GroupGrowTo32);

// The finished 2236-byte image written once into a stack buffer with plain stores.
void writeGroupByHand(benchmark::State& state) {
  const std::vector<std::string> ids = entityIds();
  constexpr int kLength = 188 + 64 * kEntities;
  const auto before = bench::allocationCount();
  for (auto _ : state) {
    unsigned char image[kLength];
    std::memset(image, 0, sizeof image);
    image[0] = 6;
    image[1] = 1;
    image[2] = 202;
    image[3] = 129;
    DtWire::storeU16(image + 8, kLength);
    DtWire::storeU16(image + 146, DtVcGroup);
    DtWire::storeF32(image + 156, 500);
    DtWire::storeI32(image + 184, kEntities);
    for (int i = 0; i < kEntities; ++i) {
      const std::string& id = ids[static_cast<std::size_t>(i)];
      std::memcpy(image + 188 + 64 * i, id.data(), std::min<std::size_t>(id.size(), 64));
    }
    benchmark::DoNotOptimize(image);
    benchmark::ClobberMemory();
  }
  BENCH_COUNT_ALLOCATIONS(state, before);
}

void BM_GroupGrowTo32_Baseline(benchmark::State& state) { writeGroupByHand(state); }
BENCHMARK(BM_GroupGrowTo32_Baseline);

// The usage the class documents: both counts first (one resize), then the entries.
void BM_GroupCountFirst32(benchmark::State& state) {
  const std::vector<std::string> names = entityIds();
  std::vector<DtString> ids(names.begin(), names.end());
  const auto before = bench::allocationCount();
  for (auto _ : state) {
    DtGroupVCPdu pdu;
    pdu.setRadialOffset(500);
    pdu.setNumEntitiesToAdd(kEntities);
    for (int i = 0; i < kEntities; ++i) pdu.setEntityToAdd(i, ids[static_cast<std::size_t>(i)]);
    benchmark::DoNotOptimize(pdu.packet());
    benchmark::ClobberMemory();
  }
  BENCH_COUNT_ALLOCATIONS(state, before);
}
BENCHMARK(BM_GroupCountFirst32);

void BM_GroupCountFirst32_Baseline(benchmark::State& state) { writeGroupByHand(state); }
BENCHMARK(BM_GroupCountFirst32_Baseline);
}  // namespace
