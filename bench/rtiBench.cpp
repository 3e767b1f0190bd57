// One orbit command through an HLA 1.3 RTI, from a remote controller and from a raw HLA 1.3 sender of the
// same bytes, to one subscribed federate that speaks the raw API, so that only the senders differ. Both
// senders subscribe too, as a controller listens for reports. Rounds alternate the two senders; each sends a
// batch and the subscriber is ticked until the whole batch has arrived. Reported: the best and median cost
// per message of each, the library's share over the raw sender, and heap allocations per message (the RTI's
// included).
#include <benchmark/benchmark.h>

#include "allocationCounter.h"
#include "benchOptions.h"
#include "tarvex/tarvexConfig.h"

#if TARVEX_HAVE_RTI13
#include <algorithm>
#include <chrono>
#include <cstdint>
#include <exception>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "rtiRawFederate.h"
#include "tarvex/dtExerciseConn.h"
#include "vistralcontrol/vistralControlRegister.h"
#include "vistralcontrol/vistralRemoteController.h"
#endif

namespace {
#if TARVEX_HAVE_RTI13
using Clock = std::chrono::steady_clock;

constexpr int kBatch = 200;
constexpr auto kArrivalLimit = std::chrono::seconds(20);

const DtString kTank("1:3001:12");
const float kRadius = 120, kHeading = 0.5f, kPitch = -0.3f, kRate = 0.1f;

void sendOrbit(const DtVistralRemoteController& controller) {
  controller.setOrbitMode(&kTank, &kRadius, &kHeading, &kPitch, &kRate);
}

// Keeps the bytes of the last command, so that the raw sender sends exactly what the controller does.
struct KeepingSender : DtCustomRemoteControlSender {
  void sendPdu(const unsigned char* bytes, int length) override { image.assign(bytes, bytes + length); }
  std::vector<unsigned char> image;
};

// Ticks the subscriber until it has received `count` interactions; false when they do not all come.
bool awaitArrivals(RawFederate& subscriber, long count) {
  const auto deadline = Clock::now() + kArrivalLimit;
  while (subscriber.received() < count) {
    subscriber.tick();
    if (Clock::now() > deadline) return false;
  }
  return true;
}

// Declarations reach the RTI's routing some time after the calls return: each sender sends until its first
// interaction arrives, then the stragglers are let in.
bool warmUp(RawFederate& subscriber, const std::function<void()>& send) {
  const long before = subscriber.received();
  const auto deadline = Clock::now() + kArrivalLimit;
  while (subscriber.received() == before) {
    send();
    const auto pause = Clock::now() + std::chrono::milliseconds(20);
    while (Clock::now() < pause) subscriber.tick();
    if (Clock::now() > deadline) return false;
  }
  const auto settle = Clock::now() + std::chrono::milliseconds(300);
  while (Clock::now() < settle) subscriber.tick();
  return true;
}

struct Tally {
  std::vector<double> nsPerMessage;
  std::uint64_t allocations = 0;
  long messages = 0;
  double best() const { return *std::min_element(nsPerMessage.begin(), nsPerMessage.end()); }
  double median() const {
    std::vector<double> v = nsPerMessage;
    std::nth_element(v.begin(), v.begin() + static_cast<long>(v.size() / 2), v.end());
    return v[v.size() / 2];
  }
};

// One batch: kBatch sends, then the subscriber ticked until all have arrived.
template <class Send>
bool timeBatch(RawFederate& subscriber, Send send, Tally& tally) {
  const long target = subscriber.received() + kBatch;
  const auto allocationsBefore = bench::allocationCount();
  const auto start = Clock::now();
  for (int i = 0; i < kBatch; ++i) send();
  if (!awaitArrivals(subscriber, target)) return false;
  const std::chrono::duration<double, std::nano> spent = Clock::now() - start;
  tally.allocations += bench::allocationCount() - allocationsBefore;
  tally.messages += kBatch;
  tally.nsPerMessage.push_back(spent.count() / kBatch);
  return true;
}

void BM_RtiOrbitToSubscriber(benchmark::State& state) {
  try {
    const std::string& execution = bench::rtiExecution();
    // The controller's connection creates the execution from the built-in FOM; the raw federates join it.
    DtExerciseConn conn(execution.c_str(), "bench-controller");
    DtVistralControlRegister(&conn);
    DtVistralRemoteController controller(&conn, "vistral-1");
    controller.setControllerId("bench-controller");
    KeepingSender keeper;
    DtVistralRemoteController imageMaker(&keeper, "vistral-1");
    imageMaker.setControllerId("bench-controller");
    sendOrbit(imageMaker);

    const std::unique_ptr<RawFederate> subscriber = RawFederate::join(execution, "bench-subscriber");
    const std::unique_ptr<RawFederate> raw = RawFederate::join(execution, "bench-raw-sender");
    subscriber->subscribe();
    raw->subscribe();
    raw->publish(keeper.image.data(), keeper.image.size());

    const auto rawSend = [&] { raw->send(); };
    const auto librarySend = [&] { sendOrbit(controller); };
    if (!warmUp(*subscriber, rawSend) || !warmUp(*subscriber, librarySend)) {
      state.SkipWithError("the subscriber did not receive the warm-up interactions");
      return;
    }
    // What each sender hears of the other is taken between batches, outside the timing.
    const auto drainSenders = [&] {
      raw->tick();
      conn.processIncoming();
    };

    Tally rawTally;
    Tally libraryTally;
    bool libraryFirst = false;
    for (auto _ : state) {
      libraryFirst = !libraryFirst;
      bool arrived = true;
      for (int turn = 0; turn < 2 && arrived; ++turn) {
        drainSenders();
        arrived = (turn == 0) == libraryFirst ? timeBatch(*subscriber, librarySend, libraryTally)
                                              : timeBatch(*subscriber, rawSend, rawTally);
      }
      if (!arrived) {
        state.SkipWithError("a batch did not arrive in time");
        return;
      }
      state.SetIterationTime(libraryTally.nsPerMessage.back() * 1e-9);
    }
    const double library = libraryTally.best();
    const double floor = rawTally.best();
    state.counters["lib_ns"] = library;
    state.counters["raw_ns"] = floor;
    state.counters["lib_median_ns"] = libraryTally.median();
    state.counters["raw_median_ns"] = rawTally.median();
    state.counters["share_%"] = 100.0 * (library - floor) / floor;
    state.counters["lib_allocs/msg"] =
        static_cast<double>(libraryTally.allocations) / static_cast<double>(libraryTally.messages);
    state.counters["raw_allocs/msg"] =
        static_cast<double>(rawTally.allocations) / static_cast<double>(rawTally.messages);
    state.SetLabel(execution);
  } catch (const std::exception& e) {
    state.SkipWithError(e.what());
  }
}
#else
void BM_RtiOrbitToSubscriber(benchmark::State& state) {
  state.SkipWithError(
      "skipped: this build has no HLA 1.3 RTI (configure with -DVISTRAL_RTI13_ROOT=<prefix>)");
  for (auto _ : state) {
  }
}
#endif
// Each iteration is one round of both senders, kBatch messages each; the reported time is the library's.
BENCHMARK(BM_RtiOrbitToSubscriber)->Iterations(40)->UseManualTime()->Unit(benchmark::kNanosecond);
}  // namespace
