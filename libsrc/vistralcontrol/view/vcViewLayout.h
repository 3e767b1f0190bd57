// Wire layouts of the view-control bodies and of the options PDU, behind the fixed part that every control
// PDU shares. Every offset is stated here once; the accessors, text forms and dumps read them from here.
#pragma once

#include "core/vcLayout.h"

namespace VcLayout {

struct Absolute {
  static constexpr int location = 160;               // 3 x f64; 156..159 padding
  static constexpr int orientation = location + 24;  // 3 x f32 psi, theta, phi
  static constexpr int length = orientation + 12;
};
static_assert(Absolute::length == 196, "absolute PDU is 196 bytes");

struct Move {
  static constexpr int turn = 156;                   // u8
  static constexpr int move = 157;                   // u8
  static constexpr int reset = 158;                  // u8; 159 padding
  static constexpr int position = 160;               // 3 x f64
  static constexpr int orientation = position + 24;  // 3 x f64 psi, theta, phi
  static constexpr int length = orientation + 24;
};
static_assert(Move::length == 208, "move PDU is 208 bytes");

// Orbit, compass and pivot: six or seven angles and distances as f32, then the attach target or the point.
// The six f32 fields that open the compass and pivot bodies at the same offsets.
struct BodyAngles {
  static constexpr int radius = 156;
  static constexpr int bodyHeading = 160;
  static constexpr int pitch = 164;
  static constexpr int headingOffset = 168;
  static constexpr int pitchOffset = 172;
  static constexpr int roll = 176;
  static constexpr int end = roll + 4;
};

struct Compass : BodyAngles {
  static constexpr int attachId = end;
  static constexpr int markingText = attachId + kNameWidth;
  static constexpr int length = markingText + kNameWidth;
};
static_assert(Compass::length == 308, "compass PDU is 308 bytes");

struct Orbit {
  static constexpr int radius = 156;
  static constexpr int azimuthRate = 160;
  static constexpr int heading = 164;
  static constexpr int pitch = 168;
  static constexpr int headingOffset = 172;
  static constexpr int pitchOffset = 176;
  static constexpr int roll = 180;
  static constexpr int attachId = 184;
  static constexpr int markingText = attachId + kNameWidth;
  static constexpr int length = markingText + kNameWidth;
};
static_assert(Orbit::length == 312, "orbit PDU is 312 bytes");

struct Pivot : BodyAngles {
  static constexpr int pivotPoint = end;  // 3 x f64, packed: not aligned to eight
  static constexpr int length = pivotPoint + 24;
};
static_assert(Pivot::length == 204, "pivot PDU is 204 bytes");

// Tether, mimic and offset mimic share one layout.
struct Tether {
  static constexpr int offset = 156;       // 3 x f32
  static constexpr int orientation = 168;  // 3 x f32 psi, theta, phi
  static constexpr int attachId = 180;
  static constexpr int markingText = attachId + kNameWidth;
  static constexpr int length = markingText + kNameWidth;
};
static_assert(Tether::length == 308, "tether and mimic PDUs are 308 bytes");

struct Track {
  static constexpr int worldLocation = 160;  // 3 x f64; 156..159 padding
  static constexpr int trackId = worldLocation + 24;
  static constexpr int markingText = trackId + kNameWidth;
  static constexpr int length = markingText + kNameWidth;
};
static_assert(Track::length == 312, "track PDU is 312 bytes");

// Tether-track and mimic-track: ride with one entity, look at another.
struct TwoEntity {
  static constexpr int offset = 156;  // 3 x f32
  static constexpr int attachId = 168;
  static constexpr int trackId = attachId + kNameWidth;
  static constexpr int attachMarkingText = trackId + kNameWidth;
  static constexpr int trackMarkingText = attachMarkingText + kNameWidth;
  static constexpr int length = trackMarkingText + kNameWidth;
};
static_assert(TwoEntity::length == 424, "tether-track and mimic-track PDUs are 424 bytes");

// Where the two entity lists of group and modeless PDUs keep their counts and where the lists begin; the
// remove list comes first, the add list right behind it, 64 bytes per entry.
struct EntityLists {
  int removeCount;
  int addCount;
  int listStart;
};

struct Group {
  static constexpr int radialOffset = 156;
  static constexpr int heading = 160;
  static constexpr int pitch = 164;
  static constexpr int headingOffset = 168;
  static constexpr int pitchOffset = 172;
  static constexpr int groupCmd = 176;  // u32
  static constexpr EntityLists lists{180, 184, 188};
  static constexpr int length = lists.listStart;  // with empty lists
};
static_assert(Group::length == 188, "empty group PDU is 188 bytes");

struct Modeless {
  static constexpr int primary = 156;
  static constexpr int secondary = primary + kNameWidth;
  static constexpr EntityLists lists{secondary + kNameWidth, secondary + kNameWidth + 4,
                                     secondary + kNameWidth + 8};
  static constexpr int length = lists.listStart;  // with empty lists
};
static_assert(Modeless::length == 292, "empty modeless PDU is 292 bytes");

// The viewer options PDU. Every option's value has a fixed place whether its presence bit is set or not.
struct Options {
  static constexpr int bitfield = 152;  // presence of options 0..63, least significant bit first
  static constexpr int bitfieldWidth = 8;
  static constexpr int locatorRange = 160;  // f64 values
  static constexpr int smoothingPeriod = 168;
  static constexpr int clampRange = 176;
  static constexpr int floor = 184;
  static constexpr int timeOfDay = 192;
  static constexpr int nearClip = 200;
  static constexpr int farClip = 208;
  static constexpr int fov = 216;
  static constexpr int nearFog = 224;
  static constexpr int farFog = 232;
  static constexpr int overlay = 240;  // u32 values
  static constexpr int smoothing = 244;
  static constexpr int aggregateLevel = 248;
  // 252..253 reserved; one byte per flag from 254
  static constexpr int xrEnabled = 254;
  static constexpr int hatEnabled = 255;
  static constexpr int sound = 256;
  static constexpr int entityLabels = 257;
  static constexpr int trailingEffects = 258;
  static constexpr int trajectoryHistory = 259;
  static constexpr int recording = 260;
  static constexpr int aggregateHighestOnly = 261;
  static constexpr int aggregatesAltitudeControlled = 262;
  static constexpr int nestedAggregates = 263;
  static constexpr int nestedEntities = 264;
  static constexpr int groundClamping = 265;
  static constexpr int followGround = 266;
  static constexpr int constrainWithFloor = 267;
  static constexpr int fog = 268;
  static constexpr int texture = 269;
  // 270..271 reserved
  static constexpr int databaseToLoad = 272;
  static constexpr int databaseToLoadWidth = 256;
  static constexpr int date = databaseToLoad + databaseToLoadWidth;  // 528
  static constexpr int dateWidth = 64;
  static constexpr int turnrate = date + dateWidth;  // 592, f32
  static constexpr int stepsize = 596;               // f32
  static constexpr int currentModelSet = 600;
  static constexpr int setNameWidth = 32;
  static constexpr int currentTextureSet = currentModelSet + setNameWidth;  // 632
  static constexpr int terrainScale = currentTextureSet + setNameWidth;     // 664, f32
  static constexpr int objectScale = 668;                                   // f32
  static constexpr int skyDome = 672;                                       // one byte per flag
  static constexpr int clouds = 673;
  static constexpr int mirroring = 674;
  static constexpr int mirrorMessageEveryFrame = 675;
  static constexpr int broadcasting = 676;
  static constexpr int clusteringLabels = 677;
  static constexpr int tacticalGraphicsLabels = 678;
  static constexpr int tacticalGraphics = 679;
  static constexpr int showAggregates = 680;
  static constexpr int showEmitters = 681;
  static constexpr int videoCaptureCommand = 682;          // u8
  static constexpr int videoCaptureRecordInsets = 683;     // u8 flag
  static constexpr int videoCaptureFramesPerSecond = 684;  // u16; 686..687 reserved
  static constexpr int videoCaptureFilename = 688;
  static constexpr int pathWidth = 256;
  static constexpr int videoCaptureDirectory = videoCaptureFilename + pathWidth;      // 944
  static constexpr int videoCaptureFilenameBase = videoCaptureDirectory + pathWidth;  // 1200
  static constexpr int filenameBaseWidth = 64;
  static constexpr int blockedDistance = videoCaptureFilenameBase + filenameBaseWidth;  // 1264, f64
  static constexpr int constrainToAll = 1272;                                           // u8 flag
  static constexpr int useNearClipForBlockedDistance = 1273;                            // u8 flag
  static constexpr int bitfield2 = 1274;  // presence of options 64 and up; only in PDUs longer than this
  static constexpr int featureFilename = bitfield2 + bitfieldWidth;   // 1282
  static constexpr int featureCommand = featureFilename + pathWidth;  // 1538, u8
  static constexpr int length = featureCommand + 1;
};
static_assert(Options::turnrate == 592 && Options::terrainScale == 664, "options texts and scales");
static_assert(Options::videoCaptureDirectory == 944 && Options::blockedDistance == 1264,
              "video capture block");
static_assert(Options::featureFilename == 1282 && Options::featureCommand == 1538, "feature block");
static_assert(Options::length == 1539, "options PDU is 1539 bytes");

}  // namespace VcLayout
