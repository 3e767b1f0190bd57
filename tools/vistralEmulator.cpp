// A headless viewer on a federation: takes the control PDUs addressed to its viewer id, answers requests for
// its state (through its connection: over DIS, to the address or group it uses), and on leaving writes what
// it would show (SVG, PNG) and its whole state (JSON). With --http it shows all that live in a browser while
// it runs.
//
//   vistralEmulator [--viewer NAME] [--federation NAME] [--fed FILE] [--seconds N]
//                   [--svg FILE] [--png FILE] [--json FILE] [--http [HOST:]PORT] [--quiet] [--dump]
//                   [--rejoin]
#include <chrono>
#include <cmath>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <memory>
#include <thread>

#include "tarvex/dtCmdLine.h"
#include "tarvex/dtException.h"
#include "tarvex/dtExerciseConn.h"
#include "vistralcontrol/hVistralControlInter.h"
#include "vistralemulator/emulatorLiveView.h"
#include "vistralemulator/emulatorPicture.h"
#include "vistralemulator/emulatorSnapshot.h"
#include "vistralemulator/vistralEmulator.h"

namespace {
volatile std::sig_atomic_t theStop = 0;
void stop(int) { theStop = 1; }

bool theDump = false;  // print each received PDU's fields too

void printArrival(DtVistralControlInteraction* inter, void*) {
  const DtVistralControlPdu* pdu = inter->vcPdu();
  if (pdu == nullptr) return;
  const DtString viewer = pdu->viewerId();
  std::cout << "received " << DtEmulatorModeName(pdu->viewerCommand()) << " for " << viewer << " from "
            << pdu->senderId() << " (" << pdu->length() << " bytes)\n";
  if (theDump) pdu->printData();
}

// The live view's page: beside the program in a build tree, in the data folder of an install.
std::string livePage(const char* argv0) {
  namespace fs = std::filesystem;
  std::error_code error;
  fs::path program = fs::read_symlink("/proc/self/exe", error);
  if (error) program = fs::absolute(argv0, error);
  const fs::path here = program.parent_path();
  for (const fs::path& page : {here / "liveView.html", here / VISTRAL_PAGE_FROM_PROGRAM / "liveView.html"}) {
    std::ifstream in(page, std::ios::binary);
    if (in) return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
  }
  return {};
}

// After a loss: tries to join again about once a second until it works, the run is stopped, or over() says
// its time is up.
template <class Over>
bool rejoinWhenBack(DtVistralEmulator& emulator, const Over& over) {
  while (theStop == 0 && !over()) {
    if (emulator.rejoin()) return true;
    for (int i = 0; i < 20 && theStop == 0 && !over(); ++i)
      std::this_thread::sleep_for(std::chrono::milliseconds(50));
  }
  return false;
}

bool write(bool ok, const std::string& what, const std::string& path) {
  std::cout << (ok ? "wrote " : "could not write ") << what << " " << path << "\n";
  return ok;
}
}  // namespace

