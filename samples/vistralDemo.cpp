// The main demo, on the in-process federation or, when asked, on any network a connection can join (DIS, an
// RTI of either HLA edition). The viewer is the headless viewer emulator throughout.
//
//   vistralDemo [--federation NAME] [--viewer-federation NAME] [OUTDIR]
//
// Over DIS by unicast, the two sides need a port each, so the viewer's name is the other way round:
//   vistralDemo --federation "dis://127.0.0.1:3000?listen=3001" --viewer-federation
//   "dis://127.0.0.1:3001?listen=3000"
// By multicast, one name serves both: vistralDemo --federation "dis://239.1.2.3:3000?interface=127.0.0.1".
//
// Step 1: one command of each family travels as a "ViewControl" interaction from a controller federate to the
// viewer, which prints what arrives.
// Step 2: a remote controller steers the viewer through each viewing mode and asks it, after each, which mode
// it is in; the viewer answers with the status form of its mode and the parameters it keeps, which reach the
// controller's callback.
// Step 3: a remote drawer draws a scene of drawing objects into the viewer, changes, layers, hides and shows
// them; with the scene drawn, the viewer writes what it would show (vistralDemo.svg, vistralDemo.png) and its
// whole state (vistralDemo.json) into the directory given as the first argument (default: the current one);
// then the drawer goes and takes the scene away.
// A federation lost on the way (an RTI server gone) ends the demo with a message and status 3.
#include <cstring>
#include <iostream>
#include <memory>
#include <string>

#include "demoDelivery.h"
#include "demoDrawing.h"
#include "demoPdus.h"
#include "tarvex/dtCmdLine.h"
#include "tarvex/dtException.h"
#include "tarvex/dtExerciseConn.h"
#include "vistralcontrol/hVistralControlInter.h"
#include "vistralcontrol/vistralControlRegister.h"
#include "vistralcontrol/vistralRemoteController.h"
#include "vistralemulator/emulatorPicture.h"
#include "vistralemulator/emulatorSnapshot.h"
#include "vistralemulator/vistralEmulator.h"

