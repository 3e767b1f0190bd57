#include "vistralemulator/emulatorState.h"

#include "vistralcontrol/vistralDrawControlPdu.h"

bool DtEmulatorState::shown(const DtEmulatorObject& object) const {
  if (!object.visible) return false;
  for (const std::uint32_t layer : object.layers) {
    const auto found = objects.find(layer);
    if (found != objects.end() && found->second.type == DtVdcLayer && !found->second.visible) return false;
  }
  return true;
}