int main(int argc, char** argv) {
  DtCmdLine cmd(
      "vistralEmulator",
      "A headless Vistral viewer: takes control PDUs, answers state requests, writes what it would show.",
      "54.0");
  const int viewer = cmd.addValue("viewer", "t", "NAME", "this viewer's id", "vistral-1");
  const int federation =
      cmd.addValue("federation", "f", "NAME",
                   "the federation execution: " + DtExerciseConn::executionNameForms(), "VistralControl");
  const int fed =
      cmd.addValue("fed", "", "FILE", "the FED file (HLA Evolved: FOM modules, separated by ';')", "");
  const int seconds = cmd.addValue("seconds", "s", "N", "run for N seconds (0: until interrupted)", "0");
  const int svg = cmd.addValue("svg", "", "FILE", "write the picture as SVG on leaving", "");
  const int png = cmd.addValue("png", "", "FILE", "write the picture as PNG on leaving", "");
  const int json = cmd.addValue("json", "", "FILE", "write the state snapshot as JSON on leaving", "");
  const int http =
      cmd.addValue("http", "", "[HOST:]PORT",
                   "serve a live view of the viewer at http://HOST:PORT/ (HOST 127.0.0.1 unless given)", "");
  const int quiet = cmd.addSwitch("quiet", "q", "do not print each PDU received");
  const int dump = cmd.addSwitch("dump", "d", "also print the fields of each PDU received");
  const int rejoin = cmd.addSwitch(
      "rejoin", "",
      "when the RTI's server goes away, keep the viewer's state and join again once it is back");
  if (const int status = cmd.parseForProgram(argc, argv); status >= 0) return status;
  double runFor = 0;
  if (!cmd.number(seconds, 0, HUGE_VAL, false, &runFor)) {
    std::cerr << "PARSE ERROR: '" << cmd.value(seconds) << "' is not a number of seconds\n";
    return 2;
  }
  std::signal(SIGINT, &stop);
  std::signal(SIGTERM, &stop);
  try {
    const char* fedFile = cmd.value(fed).empty() ? nullptr : cmd.value(fed).c_str();
    DtVistralEmulator emulator(cmd.value(federation).c_str(), cmd.value(viewer), fedFile);
    theDump = cmd.isSet(dump);
    std::unique_ptr<DtEmulatorLiveView> live;
    if (!cmd.value(http).empty()) {
      std::string page = livePage(argv[0]);
      if (page.empty()) {
        std::cerr << "the live view's page (liveView.html) is not installed beside the program\n";
        return 1;
      }
      try {
        live = std::make_unique<DtEmulatorLiveView>(cmd.value(http), std::move(page));
      } catch (const std::exception& e) {
        std::cerr << e.what() << "\n";
        return 2;
      }
      emulator.setLiveView(live.get());
      std::cout << "live view at " << live->url() << std::endl;
    }
    if (!cmd.isSet(quiet))
      DtVistralControlInteraction::addCallback(emulator.connection(), &printArrival, nullptr);
    std::cout << "viewer " << cmd.value(viewer) << " joined " << cmd.value(federation) << std::endl;
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::duration<double>(runFor);
    const auto over = [&] { return runFor != 0 && std::chrono::steady_clock::now() >= deadline; };
    // A lost federation ends the run as an interruption would, files written, but the exit status says so;
    // unless asked to rejoin, when only a server that never comes back in time ends it.
    bool lost = false;
    while (theStop == 0 && !over()) {
      try {
        if (emulator.processIncoming() == 0) std::this_thread::sleep_for(std::chrono::milliseconds(1));
      } catch (const DtException& e) {
        if (!emulator.connection()->lost()) throw;
        std::cerr << "viewer " << cmd.value(viewer) << " lost federation " << cmd.value(federation) << ": "
                  << emulator.connection()->lostReason()
                  << (cmd.isSet(rejoin) ? "; joining again once it is back" : "") << std::endl;
        lost = !cmd.isSet(rejoin) || !rejoinWhenBack(emulator, over);
        if (lost) break;
        if (!cmd.isSet(quiet))
          DtVistralControlInteraction::addCallback(emulator.connection(), &printArrival, nullptr);
        std::cout << "viewer " << cmd.value(viewer) << " rejoined " << cmd.value(federation) << std::endl;
      }
    }
    if (!cmd.isSet(quiet) && emulator.connection() != nullptr)
      DtVistralControlInteraction::removeCallback(emulator.connection(), &printArrival, nullptr);
    const DtEmulatorState& state = emulator.state();
    if (live) {
      // The pages show the last state, then hear that the viewer has gone.
      emulator.setLiveView(nullptr);
      live->setInterval(std::chrono::milliseconds(0));
      live->publish(state);
    }
    std::cout << "leaving in " << DtEmulatorModeName(state.view.mode) << " with " << state.objects.size()
              << " objects, " << state.counters.received << " PDUs received, " << state.counters.answered
              << " state reports sent\n";
    bool ok = true;
    if (!cmd.value(svg).empty())
      ok &= write(DtWriteEmulatorPicture(state, cmd.value(svg)), "picture", cmd.value(svg));
    if (!cmd.value(png).empty())
      ok &= write(DtWriteEmulatorPicture(state, cmd.value(png)), "picture", cmd.value(png));
    if (!cmd.value(json).empty())
      ok &= write(DtWriteEmulatorSnapshot(state, cmd.value(json)), "snapshot", cmd.value(json));
    live.reset();
    if (lost) return 3;
    return ok ? 0 : 1;
  } catch (const DtException& e) {
    std::cerr << e.what() << "\n";
    return 1;
  }
}
