// Viewer display settings that the toolkit names: how much on-screen overlay a viewer draws, and how it
// smooths the motion of the entities it shows. Both travel as unsigned 32-bit numbers; any number read from
// the wire is a valid value of the type.
#pragma once

#include "tarvex/tarvexExport.h"

// How much on-screen overlay the viewer draws.
enum DtOverlayOption : int {
  DtOverlayNone = 0,
  DtOverlayMinimal = 1,
  DtOverlayFull = 2,
};

// How the viewer smooths the motion of the entities it shows.
enum DtSmoothingOption : int {
  DtSmoothingOff = 0,
  DtSmoothingLinear = 1,
  DtSmoothingCubic = 2,
};

// The value's name without its "Dt" prefix ("OverlayFull", "SmoothingLinear"), or "UnknownEnum".
TARVEX_EXPORT const char* DtEnumString(DtOverlayOption option);
TARVEX_EXPORT const char* DtEnumString(DtSmoothingOption option);