namespace {
std::string theExecution = "VistralDemo";  // the application's side
constexpr const char* kViewer = "vistral-1";
constexpr const char* kController = "demo-controller";

// Which federation was lost and why, said by the first connection to find it; empty while joined.
std::string theLoss;

void noteLoss(DtExerciseConn* conn, void*) {
  if (theLoss.empty())
    theLoss =
        conn->executionName().str() + " as " + conn->federateName().str() + ": " + conn->lostReason().str();
}

// Every connection of the demo tells of a loss.
void watch(DtExerciseConn& conn) { conn.addLostCallback(&noteLoss, nullptr); }

bool sameBytes(const DtPdu& a, const DtPdu& b) {
  return a.length() == b.length() &&
         std::memcmp(a.packet(), b.packet(), static_cast<std::size_t>(a.length())) == 0;
}

// ---- Step 1 ----------------------------------------------------------------------------------------------

struct Inbox {
  const DtVistralControlPdu* sent = nullptr;
  int received = 0;
};

void printArrival(DtVistralControlInteraction* inter, void* usr) {
  auto* inbox = static_cast<Inbox*>(usr);
  ++inbox->received;
  const DtVistralControlPdu* pdu = inter->vcPdu();
  if (pdu == nullptr) {
    std::cout << "<-- viewer received an interaction without a control PDU\n";
    return;
  }
  std::cout << "<-- viewer received " << DtEnumString(pdu->viewerCommand()) << " (" << pdu->length()
            << " bytes, " << (inbox->sent && sameBytes(*inbox->sent, *pdu) ? "as sent" : "DIFFERENT")
            << ")\n";
  pdu->printData();
  std::cout << "text form: \"" << pdu->string() << "\"\n";
}

bool everyFamily(DtVistralEmulator& emulator) {
  std::cout << "===== Step 1: one command of each family, sent and received =====\n";
  DtExerciseConn controller(theExecution.c_str(), kController);
  DtVistralControlRegister(&controller);
  watch(controller);
  DtExerciseConn& viewer = *emulator.connection();
  Inbox inbox;
  DtVistralControlInteraction::addCallback(&viewer, &printArrival, &inbox);

  int sent = 0;
  for (const auto& [title, pdu] : demoPdus(kViewer, kController)) {
    std::cout << "\n--> controller sends " << title << " (" << pdu->length() << " bytes)\n";
    DtVistralControlInteraction inter;
    inter.setVcPdu(*pdu);
    if (!controller.sendInteraction(inter)) continue;
    ++sent;
    inbox.sent = pdu.get();
    deliverUntil([&] { return inbox.received == sent; }, {&viewer});
  }
  DtVistralControlInteraction::removeCallback(&viewer, &printArrival, &inbox);
  std::cout << "\n" << sent << " sent, " << inbox.received << " received by the viewer\n";
  return sent > 0 && inbox.received == sent;
}

// ---- Step 2 ----------------------------------------------------------------------------------------------

void heardReport(const DtVistralControlPdu& pdu, void* usr) {
  ++*static_cast<int*>(usr);
  std::cout << "   controller heard: " << pdu.senderId() << " reports " << DtEnumString(pdu.viewerCommand())
            << " \"" << pdu.string() << "\"\n";
}

bool steeringSession(DtVistralEmulator& viewer) {
  std::cout << "\n===== Step 2: a remote controller steers a viewer and hears it back =====\n";
  DtExerciseConn conn(theExecution.c_str(), kController);
  DtVistralControlRegister(&conn);
  watch(conn);
  DtVistralRemoteController controller(&conn, kViewer);
  controller.setControllerId(kController);
  // Every request must be answered; on a shared network other viewers of the same id answer too.
  int reports = 0, answered = 0;
  controller.addViewModeChangeCallback(&heardReport, &reports, DtVistralRemoteController::SEND_TO_ALL);

  const DtString tank("1:3001:12 Tank"), truck("1:3002:5");
  const DtVector64 location(-2476512.25, -4665431.5, 3588000.75), offset(0, -30, 8);
  const DtTaitBryan look(1.5, -0.2, 0);
  const float radius = 120, heading = 0.5f, pitch = -0.3f, rate = 0.1f;
  const DtGlobalObjectDesignatorList group{"1:3001:12", "1:3001:13", "1:3002:5"};

  // The viewer takes the command, then the request (one sender's interactions arrive in order), and answers.
  const auto step = [&](const char* what, auto&& command) {
    std::cout << "\n--> " << what << "\n";
    const int before = reports;
    command();
    controller.requestCurrentViewMode(kViewer);
    if (deliverUntil([&] { return reports > before; }, {viewer.connection(), &conn})) ++answered;
  };
  step("absolute mode", [&] { controller.setAbsoluteMode(&location, &look); });
  step("tether mode", [&] { controller.setTetherMode(&tank, &offset, &look); });
  step("compass mode", [&] { controller.setCompassMode(&tank, &radius, &heading, &pitch); });
  step("mimic mode", [&] { controller.setMimicMode(&tank, &offset); });
  step("offset mimic (turret) mode", [&] { controller.setTurretMode(&tank, &offset); });
  step("orbit mode", [&] { controller.setOrbitMode(&tank, &radius, &heading, &pitch, &rate); });
  step("track mode", [&] { controller.setTrackMode(&truck, &location); });
  step("tether-track mode", [&] { controller.setTetherTrackMode(&tank, &truck, &offset); });
  step("mimic-track mode", [&] { controller.setMimicTrackMode(&tank, &truck, &offset); });
  step("group mode", [&] { controller.setGroupMode(&group, &radius, &heading, &pitch); });
  step("pivot mode", [&] { controller.setPivotMode(&location, &radius, &heading, &pitch); });
  step("back to orbit, keeping its parameters", [&] { controller.setMode(DtVcOrbit, nullptr, nullptr); });
  step("fog on and a new time of day", [&] {
    controller.setFogEnabled(true);
    controller.setTimeOfDay(18.25);
  });

  std::cout << "\n" << reports << " mode reports heard by the controller\n";
  return answered == 13;
}

// ---- Step 3 ----------------------------------------------------------------------------------------------

bool drawingSession(DtVistralEmulator& viewer, const std::string& outDir) {
  std::cout << "\n===== Step 3: a remote drawer draws, changes, layers and removes a scene; what the viewer "
               "shows =====\n";
  // Orbit the entity the scene hangs on, so that the map shows the eye there.
  DtExerciseConn conn(theExecution.c_str(), kController);
  DtVistralControlRegister(&conn);
  watch(conn);
  DtVistralRemoteController controller(&conn, kViewer);
  controller.setControllerId(kController);
  const DtString lead("1:3001:12");
  const float radius = 150, heading = 0.8f;
  controller.setOrbitMode(&lead, &radius, &heading, nullptr, nullptr);
  deliverUntil([&] { return viewer.state().view.mode == DtVcOrbit; }, {viewer.connection()});

  bool written = false;
  const auto writeWhatTheViewerShows = [&] {
    const DtEmulatorState& state = viewer.state();
    int shown = 0;
    for (const auto& entry : state.objects) shown += state.shown(entry.second) ? 1 : 0;
    std::cout << "\n--> the viewer holds " << state.objects.size() << " objects, " << shown
              << " of them shown, and is in " << DtEmulatorModeName(state.view.mode) << "\n";
    written = true;
    for (const char* name : {"vistralDemo.svg", "vistralDemo.png"}) {
      const std::string path = outDir + "/" + name;
      const bool ok = DtWriteEmulatorPicture(state, path);
      std::cout << (ok ? "wrote " : "could not write ") << path << "\n";
      written = written && ok;
    }
    const std::string json = outDir + "/vistralDemo.json";
    const bool ok = DtWriteEmulatorSnapshot(state, json);
    std::cout << (ok ? "wrote " : "could not write ") << json << "\n";
    written = written && ok;
  };
  const bool received = drawingScene(*viewer.connection(), conn, writeWhatTheViewerShows);
  return received && written;
}
}  // namespace

