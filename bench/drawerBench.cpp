// The remote drawer holding 10^3 to 10^6 line objects: the cost of an update, of an add followed by its
// remove, and of a failed lookup, each with the heap allocations per operation, and the heap each retained
// object costs. Sends go to a custom sender that keeps nothing.
#include <benchmark/benchmark.h>
#include <malloc.h>

#include <cstring>
#include <memory>
#include <vector>

#include "allocationCounter.h"
#include "vistralcontrol/vdcLine2DObj.h"
#include "vistralcontrol/vdcRemoteDrawer.h"

namespace {
struct CountingSender : DtCustomRemoteControlSender {
  void sendPdu(const unsigned char* bytes, int length) override {
    last = bytes;
    total += length;
  }
  const unsigned char* last = nullptr;
  long total = 0;
};

DtVdcLine2DObject* newLine(unsigned id) {
  return new DtVdcLine2DObject(id, DtVdcVector2D(0.1, 0.2), DtVdcVector2D(0.8, 0.9), 1,
                               DtVdcColor::DtVdcOrange, DtVdcLineSegment::DtVdcSegmentStraight,
                               DtVdcLineSegment::DtVdcSegmentArrowEnd, 2, 0xFFFFFFFF, false);
}

// A drawer holding ids 0 .. n-1, and the heap that holding them took.
struct Scene {
  explicit Scene(long n) : drawer(&sender, "bench", DtVistralRemoteDrawer::SEND_TO_ALL, 0) {
    const std::size_t before = mallinfo2().uordblks;
    for (long i = 0; i < n; ++i) drawer.add(newLine(static_cast<unsigned>(i)));
    heapPerObject = static_cast<double>(mallinfo2().uordblks - before) / static_cast<double>(n);
  }
  CountingSender sender;
  DtVistralRemoteDrawer drawer;
  double heapPerObject = 0;
};

// Ids visited in a scattered order, so that large scenes are not walked in memory order.
unsigned scattered(long i, long n) {
  return static_cast<unsigned>((i * 2654435761u) % static_cast<unsigned long>(n));
}

void BM_DrawerUpdate(benchmark::State& state) {
  const long n = state.range(0);
  Scene scene(n);
  long i = 0;
  const auto before = bench::allocationCount();
  for (auto _ : state) {
    scene.drawer.update(scattered(i++, n));
    benchmark::DoNotOptimize(scene.sender.last);
  }
  BENCH_COUNT_ALLOCATIONS(state, before);
  // Every retained object lives on the heap: its own bytes, its segment array and its map node.
  state.counters["bytes/object"] = scene.heapPerObject;
}

// The same in ascending id order, as an application refreshing its whole scene walks it.
void BM_DrawerUpdateInOrder(benchmark::State& state) {
  const long n = state.range(0);
  Scene scene(n);
  long i = 0;
  const auto before = bench::allocationCount();
  for (auto _ : state) {
    scene.drawer.update(static_cast<unsigned>(i++ % n));
    benchmark::DoNotOptimize(scene.sender.last);
  }
  BENCH_COUNT_ALLOCATIONS(state, before);
}

// Adds an object under a new id and removes it again; the object is made once and handed back by remove.
void BM_DrawerAddRemove(benchmark::State& state) {
  const long n = state.range(0);
  Scene scene(n);
  std::unique_ptr<DtVdcObject> extra(newLine(static_cast<unsigned>(n)));
  const auto before = bench::allocationCount();
  for (auto _ : state) {
    scene.drawer.add(extra.get());
    benchmark::DoNotOptimize(scene.drawer.remove(static_cast<unsigned>(n)));
  }
  BENCH_COUNT_ALLOCATIONS(state, before);
}

// Removes an object held among n and adds it back, in scattered order.
void BM_DrawerRemoveAdd(benchmark::State& state) {
  const long n = state.range(0);
  Scene scene(n);
  long i = 0;
  const auto before = bench::allocationCount();
  for (auto _ : state) {
    DtVdcObject* obj = scene.drawer.remove(scattered(i++, n));
    scene.drawer.add(obj);
  }
  BENCH_COUNT_ALLOCATIONS(state, before);
}

// What an update cannot avoid: a line PDU filled and handed to the sender, its image written into one of n
// records of a line object's size, each on the heap of its own and found through a table of pointers, as the
// drawer finds its objects. At 10^6 the records far outgrow every cache, and this is what reaching them
// costs.
void BM_DrawerUpdate_Baseline(benchmark::State& state) {
  const long n = state.range(0);
  CountingSender sender;
  std::unique_ptr<DtVdcLine2DObject> line(newLine(1));
  line->updatePdu();
  const auto length = static_cast<std::size_t>(line->pdu().length());
  constexpr std::size_t kRecord = sizeof(DtVdcLine2DObject);
  std::vector<std::unique_ptr<unsigned char[]>> records;
  records.reserve(static_cast<std::size_t>(n));
  for (long r = 0; r < n; ++r) {
    records.emplace_back(new unsigned char[kRecord]);
    std::memcpy(records.back().get() + kRecord - length, line->pdu().packet(), length);
  }
  long i = 0;
  const auto before = bench::allocationCount();
  for (auto _ : state) {
    line->updatePdu();
    unsigned char* bytes = records[scattered(i++, n)].get() + kRecord - length;
    std::memcpy(bytes, line->pdu().packet(), length);
    sender.sendPdu(bytes, static_cast<int>(length));
    benchmark::DoNotOptimize(sender.last);
  }
  BENCH_COUNT_ALLOCATIONS(state, before);
}

BENCHMARK(BM_DrawerUpdate)->RangeMultiplier(10)->Range(1000, 1000000);
BENCHMARK(BM_DrawerUpdateInOrder)->RangeMultiplier(10)->Range(1000, 1000000);
BENCHMARK(BM_DrawerAddRemove)->RangeMultiplier(10)->Range(1000, 1000000);
BENCHMARK(BM_DrawerRemoveAdd)->RangeMultiplier(10)->Range(1000, 1000000);
BENCHMARK(BM_DrawerUpdate_Baseline)->RangeMultiplier(10)->Range(1000, 1000000);
}  // namespace
