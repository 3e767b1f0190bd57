// A control PDU sent as a "ViewControl" interaction through the in-process federation and received by another
// federate, and the receiving decoder alone, each beside the same bytes handed from one queue to another.
#include <benchmark/benchmark.h>

#include <cstring>
#include <memory>
#include <vector>

#include "allocationCounter.h"
#include "tarvex/dtExerciseConn.h"
#include "tarvex/dtMessage.h"
#include "tarvex/dtParameterSet.h"
#include "vistralcontrol/absoluteVcPdu.h"
#include "vistralcontrol/hVistralControlInter.h"
#include "vistralcontrol/vistralControlRegister.h"

namespace {
DtAbsoluteVCPdu& samplePdu() {
  static DtAbsoluteVCPdu pdu;  // built once: the banner goes out before timing
  pdu.setViewerId("vistral-1");
  pdu.setWorldLocation(DtVector64(-2476512.25, -4665431.5, 3588000.75));
  pdu.setOrientation(DtTaitBryan(1.5, -0.25, 0.125));
  return pdu;
}

void touch(DtVistralControlInteraction* inter, void* usr) {
  *static_cast<int*>(usr) += inter->vcPdu()->length();
}

void BM_HlaSendAndReceive(benchmark::State& state) {
  DtAbsoluteVCPdu& pdu = samplePdu();
  DtExerciseConn sender("Bench", "sender");
  DtExerciseConn receiver("Bench", "receiver");
  DtVistralControlRegister(&sender);
  DtVistralControlRegister(&receiver);
  int received = 0;
  DtVistralControlInteraction::addCallback(&receiver, &touch, &received);
  const auto before = bench::allocationCount();
  for (auto _ : state) {
    DtVistralControlInteraction inter;
    inter.setVcPdu(pdu);
    if (!sender.sendInteraction(inter)) state.SkipWithError("the interaction was not sent");
    receiver.processIncoming();
  }
  BENCH_COUNT_ALLOCATIONS(state, before);
  benchmark::DoNotOptimize(received);
}
BENCHMARK(BM_HlaSendAndReceive);

// Bytes handed from a sending queue to a receiving queue and copied out into a new object of the PDU's size,
// as the receiver's PDU is. The interface floor adds what the interfaces force: the sending interaction's
// own copy of the PDU (an object of its own) before the sending queue, and a new interaction on receipt.
template <bool InterfaceFloor>
void queueToQueue(benchmark::State& state) {
  const DtAbsoluteVCPdu& pdu = samplePdu();
  const auto length = static_cast<std::size_t>(pdu.length());
  std::vector<unsigned char> sending;
  std::vector<unsigned char> receiving;
  sending.reserve(length);
  receiving.reserve(length);
  const auto before = bench::allocationCount();
  for (auto _ : state) {
    const unsigned char* image = pdu.packet();
    std::unique_ptr<unsigned char[]> sent;
    if (InterfaceFloor) {
      sent.reset(new unsigned char[sizeof(DtAbsoluteVCPdu)]);
      std::memcpy(sent.get(), image, length);
      image = sent.get();
    }
    sending.assign(image, image + length);
    sent.reset();
    receiving.insert(receiving.end(), sending.begin(), sending.end());
    sending.clear();
    std::unique_ptr<unsigned char[]> inter(
        InterfaceFloor ? new unsigned char[sizeof(DtVistralControlInteraction)] : nullptr);
    std::unique_ptr<unsigned char[]> object(new unsigned char[sizeof(DtAbsoluteVCPdu)]);
    std::memcpy(object.get(), receiving.data(), length);
    receiving.clear();
    benchmark::DoNotOptimize(inter.get());
    benchmark::DoNotOptimize(object.get());
    benchmark::ClobberMemory();
  }
  BENCH_COUNT_ALLOCATIONS(state, before);
}

void BM_HlaSendAndReceive_Baseline(benchmark::State& state) { queueToQueue<false>(state); }
BENCHMARK(BM_HlaSendAndReceive_Baseline);
void BM_HlaSendAndReceive_InterfaceFloor(benchmark::State& state) { queueToQueue<true>(state); }
BENCHMARK(BM_HlaSendAndReceive_InterfaceFloor);

void BM_HlaDecode(benchmark::State& state) {
  const DtAbsoluteVCPdu& pdu = samplePdu();
  DtExerciseConn conn("BenchDecode", "receiver");
  DtVistralControlRegister(&conn);
  DtInterClassDesc* desc = conn.interClassDescByName("ViewControl");
  RTI::ParameterHandle handle = 0;
  desc->findParameter("ViewControlPdu", &handle);
  DtInteractionDecoder* decoder = conn.decoderList().find(desc->handle());
  DtParameterSet set;
  set.add(handle, reinterpret_cast<const char*>(pdu.packet()), static_cast<RTI::ULong>(pdu.length()));
  const auto before = bench::allocationCount();
  for (auto _ : state) {
    DtVistralControlInteraction inter;
    decoder->decode(&inter, set);
    benchmark::DoNotOptimize(inter.vcPdu());
  }
  BENCH_COUNT_ALLOCATIONS(state, before);
}
BENCHMARK(BM_HlaDecode);

// The value copied out of its queue into a new object of the PDU's size.
void BM_HlaDecode_Baseline(benchmark::State& state) {
  const DtAbsoluteVCPdu& pdu = samplePdu();
  const auto length = static_cast<std::size_t>(pdu.length());
  const std::vector<unsigned char> queued(pdu.packet(), pdu.packet() + length);
  const auto before = bench::allocationCount();
  for (auto _ : state) {
    std::unique_ptr<unsigned char[]> object(new unsigned char[sizeof(DtAbsoluteVCPdu)]);
    std::memcpy(object.get(), queued.data(), length);
    benchmark::DoNotOptimize(object.get());
    benchmark::ClobberMemory();
  }
  BENCH_COUNT_ALLOCATIONS(state, before);
}
BENCHMARK(BM_HlaDecode_Baseline);
}  // namespace
