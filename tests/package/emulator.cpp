#include <cstdio>

#include "vistralcontrol/orbitVcPdu.h"
#include "vistralemulator/emulatorSnapshot.h"
#include "vistralemulator/vistralEmulator.h"

int main() {
  DtVistralEmulator emulator("vistral-1");
  DtOrbitVCPdu orbit;
  orbit.setViewerId("vistral-1");
  orbit.setRadius(120);
  orbit.setIgnoreFlags(0);
  emulator.apply(orbit);
  std::printf("installed emulator works: %s\n", DtEmulatorModeName(emulator.state().view.mode));
  return emulator.state().view.mode == 5 ? 0 : 1;
}
