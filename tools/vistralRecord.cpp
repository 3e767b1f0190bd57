// Joins a federation execution (any name the library speaks: dis://..., rti://..., thread://...) and writes
// every control PDU it sees, with its arrival time, to a pcapng file: each PDU as one UDP datagram over IPv4
// from 127.0.0.1 port 3001 to 127.0.0.1 port 3000, so that the kind-202 dissector and vistralInspect read
// every recording alike. The file is valid after every PDU, so an interrupted recording keeps what it had.
//
// When the federation is lost (an RTI server gone) it says so and stops, with status 3; with --rejoin it
// joins again once the server is back and records on into the same file.
//
//   vistralRecord --federation NAME [--fed FILE] [--seconds N] [--count N] [--rejoin] OUT.pcapng
#include <chrono>
#include <cmath>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <memory>
#include <thread>

#include "tarvex/dtCmdLine.h"
#include "tarvex/dtException.h"
#include "tarvex/dtExerciseConn.h"
#include "tarvex/dtMessage.h"
#include "traffic/pcapngWriter.h"
#include "vistralcontrol/hVistralControlInter.h"
#include "vistralcontrol/vistralControlRegister.h"

namespace {
volatile std::sig_atomic_t theStop = 0;
void stop(int) { theStop = 1; }

struct Recording {
  traffic::PcapngWriter* writer;
  std::FILE* file;
};

void record(DtVistralControlInteraction* inter, void* usr) {
  const DtVistralControlPdu* pdu = inter->vcPdu();
  if (pdu == nullptr) return;
  auto* recording = static_cast<Recording*>(usr);
  const auto now = std::chrono::system_clock::now().time_since_epoch();
  recording->writer->add(std::chrono::duration_cast<std::chrono::nanoseconds>(now).count(), pdu->packet(),
                         static_cast<std::size_t>(pdu->length()));
  std::fflush(recording->file);
}

// A connection that records into the recording; null when it cannot join (yet).
std::unique_ptr<DtExerciseConn> join(const DtCmdLine& cmd, int federation, int name, int fed,
                                     Recording& recording) {
  const char* fedFile = cmd.value(fed).empty() ? nullptr : cmd.value(fed).c_str();
  auto conn = std::make_unique<DtExerciseConn>(cmd.value(federation).c_str(), cmd.value(name).c_str(),
                                               fedFile, nullptr, nullptr);
  DtVistralControlRegister(conn.get());
  DtVistralControlInteraction::addCallback(conn.get(), &record, &recording);
  return conn;
}
}  // namespace

int main(int argc, char** argv) {
  DtCmdLine cmd("vistralRecord", "Records the control PDUs of a federation execution to a pcapng file.",
                "54.0");
  const int federation =
      cmd.addValue("federation", "f", "NAME",
                   "the federation execution: " + DtExerciseConn::executionNameForms(), "VistralControl");
  const int name = cmd.addValue("name", "n", "NAME", "this federate's name", "vistralRecord");
  const int fed = cmd.addValue("fed", "", "FILE", "the FED file", "");
  const int seconds = cmd.addValue("seconds", "s", "N", "record for N seconds (0: until interrupted)", "0");
  const int count = cmd.addValue("count", "c", "N", "stop after N PDUs (0: no limit)", "0");
  const int rejoin = cmd.addSwitch(
      "rejoin", "", "when the RTI's server goes away, join again once it is back and record on");
  cmd.setPositionalHelp("OUT.pcapng", "the recording to write");
  if (const int status = cmd.parseForProgram(argc, argv); status >= 0) return status;
  double runFor = 0, limitNumber = 0;
  if (!cmd.number(seconds, 0, HUGE_VAL, false, &runFor)) {
    std::cerr << "vistralRecord: '" << cmd.value(seconds) << "' is not a number of seconds\n";
    return 2;
  }
  if (!cmd.number(count, 0, 1e15, true, &limitNumber)) {
    std::cerr << "vistralRecord: '" << cmd.value(count) << "' is not a count\n";
    return 2;
  }
  const auto limit = static_cast<unsigned long>(limitNumber);
  if (cmd.positionals().size() != 1) {
    std::cerr << "vistralRecord: give one output file\n";
    return 2;
  }
  std::ostream quiet(nullptr);
  DtInfo.setStream(quiet);
  std::signal(SIGINT, &stop);
  std::signal(SIGTERM, &stop);
  std::FILE* file = std::fopen(cmd.positionals()[0].c_str(), "wb");
  if (file == nullptr) {
    std::perror(cmd.positionals()[0].c_str());
    return 1;
  }
  traffic::PcapngWriter writer(file);
  std::fflush(file);
  Recording recording{&writer, file};
  int status = 0;
  try {
    std::unique_ptr<DtExerciseConn> conn = join(cmd, federation, name, fed, recording);
    std::cerr << "recording " << cmd.value(federation) << " to " << cmd.positionals()[0] << std::endl;
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::duration<double>(runFor);
    const auto over = [&] { return runFor != 0 && std::chrono::steady_clock::now() >= deadline; };
    auto nextTry = std::chrono::steady_clock::now();
    while (theStop == 0 && !over() && (limit == 0 || writer.written() < limit)) {
      if (!conn) {  // lost, and asked to rejoin: about once a second
        if (std::chrono::steady_clock::now() >= nextTry) {
          nextTry = std::chrono::steady_clock::now() + std::chrono::seconds(1);
          try {
            conn = join(cmd, federation, name, fed, recording);
            std::cerr << "vistralRecord: rejoined " << cmd.value(federation) << std::endl;
          } catch (const DtException&) {  // the server is not back yet
          }
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
        continue;
      }
      try {
        if (conn->processIncoming() == 0) std::this_thread::sleep_for(std::chrono::milliseconds(1));
      } catch (const DtException&) {
        if (!conn->lost()) throw;
        std::cerr << "vistralRecord: lost federation " << cmd.value(federation) << ": " << conn->lostReason()
                  << (cmd.isSet(rejoin) ? "; joining again once it is back" : "") << std::endl;
        conn.reset();
        status = 3;
        if (!cmd.isSet(rejoin)) break;
      }
    }
    if (conn) {
      status = 0;
      DtVistralControlInteraction::removeCallback(conn.get(), &record, &recording);
    }
  } catch (const DtException& e) {
    std::cerr << e.what() << "\n";
    status = 1;
  }
  const bool ok = writer.ok() && std::fclose(file) == 0;
  std::cerr << "recorded " << writer.written() << " PDUs" << (ok ? "" : ", but the file could not be written")
            << "\n";
  return ok ? status : 1;
}
