// Builds one command of each family, prints it and its text form, and reads its bytes back as a receiver
// would.
#include <cstring>
#include <iostream>
#include <memory>

#include "demoPdus.h"

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
  for (const auto& [title, pdu] : demoPdus("vistral-1", "demo-controller")) show(title, *pdu);
  return 0;
}
