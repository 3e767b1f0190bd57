// Two federates on the in-process federation: a controller sends one command of each family as a
// "ViewControl" interaction, and a viewer receives each through its callback and prints it.
#include <cstring>
#include <iostream>
#include <memory>

#include "demoPdus.h"
#include "tarvex/dtExerciseConn.h"
#include "vistralcontrol/hVistralControlInter.h"
#include "vistralcontrol/vistralControlRegister.h"

namespace {
constexpr const char* kExecution = "VistralDemo";

// What the viewer knows of the command in flight, to compare what arrives with what was sent.
struct Viewer {
  const DtVistralControlPdu* sent = nullptr;
  int received = 0;
};

bool sameBytes(const DtPdu& a, const DtPdu& b) {
  return a.length() == b.length() &&
         std::memcmp(a.packet(), b.packet(), static_cast<std::size_t>(a.length())) == 0;
}

void viewerReceived(DtVistralControlInteraction* inter, void* usr) {
  auto* viewer = static_cast<Viewer*>(usr);
  ++viewer->received;
  const DtVistralControlPdu* pdu = inter->vcPdu();
  if (pdu == nullptr) {
    std::cout << "<-- viewer received an interaction without a control PDU\n";
    return;
  }
  std::cout << "<-- viewer received " << DtEnumString(pdu->viewerCommand()) << " (" << pdu->length()
            << " bytes, " << (viewer->sent && sameBytes(*viewer->sent, *pdu) ? "as sent" : "DIFFERENT")
            << ")\n";
  pdu->printData();
  std::cout << "text form: \"" << pdu->string() << "\"\n";
}

void controllerReceived(DtVistralControlInteraction* /*inter*/, void* usr) {
  ++*static_cast<int*>(usr);
}
}  // namespace

int main() {
  DtExerciseConn controller(kExecution, "demo-controller");
  DtExerciseConn viewer(kExecution, "vistral-1");
  DtVistralControlRegister(&controller);
  DtVistralControlRegister(&viewer);

  Viewer seen;
  int heardBack = 0;
  DtVistralControlInteraction::addCallback(&viewer, &viewerReceived, &seen);
  DtVistralControlInteraction::addCallback(&controller, &controllerReceived, &heardBack);

  int sent = 0;
  for (const auto& [title, pdu] : demoPdus("vistral-1", "demo-controller")) {
    std::cout << "\n--> controller sends " << title << " (" << pdu->length() << " bytes)\n";
    DtVistralControlInteraction inter;
    inter.setVcPdu(*pdu);
    if (!controller.sendInteraction(inter)) {
      std::cout << "    not sent: the federation has no ViewControl class\n";
      continue;
    }
    ++sent;
    seen.sent = pdu.get();
    viewer.processIncoming();
  }
  controller.processIncoming();

  std::cout << "\n"
            << sent << " sent, " << seen.received << " received by the viewer, " << heardBack
            << " heard back by the controller\n";
  DtVistralControlInteraction::removeCallback(&viewer, &viewerReceived, &seen);
  DtVistralControlInteraction::removeCallback(&controller, &controllerReceived, &heardBack);
  return seen.received == sent && heardBack == 0 ? 0 : 1;
}
