// Sends the control PDUs of a recording (pcapng or pcap, as vistralRecord writes or a capture holds them) to
// a federation execution, at their recorded pace, faster or slower (--speed), or as fast as possible
// (--fast). On a terminal a progress line shows how far it is; at the end it says how closely it kept the
// pace.
//
// The viewers' state reports in a recording are left out unless asked for: replayed into a viewer, the
// session makes it answer for itself.
//
// When the federation is lost (an RTI server gone) it says so within a second or so and stops, with status 3.
//
//   vistralReplay --federation NAME [--fed FILE] [--speed X | --fast] [--port N] [--with-reports] RECORDING
#include <sched.h>
#include <sys/prctl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cfloat>
#include <chrono>
#include <cmath>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <iostream>
#include <string>
#include <thread>
#include <vector>

#include "tarvex/dtCmdLine.h"
#include "tarvex/dtException.h"
#include "tarvex/dtExerciseConn.h"
#include "tarvex/dtMessage.h"
#include "traffic/trafficReader.h"
#include "vistralcontrol/hVistralControlInter.h"
#include "vistralcontrol/vistralControlRegister.h"

namespace {
volatile std::sig_atomic_t theStop = 0;
void stop(int) { theStop = 1; }

using Clock = std::chrono::steady_clock;

// How often the connection is let deliver (and tell of a loss) while sending as fast as possible.
constexpr std::chrono::milliseconds kPollWhileFast(100);

// Keeps why the federation was lost, for the program's own message.
void noteLost(DtExerciseConn* conn, void* usr) { *static_cast<std::string*>(usr) = conn->lostReason().str(); }

// How long before a PDU is due the replay stops sleeping and waits it out on the processor: a scheduler's
// wake-up is late by tens of microseconds when the process gets the processor (with --realtime under load);
// shorter than a millisecond, so that a real-time replay of 1000 PDUs a second still sleeps most of the time.
constexpr auto kSpin = std::chrono::microseconds(200);

// The recording's PDUs, back to back in one buffer, with their times.
struct Loaded : traffic::Sink {
  struct Pdu {
    std::int64_t nanoseconds;
    std::size_t at;
    std::size_t size;
  };
  void pdu(const traffic::Record& r) override {
    pdus.push_back({r.seconds * 1'000'000'000LL + r.nanoseconds, bytes.size(), r.size});
    bytes.insert(bytes.end(), r.bytes, r.bytes + r.size);
  }
  void fault(std::size_t offset, const std::string& what) override {
    std::cerr << name << ": byte " << offset << ": " << what << "\n";
    ++faults;
  }
  std::string name;
  std::vector<Pdu> pdus;
  std::vector<unsigned char> bytes;
  std::size_t faults = 0;
};
}  // namespace

int main(int argc, char** argv) {
  DtCmdLine cmd("vistralReplay", "Sends the control PDUs of a recording to a federation execution.", "54.0");
  const int federation =
      cmd.addValue("federation", "f", "NAME",
                   "the federation execution: " + DtExerciseConn::executionNameForms(), "VistralControl");
  const int name = cmd.addValue("name", "n", "NAME", "this federate's name", "vistralReplay");
  const int fed = cmd.addValue("fed", "", "FILE", "the FED file", "");
  const int speed = cmd.addValue("speed", "x", "X", "replay X times as fast as recorded", "1");
  const int fast = cmd.addSwitch("fast", "", "replay as fast as possible");
  const int port = cmd.addValue("port", "p", "N", "only datagrams from or to this UDP port", "0");
  const int reports =
      cmd.addSwitch("with-reports", "",
                    "also send the viewers' state reports (status forms), which are left out so "
                    "that a viewer replayed into answers for itself");
  const int realtime = cmd.addSwitch("realtime", "",
                                     "run at a real-time priority, where allowed, so that a loaded machine "
                                     "keeps the pace");
  const int linger = cmd.addValue("linger", "", "SECONDS",
                                  "stay joined this long after the last PDU (for late answers)", "0.5");
  cmd.setPositionalHelp("RECORDING", "a pcapng or pcap file");
  if (const int status = cmd.parseForProgram(argc, argv); status >= 0) return status;
  double factor = 0, lingerFor = 0, portNumber = 0;
  if (!cmd.number(speed, 0, DBL_MAX, false, &factor) || !(factor > 0)) {
    std::cerr << "vistralReplay: --speed: '" << cmd.value(speed) << "' is not a positive number\n";
    return 2;
  }
  if (!cmd.number(linger, 0, HUGE_VAL, false, &lingerFor)) {
    std::cerr << "vistralReplay: --linger: '" << cmd.value(linger) << "' is not a number of seconds\n";
    return 2;
  }
  if (!cmd.number(port, 0, 65535, true, &portNumber)) {
    std::cerr << "vistralReplay: --port: '" << cmd.value(port) << "' is not a port\n";
    return 2;
  }
  if (cmd.positionals().size() != 1) {
    std::cerr << "vistralReplay: give one recording\n";
    return 2;
  }
  std::ostream quiet(nullptr);
  DtInfo.setStream(quiet);
  // Wake-ups as exact as the kernel gives them; with --realtime, ahead of ordinary work.
  prctl(PR_SET_TIMERSLACK, 1UL, 0UL, 0UL, 0UL);
  if (cmd.isSet(realtime)) {
    sched_param priority{};
    priority.sched_priority = 10;
    if (sched_setscheduler(0, SCHED_FIFO, &priority) != 0)
      std::cerr << "vistralReplay: no real-time priority here (" << std::strerror(errno)
                << "), going on without\n";
  }
  Loaded loaded;
  loaded.name = cmd.positionals()[0];
  std::FILE* file = std::fopen(loaded.name.c_str(), "rb");
  if (file == nullptr) {
    std::perror(loaded.name.c_str());
    return 1;
  }
  traffic::readCapture(file, static_cast<int>(portNumber), loaded);

  std::signal(SIGINT, &stop);
  std::signal(SIGTERM, &stop);
  const bool terminal = isatty(STDERR_FILENO) != 0;
  std::size_t sent = 0;
  std::size_t refused = 0;
  std::size_t skipped = 0;  // reports, and images the library makes no PDU of
  double worstLate = 0;     // ms behind the recorded pace
  double totalLate = 0;
  std::string lost;  // why the federation was lost; empty while joined
  try {
    const char* fedFile = cmd.value(fed).empty() ? nullptr : cmd.value(fed).c_str();
    DtExerciseConn conn(cmd.value(federation).c_str(), cmd.value(name).c_str(), fedFile, nullptr, nullptr);
    DtVistralControlRegister(&conn);
    conn.addLostCallback(&noteLost, &lost);
    // The library reads an image in a buffer as long as the longest PDU, zero past the image.
    std::vector<unsigned char> image(DtPdu::kMaxLength + 1, 0);
    std::size_t used = 0;
    DtVistralControlInteraction inter;
    const std::int64_t first = loaded.pdus.empty() ? 0 : loaded.pdus.front().nanoseconds;
    const Clock::time_point start = Clock::now();
    Clock::time_point shown;
    Clock::time_point polled = start;
    for (const Loaded::Pdu& pdu : loaded.pdus) {
      if (theStop != 0) break;
      if (cmd.isSet(fast) && Clock::now() - polled > kPollWhileFast) {
        conn.processIncoming();
        polled = Clock::now();
      }
      if (!cmd.isSet(fast)) {
        const auto offset = std::chrono::nanoseconds(static_cast<std::int64_t>(
            static_cast<double>(std::max<std::int64_t>(0, pdu.nanoseconds - first)) / factor));
        const Clock::time_point due = start + offset;
        // Sleep to just short of the moment, keep the connection's queue drained, then wait it out exactly.
        while (theStop == 0 && Clock::now() < due - kSpin) {
          conn.processIncoming();
          std::this_thread::sleep_for(
              std::min<Clock::duration>(due - kSpin - Clock::now(), std::chrono::milliseconds(5)));
        }
        while (Clock::now() < due) {
        }
        const double late = std::chrono::duration<double, std::milli>(Clock::now() - due).count();
        worstLate = std::max(worstLate, late);
        totalLate += late;
      }
      std::memset(image.data() + pdu.size, 0, used > pdu.size ? used - pdu.size : 0);
      std::memcpy(image.data(), loaded.bytes.data() + pdu.at, pdu.size);
      used = pdu.size;
      inter.setFromNetPacket(reinterpret_cast<const DtNetPduHeader*>(image.data()));
      const DtVistralControlPdu* made = inter.vcPdu();
      if (made == nullptr || (made->statusCommand() && !cmd.isSet(reports))) {
        ++skipped;
        continue;
      }
      if (conn.sendInteraction(inter))
        ++sent;
      else
        ++refused;
      if (terminal && Clock::now() - shown > std::chrono::milliseconds(100)) {
        shown = Clock::now();
        std::fprintf(
            stderr, "\rsent %zu of %zu PDUs (%.0f%%)", sent, loaded.pdus.size(),
            100.0 * static_cast<double>(sent + refused + skipped) / static_cast<double>(loaded.pdus.size()));
      }
    }
    const Clock::time_point leave =
        Clock::now() + std::chrono::duration_cast<Clock::duration>(std::chrono::duration<double>(lingerFor));
    while (theStop == 0 && Clock::now() < leave) {
      if (conn.processIncoming() == 0) std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
  } catch (const DtException& e) {
    if (lost.empty()) {
      std::cerr << (terminal ? "\n" : "") << e.what() << "\n";
      return 1;
    }
    std::cerr << (terminal ? "\n" : "") << "vistralReplay: lost federation " << cmd.value(federation)
              << " after sending " << sent << " of " << loaded.pdus.size() << " PDUs: " << lost << "\n";
    return 3;
  }
  if (terminal) std::fprintf(stderr, "\r%60s\r", "");
  std::cerr << "sent " << sent << " of " << loaded.pdus.size() << " PDUs";
  if (skipped > 0) std::cerr << " (" << skipped << " state reports left out)";
  if (refused > 0) std::cerr << ", " << refused << " refused by the network";
  if (!cmd.isSet(fast) && sent > 0)
    std::cerr << "; behind the recorded pace by " << totalLate / static_cast<double>(sent + refused)
              << " ms on average, " << worstLate << " ms at worst";
  std::cerr << "\n";
  return refused > 0 || loaded.faults > 0 || theStop != 0 ? 1 : 0;
}
