#include "tarvex/dtViewerCommand.h"

#include <algorithm>
#include <iterator>

namespace {
struct CommandName {
  int value;
  const char* text;
};

// Sorted by value.
constexpr CommandName kNames[] = {
    {DtVcAbsolute, "VcAbsolute"},
    {DtVcTether, "VcTether"},
    {DtVcCompass, "VcCompass"},
    {DtVcMimic, "VcMimic"},
    {DtVcOffsetMimic, "VcOffsetMimic"},
    {DtVcOrbit, "VcOrbit"},
    {DtVcTrack, "VcTrack"},
    {DtVcTetherTrack, "VcTetherTrack"},
    {DtVcMimicTrack, "VcMimicTrack"},
    {DtVcGroup, "VcGroup"},
    {DtVcModeless, "VcModeless"},
    {DtVcOptions, "VcOptions"},
    {DtVcPivot, "VcPivot"},
    {DtVcMove, "VcMove"},
    {DtVcRequestState, "VcRequestState"},
    {DtVcAbsoluteStatus, "VcAbsoluteStatus"},
    {DtVcTetherStatus, "VcTetherStatus"},
    {DtVcCompassStatus, "VcCompassStatus"},
    {DtVcMimicStatus, "VcMimicStatus"},
    {DtVcOffsetMimicStatus, "VcOffsetMimicStatus"},
    {DtVcOrbitStatus, "VcOrbitStatus"},
    {DtVcTrackStatus, "VcTrackStatus"},
    {DtVcTetherTrackStatus, "VcTetherTrackStatus"},
    {DtVcMimicTrackStatus, "VcMimicTrackStatus"},
    {DtVcGroupStatus, "VcGroupStatus"},
    {DtVcModelessStatus, "VcModelessStatus"},
    {DtVcPivotStatus, "VcPivotStatus"},
    {DtVcDrawCommand, "VcDrawCommand"},
    {DtVcDrawLine, "VcDrawLine"},
    {DtVcDrawSegmentedLine, "VcDrawSegmentedLine"},
    {DtVcDrawPolyObject, "VcDrawPolyObject"},
    {DtVcDrawTriangle, "VcDrawTriangle"},
    {DtVcDrawArea, "VcDrawArea"},
    {DtVcDrawText, "VcDrawText"},
    {DtVcDrawAttribute, "VcDrawAttribute"},
    {DtVcDrawAttributeUpdate, "VcDrawAttributeUpdate"},
    {DtVcDrawLayer, "VcDrawLayer"},
};
}  // namespace

const char* DtEnumString(DtViewerCommand command) {
  const auto* it = std::lower_bound(std::begin(kNames), std::end(kNames), static_cast<int>(command),
                                    [](const CommandName& n, int v) { return n.value < v; });
  return it != std::end(kNames) && it->value == command ? it->text : "UnknownEnum";
}
