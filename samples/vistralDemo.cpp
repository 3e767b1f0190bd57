// The main demo, on the in-process federation.
//
// Part 1: one command of each family travels as a "ViewControl" interaction from a controller federate to a
// viewer federate, which prints what arrives.
// Part 2: a remote controller steers a stand-in viewer through each viewing mode and asks it, after each,
// which mode it is in; the stand-in answers with the status form of its mode, which reaches the controller's
// callback.
#include <cstring>
#include <iostream>
#include <memory>

#include "demoDrawing.h"
#include "demoPdus.h"
#include "tarvex/dtExerciseConn.h"
#include "vistralcontrol/hVistralControlInter.h"
#include "vistralcontrol/vistralControlRegister.h"
#include "vistralcontrol/vistralRemoteController.h"

namespace {
constexpr const char* kExecution = "VistralDemo";
constexpr const char* kViewer = "vistral-1";
constexpr const char* kController = "demo-controller";

bool sameBytes(const DtPdu& a, const DtPdu& b) {
  return a.length() == b.length() &&
         std::memcmp(a.packet(), b.packet(), static_cast<std::size_t>(a.length())) == 0;
}

// ---- Part 1 ----------------------------------------------------------------------------------------------

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

bool everyFamily() {
  std::cout << "===== Part 1: one command of each family, sent and received =====\n";
  DtExerciseConn controller(kExecution, kController);
  DtExerciseConn viewer(kExecution, kViewer);
  DtVistralControlRegister(&controller);
  DtVistralControlRegister(&viewer);
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
    viewer.processIncoming();
  }
  DtVistralControlInteraction::removeCallback(&viewer, &printArrival, &inbox);
  std::cout << "\n" << sent << " sent, " << inbox.received << " received by the viewer\n";
  return sent > 0 && inbox.received == sent;
}

// ---- Part 2 ----------------------------------------------------------------------------------------------

// Stands in for a viewer: follows mode commands, and answers a request for its state with the status form
// of its current mode.
class StandInViewer {
 public:
  explicit StandInViewer(const char* name) : conn_(kExecution, name), name_(name) {
    DtVistralControlRegister(&conn_);
    DtVistralControlInteraction::addCallback(&conn_, &StandInViewer::received, this);
  }
  ~StandInViewer() { DtVistralControlInteraction::removeCallback(&conn_, &StandInViewer::received, this); }
  void run() { conn_.processIncoming(); }

 private:
  static void received(DtVistralControlInteraction* inter, void* usr) {
    auto* self = static_cast<StandInViewer*>(usr);
    const DtVistralControlPdu* pdu = inter->vcPdu();
    if (pdu == nullptr || pdu->viewerId() != self->name_) return;
    const DtViewerCommand command = pdu->viewerCommand();
    if (command == DtVcRequestState) {
      self->answer();
    } else if (command <= DtVcPivot && command != DtVcModeless && command != DtVcOptions) {
      // Keep the mode command as it came: its image is the report to give back.
      self->mode_.reset(static_cast<DtVistralControlPdu*>(DtVistralControlPdu::create(
          reinterpret_cast<const DtNetPduHeader*>(pdu->packet()), nullptr, nullptr)));
      std::cout << "   viewer " << self->name_ << ": now in " << DtEnumString(command) << " \""
                << pdu->string() << "\", ignore flags " << std::hex << (pdu->ignoreFlags() & 0xFFFFFFFFUL)
                << std::dec << "\n";
    } else {
      std::cout << "   viewer " << self->name_ << ": " << DtEnumString(command) << "\n";
    }
  }

  void answer() {
    if (!mode_) return;
    mode_->setStatusCommand(true);
    mode_->setViewerId(name_);
    mode_->setSenderId(name_);
    DtVistralControlInteraction report;
    report.setVcPdu(*mode_);
    if (!conn_.sendInteraction(report)) std::cerr << name_.c_str() << ": cannot report the view mode\n";
    mode_->setStatusCommand(false);
  }

  DtExerciseConn conn_;
  DtString name_;
  std::unique_ptr<DtVistralControlPdu> mode_;
};

void heardReport(const DtVistralControlPdu& pdu, void* usr) {
  ++*static_cast<int*>(usr);
  std::cout << "   controller heard: " << pdu.senderId() << " reports " << DtEnumString(pdu.viewerCommand())
            << " \"" << pdu.string() << "\"\n";
}

bool steeringSession() {
  std::cout << "\n===== Part 2: a remote controller steers a viewer and hears it back =====\n";
  StandInViewer viewer(kViewer);
  DtExerciseConn conn(kExecution, kController);
  DtVistralControlRegister(&conn);
  DtVistralRemoteController controller(&conn, kViewer);
  controller.setControllerId(kController);
  int reports = 0;
  controller.addViewModeChangeCallback(&heardReport, &reports, DtVistralRemoteController::SEND_TO_ALL);

  const DtString tank("1:3001:12 Tank"), truck("1:3002:5");
  const DtVector64 location(-2476512.25, -4665431.5, 3588000.75), offset(0, -30, 8);
  const DtTaitBryan look(1.5, -0.2, 0);
  const float radius = 120, heading = 0.5f, pitch = -0.3f, rate = 0.1f;
  const DtGlobalObjectDesignatorList group{"1:3001:12", "1:3001:13", "1:3002:5"};

  const auto step = [&](const char* what, auto&& command) {
    std::cout << "\n--> " << what << "\n";
    command();
    viewer.run();
    controller.requestCurrentViewMode(kViewer);
    viewer.run();
    conn.processIncoming();
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
  return reports == 13;
}
}  // namespace

int main() {
  const bool families = everyFamily();
  const bool session = steeringSession();
  const bool drawing = drawingScene();
  return families && session && drawing ? 0 : 1;
}
