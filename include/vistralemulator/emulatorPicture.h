// What the emulated viewer would show, drawn once by one routine onto an SVG or a PNG surface: the 2D overlay
// (screen -100..100 on both axes, y up) with its attribute panels, beside a top-down map of the 3D objects,
// the entities they hang on (drawn symbolically, since the viewer's scene is not emulated) and the eye point
// of the current mode.
#pragma once

#include <string>

#include "vistralemulator/emulatorState.h"
#include "vistralemulator/vistralEmulatorExport.h"

// The picture as SVG text, or as the bytes of a PNG file.
VISTRAL_EMULATOR_EXPORT std::string DtEmulatorPictureSvg(const DtEmulatorState& state);
VISTRAL_EMULATOR_EXPORT std::string DtEmulatorPicturePng(const DtEmulatorState& state);
// Writes the picture as SVG or PNG by the path's extension (".svg", ".png"); false for any other extension or
// when the file cannot be written.
VISTRAL_EMULATOR_EXPORT bool DtWriteEmulatorPicture(const DtEmulatorState& state, const std::string& path);
