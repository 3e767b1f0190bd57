// Sends a stream of mixed control PDUs (loadStream.h) to a viewer through one federation and checks what the
// viewer made of it. Each PDU goes out as its bytes, damaged ones too, the way any peer on the same network
// could send them. Every WINDOW PDUs it asks the viewer for its state and waits for the report, so that
// neither a socket buffer nor an RTI's queue overflows. Beside the sending it applies the same stream, as far
// as the federation delivers it, to an emulator of its own without a federation: the viewer's snapshot must
// be that one's, byte for byte, counters and digest of the images taken included.
//
// On the in-process federation the viewer is an emulator in this process, compared here; on any other the
// viewer is a vistralEmulator of its own, and the expected snapshot is written to --expect for the caller to
// compare with the viewer's --json. With --viewer-pid it samples the viewer's resident memory once a second
// and checks that it stays flat once the scene has stopped growing.
//
//   vistralLoad [--federation NAME] [--viewer NAME] [--count N] [--seed N] [--window N] [--objects N]
//               [--viewer-pid PID] [--expect FILE] [--timeout SECONDS]
#include <unistd.h>
#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <iostream>
#include <iterator>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "loadStream.h"
#include "tarvex/dtCmdLine.h"
#include "tarvex/dtException.h"
#include "tarvex/dtExerciseConn.h"
#include "tarvex/dtInteractionEncoder.h"
#include "vistralcontrol/hVistralControlInter.h"
#include "vistralemulator/emulatorSnapshot.h"
#include "vistralemulator/vistralEmulator.h"

namespace {
using Clock = std::chrono::steady_clock;

// A "ViewControl" interaction whose value is any bytes, well-formed or not.
class RawViewControl : public DtInteractionWithEncDec {
 public:
  void set(const DtLoadPdu& pdu) { pdu_ = pdu; }
  void printData() const override {}
  const char* name() const override { return "RawViewControl"; }
  const char* interactionClassToUse(DtExerciseConn* /*conn*/) const override {
    return DtVistralControlInteraction::kClassName;
  }
  DtInteractionDecoder* createDecoder(DtExerciseConn* /*conn*/) const override { return nullptr; }
  DtInteractionEncoder* createEncoder(DtExerciseConn* conn) const override {
    if (classDesc() == nullptr) return nullptr;
    auto* encoder = new DtInteractionEncoder(conn, classDesc());
    encoder->addParameterEncoder<RawViewControl>(DtVistralControlInteraction::kPduParameter, &encode);
    return encoder;
  }

 private:
  static bool encode(const RawViewControl& inter, RTI::ParameterHandleValuePairSet* set, unsigned handle) {
    set->add(handle, reinterpret_cast<const char*>(inter.pdu_.bytes),
             static_cast<RTI::ULong>(inter.pdu_.size));
    return true;
  }
  DtLoadPdu pdu_;
};

// The viewer's resident memory in KiB, from /proc; 0 when it cannot be read.
long residentKiB(long pid) {
  std::ifstream status("/proc/" + std::to_string(pid) + "/status");
  std::string line;
  while (std::getline(status, line))
    if (line.rfind("VmRSS:", 0) == 0) return std::atol(line.c_str() + 6);
  return 0;
}

struct Options {
  std::string federation;
  std::string viewer;
  long count = 0;
  std::uint64_t seed = 0;
  long window = 0;
  unsigned objects = 0;
  long viewerPid = 0;
  std::string expect;
  double timeout = 0;
};

class LoadRun {
 public:
  explicit LoadRun(const Options& o)
      : o_(o),
        stream_(o.seed, DtString(o.viewer.c_str()), "vistralLoad", o.objects),
        reference_(DtString(o.viewer.c_str())),
        conn_(o.federation.c_str(), "vistralLoad", static_cast<const char*>(nullptr), nullptr, nullptr) {
    // A federation of the process itself has its viewer here; DIS checks each datagram's length on arrival.
    const std::string backend = conn_.backendName();
    if (backend == "inprocess")
      local_ = std::make_unique<DtVistralEmulator>(o.federation.c_str(), DtString(o.viewer.c_str()));
    dropsDamagedFrames_ = backend == "dis";
    window_ = o.window > 0 ? o.window : dropsDamagedFrames_ ? 64 : 1024;
    DtVistralControlInteraction::addCallback(&conn_, &LoadRun::heard, this);
  }
  ~LoadRun() { DtVistralControlInteraction::removeCallback(&conn_, &LoadRun::heard, this); }
  LoadRun(const LoadRun&) = delete;
  LoadRun& operator=(const LoadRun&) = delete;

  bool run();

