// Builds an absolute and a move command, prints them, and reads their bytes back as a receiver would.
#include <cstring>
#include <iostream>
#include <memory>

#include "tarvex/dtMessage.h"
#include "vistralcontrol/absoluteVcPdu.h"
#include "vistralcontrol/moveVcPdu.h"

namespace {
bool sameBytes(const DtPdu& a, const DtPdu& b) {
  return a.length() == b.length() && std::memcmp(a.packet(), b.packet(), static_cast<std::size_t>(a.length())) == 0;
}

void show(const char* title, const DtVistralControlPdu& sent) {
  std::cout << "\n=== " << title << " (" << sent.length() << " bytes) ===\n";
  sent.printData();
  std::cout << "text form: \"" << sent.string() << "\"\n";

  std::unique_ptr<DtPdu> received(
      DtVistralControlPdu::createFromNet(reinterpret_cast<const DtNetPduHeader*>(sent.packet()), nullptr, nullptr));
  const auto* pdu = dynamic_cast<const DtVistralControlPdu*>(received.get());
  std::cout << "received as " << (pdu ? DtEnumString(pdu->viewerCommand()) : "nothing") << ": "
            << (pdu && sameBytes(sent, *pdu) && std::strcmp(pdu->string(), sent.string()) == 0 ? "equal" : "DIFFERENT")
            << '\n';
}
}  // namespace

int main() {
  DtAbsoluteVCPdu absolute;
  absolute.setViewerId("vistral-1");
  absolute.setSenderId("demo-controller");
  absolute.setWorldLocation(DtVector64(-2476512.25, -4665431.5, 3588000.75));
  absolute.setOrientation(DtTaitBryan(1.5, -0.25, 0.0));
  absolute.setIgnoreFlags(0);
  show("absolute mode", absolute);

  DtMoveVCPdu move;
  move.setViewerId("vistral-1");
  move.setSenderId("demo-controller");
  move.setFromString("1 4 1.5 2 3");
  move.setIgnoreFlags(0xFEFFFFFF);
  show("move", move);
  return 0;
}
