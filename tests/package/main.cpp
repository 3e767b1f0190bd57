#include <cstdio>

#include "vistralcontrol/absoluteVcPdu.h"

int main() {
  DtAbsoluteVCPdu pdu;
  pdu.setWorldLocation(DtVector64(1, 2, 3));
  std::printf("installed package works: %d-byte absolute PDU, \"%s\"\n", pdu.length(), pdu.string());
  return pdu.length() == 196 ? 0 : 1;
}