int main(int argc, char** argv) {
  DtCmdLine cmd("vistralDemo", "The vistral control demo: a controller and a drawer steer a headless viewer.",
                "54.0");
  const int federation = cmd.addValue("federation", "f", "NAME",
                                      "the application's federation: the process's own (any name), "
                                      "dis://HOST:PORT[?OPTIONS] for DIS over UDP, or an RTI's name "
                                      "(HLA 1.3 or, hla1516e..., HLA Evolved)",
                                      theExecution);
  const int viewerFederation =
      cmd.addValue("viewer-federation", "", "NAME", "the viewer's (default: the application's)", "");
  cmd.setPositionalHelp("[OUTDIR]", "where the pictures and the snapshot go (default: here)");
  if (const int status = cmd.parseForProgram(argc, argv); status >= 0) return status;
  const std::string outDir = cmd.positionals().empty() ? "." : cmd.positionals()[0];
  theExecution = cmd.value(federation);
  const std::string viewerExecution =
      cmd.value(viewerFederation).empty() ? theExecution : cmd.value(viewerFederation);
  try {
    DtVistralEmulator viewer(viewerExecution.c_str(), kViewer);
    watch(*viewer.connection());
    const bool families = everyFamily(viewer);
    const bool session = steeringSession(viewer);
    const bool drawing = drawingSession(viewer, outDir);
    const DtEmulatorState& state = viewer.state();
    std::cout << "\nthe viewer took " << state.counters.received << " PDUs and sent "
              << state.counters.answered << " reports\n";
    return families && session && drawing ? 0 : 1;
  } catch (const DtException& e) {
    if (theLoss.empty()) {
      std::cerr << e.what() << "\n";
      return 1;
    }
    std::cerr << "vistralDemo: lost federation " << theLoss << "\n";
    return 3;
  }
}
