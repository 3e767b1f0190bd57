// The emulator's whole state as JSON: the current mode with its parameters and those every other mode kept,
// the options, the group and eye point, each drawn object with its last PDU, and the panel layouts.
#pragma once

#include <string>

#include "vistralemulator/emulatorState.h"
#include "vistralemulator/vistralEmulatorExport.h"

// Indented JSON text. Texts from the wire that are not valid UTF-8 have their bad bytes replaced.
VISTRAL_EMULATOR_EXPORT std::string DtEmulatorSnapshotJson(const DtEmulatorState& state);
// Writes that text to a file; false when the file cannot be written.
VISTRAL_EMULATOR_EXPORT bool DtWriteEmulatorSnapshot(const DtEmulatorState& state, const std::string& path);
// The name of a viewer command ("VcOrbit") or of a draw-object kind ("line", "area", ...).
VISTRAL_EMULATOR_EXPORT const char* DtEmulatorModeName(int command);
VISTRAL_EMULATOR_EXPORT const char* DtEmulatorKindName(int viewerCommand);