 private:
  static void heard(DtVistralControlInteraction* inter, void* usr) {
    auto* self = static_cast<LoadRun*>(usr);
    const DtVistralControlPdu* pdu = inter->vcPdu();
    if (pdu != nullptr && pdu->statusCommand() && pdu->senderId() == self->reference_.viewerId())
      ++self->reports_;
  }
  Clock::duration timeout() const {
    return std::chrono::duration_cast<Clock::duration>(std::chrono::duration<double>(o_.timeout));
  }
  bool send(const DtLoadPdu& pdu);
  bool awaitReports(long sent);
  void poll();
  void sample(long sent);
  bool checkMemory() const;
  bool checkSnapshot() const;

  const Options& o_;
  DtLoadStream stream_;
  DtVistralEmulator reference_;
  DtExerciseConn conn_;
  std::unique_ptr<DtVistralEmulator> local_;
  bool dropsDamagedFrames_ = false;
  long window_ = 0;
  RawViewControl raw_;
  long reports_ = 0;
  long damaged_[static_cast<int>(DtLoadDamage::flippedBytes) + 1] = {};  // by kind, intact ones first
  long undelivered_ = 0;
  long refusals_ = 0;
  Clock::time_point lastSample_;
  // Resident memory samples (KiB) with the PDUs sent by then; the first after the scene stopped growing.
  std::vector<std::pair<long, long>> rss_;
  std::size_t grown_ = 0;
};

void LoadRun::poll() {
  int handled = local_ ? local_->processIncoming() : 0;
  handled += conn_.processIncoming();
  if (handled == 0) std::this_thread::sleep_for(std::chrono::microseconds(200));
}

bool LoadRun::send(const DtLoadPdu& pdu) {
  raw_.set(pdu);
  // A refused send (a full socket buffer) sent nothing: it goes again once the network has drained.
  Clock::time_point deadline;
  while (!conn_.sendInteraction(raw_)) {
    ++refusals_;
    if (deadline == Clock::time_point()) deadline = Clock::now() + timeout();
    if (conn_.lost() || Clock::now() > deadline) {
      std::cerr << "the federation refuses to send: " << conn_.lostReason() << "\n";
      return false;
    }
    poll();
  }
  if (dropsDamagedFrames_ && !pdu.intactFrame()) {
    ++undelivered_;
  } else {
    reference_.applyImage(pdu.bytes, pdu.size);
  }
  return true;
}

bool LoadRun::awaitReports(long sent) {
  const auto deadline = Clock::now() + timeout();
  while (reports_ < reference_.state().counters.answered) {
    if (Clock::now() > deadline) {
      std::cerr << "after " << sent << " PDUs the viewer has sent " << reports_ << " of the "
                << reference_.state().counters.answered << " state reports it owes\n";
      return false;
    }
    poll();
  }
  return true;
}

void LoadRun::sample(long sent) {
  const long pid = local_ ? static_cast<long>(getpid()) : o_.viewerPid;
  if (pid == 0 || Clock::now() - lastSample_ < std::chrono::seconds(1)) return;
  lastSample_ = Clock::now();
  rss_.emplace_back(sent, residentKiB(pid));
  // The scene has stopped growing once every object id has had its chances to be drawn.
  if (grown_ == 0 && sent >= std::max(o_.count / 10, 50L * static_cast<long>(o_.objects)))
    grown_ = rss_.size();
}

bool LoadRun::checkMemory() const {
  if (rss_.empty()) return true;
  std::printf("viewer RSS: start %ld KiB", rss_.front().second);
  if (grown_ == 0 || rss_.size() - grown_ < 3) {
    std::printf(", end %ld KiB (too short a run to judge flatness)\n", rss_.back().second);
    return true;
  }
  const long afterGrowth = rss_[grown_ - 1].second;
  long highest = 0;
  for (std::size_t i = grown_ - 1; i < rss_.size(); ++i) highest = std::max(highest, rss_[i].second);
  // Flat: what the allocator keeps for reuse may move a little, a leak of a few bytes per PDU does not hide.
  const long allowed = afterGrowth + std::max(afterGrowth / 10, 8L * 1024);
  std::printf(", after growth %ld KiB (at PDU %ld), highest after %ld KiB, end %ld KiB: %s\n", afterGrowth,
              rss_[grown_ - 1].first, highest, rss_.back().second, highest <= allowed ? "flat" : "GROWING");
  return highest <= allowed;
}

bool LoadRun::checkSnapshot() const {
  const std::string expected = DtEmulatorSnapshotJson(reference_.state());
  if (!o_.expect.empty()) {
    std::ofstream out(o_.expect, std::ios::binary);
    out << expected << "\n";
    if (!out) {
      std::cerr << "could not write " << o_.expect << "\n";
      return false;
    }
  }
  if (!local_) return true;
  if (DtEmulatorSnapshotJson(local_->state()) == expected) return true;
  std::cerr << "the viewer's state differs from the stream's: received " << local_->state().counters.received
            << " (expected " << reference_.state().counters.received << ")\n";
  return false;
}

bool LoadRun::run() {
  const auto started = Clock::now();
  lastSample_ = started - std::chrono::seconds(1);
  sample(0);
  for (long sent = 0; sent < o_.count;) {
    const DtLoadPdu pdu = stream_.next();
    ++damaged_[static_cast<int>(pdu.damage)];
    if (!send(pdu)) return false;
    ++sent;
    if (sent % window_ == 0 || sent == o_.count) {
      if (!send(stream_.stateRequest()) || !awaitReports(sent)) return false;
      sample(sent);
    }
  }
  const double seconds = std::chrono::duration<double>(Clock::now() - started).count();
  const DtEmulatorCounters& c = reference_.state().counters;
  std::printf(
      "%ld PDUs through %s in %.2f s: %.0f PDUs/s (%ld state reports; %ld refused sends "
      "sent again)\n",
      o_.count, o_.federation.c_str(), seconds, static_cast<double>(o_.count) / seconds, c.answered,
      refusals_);
  std::printf("hostile:");
  for (int d = 1; d < static_cast<int>(std::size(damaged_)); ++d)
    std::printf(" %s %ld", DtLoadDamageName(static_cast<DtLoadDamage>(d)), damaged_[d]);
  std::printf("; %ld of them not for delivery on this network (its datagram checks)\n", undelivered_);
  std::printf("viewer took %ld, ignored %ld, digest %016llx, %zu objects\n", c.received, c.ignored,
              static_cast<unsigned long long>(c.digest), reference_.state().objects.size());
  const bool memoryFlat = checkMemory();
  return checkSnapshot() && memoryFlat;
}

bool readOptions(DtCmdLine& cmd, int argc, char** argv, Options* o, int* status) {
  const int federation = cmd.addValue("federation", "f", "NAME", "the federation execution", "Load");
  const int viewer = cmd.addValue("viewer", "t", "NAME", "the viewer's id", "vistral-1");
  const int count = cmd.addValue("count", "n", "N", "PDUs to send", "10000");
  const int seed = cmd.addValue("seed", "", "N", "the stream's seed", "1");
  const int window =
      cmd.addValue("window", "w", "N",
                   "PDUs between state requests (0: 64 over DIS, which a viewer's socket buffer "
                   "holds, 1024 over the others)",
                   "0");
  const int objects = cmd.addValue("objects", "", "N", "draw object ids in use", "400");
  const int pid = cmd.addValue("viewer-pid", "", "PID", "the viewer's process, for its memory", "0");
  const int expect = cmd.addValue("expect", "", "FILE", "write the expected snapshot (JSON) here", "");
  const int timeout = cmd.addValue("timeout", "", "SECONDS", "longest wait for a state report", "30");
  *status = cmd.parseForProgram(argc, argv);
  if (*status >= 0) return false;
  double n = 0, s = 0, w = 0, k = 0, p = 0;
  if (!cmd.number(count, 1, 1e12, true, &n) || !cmd.number(seed, 0, 1.8e19, true, &s) ||
      !cmd.number(window, 0, 1e9, true, &w) || !cmd.number(objects, 1, 1e7, true, &k) ||
      !cmd.number(pid, 0, 1e9, true, &p) || !cmd.number(timeout, 0.1, 1e6, false, &o->timeout)) {
    std::cerr
        << "PARSE ERROR: --count, --seed, --window, --objects, --viewer-pid and --timeout take numbers\n";
    *status = 2;
    return false;
  }
  o->federation = cmd.value(federation);
  o->viewer = cmd.value(viewer);
  o->count = static_cast<long>(n);
  o->seed = static_cast<std::uint64_t>(s);
  o->window = static_cast<long>(w);
  o->objects = static_cast<unsigned>(k);
  o->viewerPid = static_cast<long>(p);
  o->expect = cmd.value(expect);
  return true;
}
}  // namespace

int main(int argc, char** argv) {
  DtCmdLine cmd("vistralLoad",
                "Sends a seeded stream of mixed and hostile control PDUs to a viewer and checks it.", "54.0");
  Options options;
  int status = 0;
  if (!readOptions(cmd, argc, argv, &options, &status)) return status;
  try {
    LoadRun run(options);
    return run.run() ? 0 : 1;
  } catch (const DtException& e) {
    std::cerr << e.what() << "\n";
    return 1;
  }
}
