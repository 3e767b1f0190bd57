// The options PDU's rows: every option's presence bit, the place and form of its value and its dump label,
// stated once for the PDU's accessors, its dump and the tools that show its traffic.
#pragma once

#include <iterator>

#include "vcViewLayout.h"
#include "vistralcontrol/optionsPdu.h"

namespace VcLayout {

using O = DtOptionsPdu;

// How a value travels and how the dump shows it.
enum class OptionKind { Overlay, Smoothing, F64, F32, U32, U16, Flag, Text, Action, VideoCapture, Feature };

// One option: its presence bit, the place of its value, how it reads, its dump label and, for a text, the
// width of its field. Actions carry no value and have no place; their label is the whole dump line.
struct OptionRow {
  DtVistralOption option;
  int offset;
  OptionKind kind;
  const char* label;
  int width;
};

// Every option once, in the order the dump lists them. The accessors and the dump read from here.
constexpr OptionRow kOptionRows[] = {
    {DtVistralOverlay, Options::overlay, OptionKind::Overlay, "Overlay:", 0},
    {DtVistralLocatorRange, Options::locatorRange, OptionKind::F64, "LocatorRange:", 0},
    {DtVistralSmoothing, Options::smoothing, OptionKind::Smoothing, "Smoothing:", 0},
    {DtVistralSmoothingPeriod, Options::smoothingPeriod, OptionKind::F64, "SmoothingPeriod:", 0},
    {DtVistralSound, Options::sound, OptionKind::Flag, "Sound:", 0},
    {DtVistralEntityLabels, Options::entityLabels, OptionKind::Flag, "EntityLabels:", 0},
    {DtVistralTrailingEffects, Options::trailingEffects, OptionKind::Flag, "TrailingEffects:", 0},
    {DtVistralTrajectoryHistory, Options::trajectoryHistory, OptionKind::Flag, "TrajectoryHistory:", 0},
    {DtVistralRecording, Options::recording, OptionKind::Flag, "Recording:", 0},
    {O::DtVistralShowAggregates, Options::showAggregates, OptionKind::Flag, "Show Aggregates:", 0},
    {DtVistralAggregateLevel, Options::aggregateLevel, OptionKind::U32, "AggregateLevel", 0},
    {DtVistralAggregateHighestOnly, Options::aggregateHighestOnly, OptionKind::Flag,
     "AggregateHighestOnly:", 0},
    {DtVistralAggregatesAltitudeControlled, Options::aggregatesAltitudeControlled, OptionKind::Flag,
     "AggregatesAltitudeControlled:", 0},
    {DtVistralNestedAggregates, Options::nestedAggregates, OptionKind::Flag, "NestedAggregates:", 0},
    {DtVistralNestedEntities, Options::nestedEntities, OptionKind::Flag, "NestedEntities:", 0},
    {DtVistralGroundClamping, Options::groundClamping, OptionKind::Flag, "GroundClamping:", 0},
    {DtVistralClampRange, Options::clampRange, OptionKind::F64, "ClampRange:", 0},
    {DtVistralFollowGround, Options::followGround, OptionKind::Flag, "FollowGround:", 0},
    {DtVistralConstrainWithFloor, Options::constrainWithFloor, OptionKind::Flag, "ConstrainWithFloor:", 0},
    {DtVistralFloor, Options::floor, OptionKind::F64, "Floor:", 0},
    {DtVistralTimeOfDay, Options::timeOfDay, OptionKind::F64, "TimeOfDay:", 0},
    {DtVistralNearClip, Options::nearClip, OptionKind::F64, "NearClip:", 0},
    {DtVistralFarClip, Options::farClip, OptionKind::F64, "FarClip:", 0},
    {DtVistralFov, Options::fov, OptionKind::F64, "Fov:", 0},
    {DtVistralFog, Options::fog, OptionKind::Flag, "Fog:", 0},
    {DtVistralNearFog, Options::nearFog, OptionKind::F64, "NearFog:", 0},
    {DtVistralFarFog, Options::farFog, OptionKind::F64, "FarFog:", 0},
    {DtVistralTexture, Options::texture, OptionKind::Flag, "Texture:", 0},
    {DtVistralDatabaseToLoad, Options::databaseToLoad, OptionKind::Text,
     "DatabaseToLoad:", Options::databaseToLoadWidth},
    {O::DtVistralDate, Options::date, OptionKind::Text, "Date:", Options::dateWidth},
    {O::DtVistralTurnrate, Options::turnrate, OptionKind::F32, "Turn rate:", 0},
    {O::DtVistralStepsize, Options::stepsize, OptionKind::F32, "Step size:", 0},
    {O::DtVistralIncStepsize, 0, OptionKind::Action, "Increment stepsize\n", 0},
    {O::DtVistralDecStepsize, 0, OptionKind::Action, "Decrement stepsize\n", 0},
    {O::DtVistralIncTurnrate, 0, OptionKind::Action, "Increment turnrate\n", 0},
    {O::DtVistralDecTurnrate, 0, OptionKind::Action, "Decrement turnrate\n", 0},
    {O::DtVistralXREnabled, Options::xrEnabled, OptionKind::Flag, "XR enabled:", 0},
    {O::DtVistralHATenabled, Options::hatEnabled, OptionKind::Flag, "HAT labels enabled:", 0},
    {O::DtVistralNextModelSet, 0, OptionKind::Action, "Cycle to next model set.\n", 0},
    // The previous model set prints under the texture-set text; receivers' logs are matched against it.
    {O::DtVistralPrevModelSet, 0, OptionKind::Action, "Cycle to previous texture set.\n", 0},
    {O::DtVistralSetCurrentModelSet, Options::currentModelSet, OptionKind::Text,
     "Current model set:", Options::setNameWidth},
    {O::DtVistralNextTextureSet, 0, OptionKind::Action, "Cycle to next texture set.\n", 0},
    {O::DtVistralPrevTextureSet, 0, OptionKind::Action, "Cycle to previous texture set.\n", 0},
    {O::DtVistralSetCurrentTextureSet, Options::currentTextureSet, OptionKind::Text,
     "Current texture set:", Options::setNameWidth},
    {O::DtVistralTerrainScale, Options::terrainScale, OptionKind::F32, "Terrain scale:", 0},
    {O::DtVistralObjectScale, Options::objectScale, OptionKind::F32, "Object scale:", 0},
    {O::DtVistralExit, 0, OptionKind::Action, "Exit vistral.\n", 0},
    {O::DtVistralSkyDome, Options::skyDome, OptionKind::Flag, "Sky Dome:", 0},
    {O::DtVistralClouds, Options::clouds, OptionKind::Flag, "Clouds:", 0},
    {O::DtVistralMirroring, Options::mirroring, OptionKind::Flag, "Mirroring:", 0},
    {O::DtVistralMirrorMessageEveryFrame, Options::mirrorMessageEveryFrame, OptionKind::Flag,
     "MirrorMessageEveryFrame:", 0},
    {O::DtVistralBroadcasting, Options::broadcasting, OptionKind::Flag, "Broadcasting:", 0},
    {O::DtVistralClusteringLabels, Options::clusteringLabels, OptionKind::Flag, "Clustering Labels:", 0},
    {O::DtVistralTacticalGraphicsLabels, Options::tacticalGraphicsLabels, OptionKind::Flag,
     "Tactical Graphics Labels:", 0},
    {O::DtVistralTacticalGraphics, Options::tacticalGraphics, OptionKind::Flag, "Tactical Graphics:", 0},
    {O::DtVistralShowEmitters, Options::showEmitters, OptionKind::Flag, "Show Emitters:", 0},
    {O::DtVistralVideoCaptureCommand, Options::videoCaptureCommand, OptionKind::VideoCapture,
     "Video Capture Command: ", 0},
    {O::DtVistralVideoCaptureFilename, Options::videoCaptureFilename, OptionKind::Text,
     "Video Capture Filename:", Options::pathWidth},
    {O::DtVistralVideoCaptureDirectory, Options::videoCaptureDirectory, OptionKind::Text,
     "Video Capture Directory:", Options::pathWidth},
    {O::DtVistralVideoCaptureFilenameBase, Options::videoCaptureFilenameBase, OptionKind::Text,
     "Video Capture Filename Base:", Options::filenameBaseWidth},
    {O::DtVistralVideoCaptureRecordInsets, Options::videoCaptureRecordInsets, OptionKind::Flag,
     "Video Capture Record Insets:", 0},
    {O::DtVistralVideoCaptureFramesPerSecond, Options::videoCaptureFramesPerSecond, OptionKind::U16,
     "Video Capture FPS:", 0},
    {O::DtVistralConstrainToAll, Options::constrainToAll, OptionKind::Flag, "Constrained To All:", 0},
    {O::DtVistralBlockedDistance, Options::blockedDistance, OptionKind::F64, "Blocked Distance:", 0},
    {O::DtVistralUseNearClipForBlockedDistance, Options::useNearClipForBlockedDistance, OptionKind::Flag,
     "Use Near Clip For Blocked Distance:", 0},
    {O::DtVistralFeatureFilename, Options::featureFilename, OptionKind::Text,
     "Feature Filename:", Options::pathWidth},
    {O::DtVistralFeatureCommand, Options::featureCommand, OptionKind::Feature, "Feature Command: ", 0},
};
static_assert(std::size(kOptionRows) == 67, "every option has a row");

// The texts of the video-capture and feature commands, by value.
constexpr const char* kVideoCaptureTexts[] = {"Stop\n", "Pause\n", "Unpause\n", "Record\n"};
constexpr const char* kFeatureTexts[] = {"Load Features\n", "Clear Features\n"};

}  // namespace VcLayout
