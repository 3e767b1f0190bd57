// Viewer command numbers carried in every control PDU. Numbers 0 to 14 are view, option and request commands,
// 500 and above their status forms (command + 500), 2510 to 2590 the draw commands. The underlying type is
// fixed so that any 16-bit number read from the wire is a valid value of the type.
#pragma once

#include "tarvex/tarvexExport.h"

// A viewer command number; DtEnumString names it ("VcOrbit").
enum DtViewerCommand : int {
  DtVcAbsolute = 0,
  DtVcTether = 1,
  DtVcCompass = 2,
  DtVcMimic = 3,
  DtVcOffsetMimic = 4,
  DtVcOrbit = 5,
  DtVcTrack = 6,
  DtVcTetherTrack = 7,
  DtVcMimicTrack = 8,
  DtVcGroup = 9,
  DtVcModeless = 10,
  DtVcOptions = 11,
  DtVcPivot = 12,
  DtVcMove = 13,
  DtVcRequestState = 14,

  DtVcAbsoluteStatus = 500,
  DtVcTetherStatus = 501,
  DtVcCompassStatus = 502,
  DtVcMimicStatus = 503,
  DtVcOffsetMimicStatus = 504,
  DtVcOrbitStatus = 505,
  DtVcTrackStatus = 506,
  DtVcTetherTrackStatus = 507,
  DtVcMimicTrackStatus = 508,
  DtVcGroupStatus = 509,
  DtVcModelessStatus = 510,
  DtVcPivotStatus = 512,

  DtVcDrawCommand = 2510,
  DtVcDrawLine = 2520,
  DtVcDrawSegmentedLine = 2530,
  DtVcDrawPolyObject = 2540,
  DtVcDrawTriangle = 2550,
  DtVcDrawArea = 2553,
  DtVcDrawText = 2560,
  DtVcDrawAttribute = 2570,
  DtVcDrawAttributeUpdate = 2580,
  DtVcDrawLayer = 2590,
};

// The command's name without its "Dt" prefix ("VcOrbit", "VcOrbitStatus", "VcDrawLine"), or "UnknownEnum".
TARVEX_EXPORT const char* DtEnumString(DtViewerCommand command);
