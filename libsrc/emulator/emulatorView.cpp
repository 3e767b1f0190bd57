// Viewing modes, modeless commands, moves and options as a viewer applies them. Each mode's fields are listed
// once, with the ignore bit that guards each, how to read it from the mode's PDU and how to write it back
// into a report: applying a command and answering a request both walk the same list.
#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "emulatorApply.h"
#include "vistralcontrol/absoluteVcPdu.h"
#include "vistralcontrol/compassVcPdu.h"
#include "vistralcontrol/groupVcPdu.h"
#include "vistralcontrol/mimicTrackVcPdu.h"
#include "vistralcontrol/mimicVcPdu.h"
#include "vistralcontrol/modelessVcPdu.h"
#include "vistralcontrol/moveVcPdu.h"
#include "vistralcontrol/optionsPdu.h"
#include "vistralcontrol/orbitVcPdu.h"
#include "vistralcontrol/pivotVcPdu.h"
#include "vistralcontrol/tetherTrackVcPdu.h"
#include "vistralcontrol/tetherVcPdu.h"
#include "vistralcontrol/trackVcPdu.h"
#include "vistralcontrol/vistralRemoteController.h"

namespace vistralemulator {
namespace {

namespace F = DtEmulatorField;

// Bits of the three-bit vector masks, one per component: x, y, z.
constexpr unsigned long kPositionX = 0x1, kPositionY = 0x2, kPositionZ = 0x4;
constexpr unsigned long kTetherX = 0x40, kTetherY = 0x80, kTetherZ = 0x100;
constexpr unsigned long kAttachX = 0x2000, kAttachY = 0x4000, kAttachZ = 0x8000;
static_assert((kPositionX | kPositionY | kPositionZ) == DtVcIgnore::Position, "position bits");
static_assert((kTetherX | kTetherY | kTetherZ) == DtVcIgnore::TetherOffset, "tether offset bits");
static_assert((kAttachX | kAttachY | kAttachZ) == DtVcIgnore::AttachOffset, "attach offset bits");
// A field without an ignore bit of its own (the group command) is applied with every command of its mode.
constexpr unsigned long kAlways = 0;
// A group holds at most this many entities, whatever counts a PDU states.
constexpr std::size_t kMaxGroup = 4096;

double asNumber(const DtEmulatorValue& value) {
  if (const auto* d = std::get_if<double>(&value)) return *d;
  if (const auto* i = std::get_if<long long>(&value)) return static_cast<double>(*i);
  if (const auto* b = std::get_if<bool>(&value)) return *b ? 1.0 : 0.0;
  return 0.0;
}
std::string asText(const DtEmulatorValue& value) {
  if (const auto* s = std::get_if<std::string>(&value)) return *s;
  return {};
}

struct FieldRule {
  std::string name;
  unsigned long bit;
  DtEmulatorValue (*read)(const DtVistralControlPdu&);
  void (*write)(DtVistralControlPdu&, const DtEmulatorValue&);
};

template <class P, auto Get, auto Set>
FieldRule number(std::string name, unsigned long bit) {
  return {std::move(name), bit,
          [](const DtVistralControlPdu& pdu) -> DtEmulatorValue {
            return static_cast<double>((static_cast<const P&>(pdu).*Get)());
          },
          [](DtVistralControlPdu& pdu, const DtEmulatorValue& v) {
            (static_cast<P&>(pdu).*Set)(static_cast<float>(asNumber(v)));
          }};
}

template <class P, auto Get, auto Set>
FieldRule text(std::string name, unsigned long bit) {
  return {std::move(name), bit,
          [](const DtVistralControlPdu& pdu) -> DtEmulatorValue {
            return std::string((static_cast<const P&>(pdu).*Get)().c_str());
          },
          [](DtVistralControlPdu& pdu, const DtEmulatorValue& v) {
            (static_cast<P&>(pdu).*Set)(DtString(asText(v)));
          }};
}

// Part i of a three-part value: a vector's x, y, z, or the angles psi, theta, phi.
inline double partOf(const DtVector64& v, int i) { return v[i]; }
inline void setPart(DtVector64& v, int i, double value) {
  if (i == 0) v.setX(value);
  if (i == 1) v.setY(value);
  if (i == 2) v.setZ(value);
}
inline double partOf(const DtTaitBryan& a, int i) { return i == 0 ? a.psi() : i == 1 ? a.theta() : a.phi(); }
inline void setPart(DtTaitBryan& a, int i, double value) {
  if (i == 0) a.setPsi(value);
  if (i == 1) a.setTheta(value);
  if (i == 2) a.setPhi(value);
}

// Part I of a vector or angles field as a field of its own; writing it keeps the other two parts.
template <class P, class T, auto Get, auto Set, int I>
FieldRule part(std::string name, unsigned long bit) {
  return {std::move(name), bit,
          [](const DtVistralControlPdu& pdu) -> DtEmulatorValue {
            return partOf(T((static_cast<const P&>(pdu).*Get)()), I);
          },
          [](DtVistralControlPdu& pdu, const DtEmulatorValue& v) {
            auto& p = static_cast<P&>(pdu);
            T value = (p.*Get)();
            setPart(value, I, asNumber(v));
            (p.*Set)(value);
          }};
}

// The three components of a vector field, each under its own bit.
template <class P, auto Get, auto Set>
void vectorFields(std::vector<FieldRule>& out, const char* name, unsigned long x, unsigned long y,
                  unsigned long z) {
  const std::string base = name;
  out.push_back(part<P, DtVector64, Get, Set, 0>(base + F::x, x));
  out.push_back(part<P, DtVector64, Get, Set, 1>(base + F::y, y));
  out.push_back(part<P, DtVector64, Get, Set, 2>(base + F::z, z));
}

// Tait-Bryan angles: psi under the heading bit, theta under pitch, phi under roll.
template <class P, auto Get, auto Set>
void angleFields(std::vector<FieldRule>& out, const char* name) {
  const std::string base = name;
  out.push_back(part<P, DtTaitBryan, Get, Set, 0>(base + F::psi, DtVcIgnore::Heading));
  out.push_back(part<P, DtTaitBryan, Get, Set, 1>(base + F::theta, DtVcIgnore::Pitch));
  out.push_back(part<P, DtTaitBryan, Get, Set, 2>(base + F::phi, DtVcIgnore::Roll));
}

struct ModeRules {
  int command;
  bool (*carries)(const DtVistralControlPdu&);
  std::vector<FieldRule> fields;
};

template <class P>
bool carries(const DtVistralControlPdu& pdu) {
  return dynamic_cast<const P*>(&pdu) != nullptr;
}

// The attached entity and its marking text, under the first entity's bit, in every mode that follows one.
template <class P>
void attachTarget(std::vector<FieldRule>& f) {
  f.push_back(text<P, &P::attachId, &P::setAttachId>(F::attachId, DtVcIgnore::FirstEntity));
  f.push_back(text<P, &P::markingText, &P::setMarkingText>(F::markingText, DtVcIgnore::FirstEntity));
}

template <class P>
void headingPitch(std::vector<FieldRule>& f) {
  f.push_back(number<P, &P::heading, &P::setHeading>(F::heading, DtVcIgnore::Heading));
  f.push_back(number<P, &P::pitch, &P::setPitch>(F::pitch, DtVcIgnore::Pitch));
}

// The heading and pitch offsets of the group and sphere modes, under the group's offset bits.
template <class P>
void groupOffsets(std::vector<FieldRule>& f) {
  f.push_back(
      number<P, &P::headingOffset, &P::setHeadingOffset>(F::headingOffset, DtVcIgnore::GroupHeadingOffset));
  f.push_back(number<P, &P::pitchOffset, &P::setPitchOffset>(F::pitchOffset, DtVcIgnore::GroupPitchOffset));
}

// The sphere modes add the orientation's roll to those offsets.
template <class P>
void sphereOffsets(std::vector<FieldRule>& f) {
  groupOffsets<P>(f);
  f.push_back(number<P, &P::roll, &P::setRoll>(F::roll, DtVcIgnore::Roll));
}

// Compass and pivot open their bodies with the same six fields.
template <class P>
void bodyAngles(std::vector<FieldRule>& f) {
  f.push_back(number<P, &P::radius, &P::setRadius>(F::radius, DtVcIgnore::Radius));
  f.push_back(number<P, &P::bodyHeading, &P::setBodyHeading>(F::bodyHeading, DtVcIgnore::BodyHeading));
  f.push_back(number<P, &P::pitch, &P::setPitch>(F::pitch, DtVcIgnore::Pitch));
  sphereOffsets<P>(f);
}

// Tether-track and mimic-track: ride with one entity, look at another; they differ in their class and in the
// bits their offset stands under.
template <class P>
ModeRules twoEntityRules(int command, unsigned long x, unsigned long y, unsigned long z) {
  ModeRules m{command, &carries<P>, {}};
  m.fields.push_back(text<P, &P::attachId, &P::setAttachId>(F::attachId, DtVcIgnore::FirstEntity));
  m.fields.push_back(text<P, &P::attachMarkingText, &P::setAttachMarkingText>(F::attachMarkingText,
                                                                              DtVcIgnore::FirstEntity));
  m.fields.push_back(text<P, &P::trackId, &P::setTrackId>(F::trackId, DtVcIgnore::SecondEntity));
  m.fields.push_back(
      text<P, &P::trackMarkingText, &P::setTrackMarkingText>(F::trackMarkingText, DtVcIgnore::SecondEntity));
  vectorFields<P, &P::offset, &P::setOffset>(m.fields, F::offset, x, y, z);
  return m;
}

std::vector<ModeRules> buildRules() {
  std::vector<ModeRules> all;
  {
    using P = DtAbsoluteVCPdu;
    ModeRules m{DtVcAbsolute, &carries<P>, {}};
    vectorFields<P, &P::worldLocation, &P::setWorldLocation>(m.fields, F::location, kPositionX, kPositionY,
                                                             kPositionZ);
    angleFields<P, &P::orientation, &P::setOrientation>(m.fields, F::orientation);
    all.push_back(std::move(m));
  }
  {
    using P = DtTetherVCPdu;
    ModeRules m{DtVcTether, &carries<P>, {}};
    attachTarget<P>(m.fields);
    vectorFields<P, &P::topoUpOffset, &P::setTopoUpOffset>(m.fields, F::topoUpOffset, kTetherX, kTetherY,
                                                           kTetherZ);
    angleFields<P, &P::orientation, &P::setOrientation>(m.fields, F::orientation);
    all.push_back(std::move(m));
  }
  {
    using P = DtCompassVCPdu;
    ModeRules m{DtVcCompass, &carries<P>, {}};
    attachTarget<P>(m.fields);
    bodyAngles<P>(m.fields);
    all.push_back(std::move(m));
  }
  for (int command : {int{DtVcMimic}, int{DtVcOffsetMimic}}) {
    using P = DtMimicVCPdu;  // offset mimic is a mimic PDU with its own command
    ModeRules m{command, &carries<P>, {}};
    attachTarget<P>(m.fields);
    vectorFields<P, &P::offset, &P::setOffset>(m.fields, F::offset, kAttachX, kAttachY, kAttachZ);
    angleFields<P, &P::bodyOrientation, &P::setBodyOrientation>(m.fields, F::bodyOrientation);
    all.push_back(std::move(m));
  }
  {
    using P = DtOrbitVCPdu;
    ModeRules m{DtVcOrbit, &carries<P>, {}};
    attachTarget<P>(m.fields);
    m.fields.push_back(number<P, &P::radius, &P::setRadius>(F::radius, DtVcIgnore::Radius));
    m.fields.push_back(
        number<P, &P::azimuthRate, &P::setAzimuthRate>(F::azimuthRate, DtVcIgnore::AzimuthRate));
    headingPitch<P>(m.fields);
    sphereOffsets<P>(m.fields);
    all.push_back(std::move(m));
  }
  {
    using P = DtTrackVCPdu;
    ModeRules m{DtVcTrack, &carries<P>, {}};
    m.fields.push_back(text<P, &P::trackId, &P::setTrackId>(F::trackId, DtVcIgnore::FirstEntity));
    m.fields.push_back(text<P, &P::markingText, &P::setMarkingText>(F::markingText, DtVcIgnore::FirstEntity));
    vectorFields<P, &P::worldLocation, &P::setWorldLocation>(m.fields, F::location, kPositionX, kPositionY,
                                                             kPositionZ);
    all.push_back(std::move(m));
  }
  all.push_back(twoEntityRules<DtTetherTrackVCPdu>(DtVcTetherTrack, kAttachX, kAttachY, kAttachZ));
  // Mimic-track's offset stands under the position bits, unlike the other attach offsets.
  all.push_back(twoEntityRules<DtMimicTrackVCPdu>(DtVcMimicTrack, kPositionX, kPositionY, kPositionZ));
  {
    using P = DtGroupVCPdu;
    ModeRules m{DtVcGroup, &carries<P>, {}};
    m.fields.push_back({F::groupCmd, kAlways,
                        [](const DtVistralControlPdu& pdu) -> DtEmulatorValue {
                          return static_cast<long long>(static_cast<const P&>(pdu).groupCmd());
                        },
                        [](DtVistralControlPdu& pdu, const DtEmulatorValue& v) {
                          static_cast<P&>(pdu).setGroupCmd(static_cast<int>(asNumber(v)));
                        }});
    m.fields.push_back(
        number<P, &P::radialOffset, &P::setRadialOffset>(F::radialOffset, DtVcIgnore::GroupRadialOffset));
    headingPitch<P>(m.fields);
    groupOffsets<P>(m.fields);
    all.push_back(std::move(m));
  }
  {
    using P = DtPivotVCPdu;
    ModeRules m{DtVcPivot, &carries<P>, {}};
    vectorFields<P, &P::pivotPoint, &P::setPivotPoint>(m.fields, F::pivotPoint, kPositionX, kPositionY,
                                                       kPositionZ);
    bodyAngles<P>(m.fields);
    all.push_back(std::move(m));
  }
  return all;
}

const ModeRules* rulesFor(int command) {
  static const std::vector<ModeRules> all = buildRules();
  for (const ModeRules& m : all)
    if (m.command == command) return &m;
  return nullptr;
}

unsigned long flagsOf(const DtVistralControlPdu& pdu) { return pdu.ignoreFlags() & 0xFFFFFFFFUL; }

// Edits the viewed group as a group or modeless PDU's lists say: a remove count of -1 replaces the whole
// group with the entities to add. Entries are read no further than the image reaches, whatever its counts
// say.
template <class P>
void applyLists(DtEmulatorState& state, const P& pdu) {
  std::vector<std::string>& group = state.view.group;
  if (pdu.numEntitiesToRemove() == -1) {
    group.clear();
  } else {
    for (int i = 0, n = pdu.entitiesToRemoveInImage(); i < n; ++i) {
      const std::string name = pdu.entityToRemove(i).c_str();
      group.erase(std::remove(group.begin(), group.end(), name), group.end());
    }
  }
  for (int i = 0, n = pdu.entitiesToAddInImage(); i < n && group.size() < kMaxGroup; ++i) {
    std::string name = pdu.entityToAdd(i).c_str();
    if (std::find(group.begin(), group.end(), name) == group.end()) group.push_back(std::move(name));
  }
}

}  // namespace

bool isMode(int command) { return command != DtVcModeless && rulesFor(command) != nullptr; }

bool applyMode(DtEmulatorState& state, const DtVistralControlPdu& pdu) {
  const ModeRules* rules = rulesFor(pdu.viewerCommand());
  if (rules == nullptr || !rules->carries(pdu)) return false;
  state.view.mode = rules->command;
  DtEmulatorModeState& mode = state.view.modes[rules->command];
  const unsigned long flags = flagsOf(pdu);
  for (const FieldRule& field : rules->fields)
    if ((flags & field.bit) == 0) mode.fields[field.name] = field.read(pdu);
  if (const auto* group = dynamic_cast<const DtGroupVCPdu*>(&pdu)) applyLists(state, *group);
  return true;
}

void applyModeless(DtEmulatorState& state, const DtModelessVCPdu& pdu) {
  const unsigned long flags = flagsOf(pdu);
  if ((flags & DtVcIgnore::FirstEntity) == 0) state.view.primary = pdu.primary().c_str();
  if ((flags & DtVcIgnore::SecondEntity) == 0) state.view.secondary = pdu.secondary().c_str();
  if ((flags & DtVcIgnore::GroupLists) == 0) applyLists(state, pdu);
}

void applyMove(DtEmulatorState& state, const DtMoveVCPdu& pdu) {
  DtEmulatorEye& eye = state.view.eye;
  if (pdu.reset()) {
    const int resets = eye.resets + 1;
    eye = DtEmulatorEye{};
    eye.resets = resets;
  }
  const unsigned long flags = flagsOf(pdu);
  const DtVector64 position = pdu.position();
  const DtTaitBryan orientation = pdu.orientation();
  static const std::string kPosition[3] = {std::string(F::position) + F::x, std::string(F::position) + F::y,
                                           std::string(F::position) + F::z};
  static const std::string kOrientation[3] = {std::string(F::orientation) + F::psi,
                                              std::string(F::orientation) + F::theta,
                                              std::string(F::orientation) + F::phi};
  const unsigned long positionBits[3] = {kPositionX, kPositionY, kPositionZ};
  const unsigned long angleBits[3] = {DtVcIgnore::Heading, DtVcIgnore::Pitch, DtVcIgnore::Roll};
  for (int i = 0; i < 3; ++i) {
    if ((flags & positionBits[i]) == 0) eye.fields[kPosition[i]] = position[i];
    if ((flags & angleBits[i]) == 0) eye.fields[kOrientation[i]] = partOf(orientation, i);
  }
  if ((flags & DtVcIgnore::Step) == 0) {
    ++eye.steps;
    eye.lastMove = pdu.move();
    eye.lastTurn = pdu.turn();
  }
}

std::unique_ptr<DtVistralControlPdu> modeReport(const DtEmulatorState& state) {
  const ModeRules* rules = rulesFor(state.view.mode);
  std::unique_ptr<DtVistralControlPdu> report(
      DtNewViewControlPdu(static_cast<DtViewerCommand>(state.view.mode)));
  if (rules == nullptr || report == nullptr || !rules->carries(*report)) return nullptr;
  static const DtEmulatorModeState kNothingGiven;
  const auto found = state.view.modes.find(rules->command);
  const DtEmulatorModeState& mode = found == state.view.modes.end() ? kNothingGiven : found->second;
  unsigned long unknown = 0;
  for (const FieldRule& field : rules->fields) {
    const auto value = mode.fields.find(field.name);
    if (value != mode.fields.end()) {
      field.write(*report, value->second);
    } else {
      unknown |= field.bit;
    }
  }
  if (auto* group = dynamic_cast<DtGroupVCPdu*>(report.get())) {
    const auto& members = state.view.group;
    group->setNumEntitiesToRemove(0);
    group->setNumEntitiesToAdd(static_cast<int>(members.size()));
    for (std::size_t i = 0; i < members.size(); ++i)
      group->setEntityToAdd(static_cast<int>(i), DtString(members[i]));
  }
  report->setIgnoreFlags(unknown);
  report->setStatusCommand(true);
  return report;
}

// ---- options ---------------------------------------------------------------------------------------------

namespace {
struct OptionRule {
  int option;
  const char* name;
  DtEmulatorValue (*read)(const DtOptionsPdu&);
};

const char* videoCaptureName(int command) {
  static const char* const kNames[] = {"stop", "pause", "unpause", "record"};
  return command >= 0 && command < 4 ? kNames[command] : "unknown";
}

#define VISTRAL_OPTION(option, name, expression)                                      \
  OptionRule {                                                                        \
    option, name, [](const DtOptionsPdu& p) -> DtEmulatorValue { return expression; } \
  }
#define VISTRAL_FLAG(option, name, getter) VISTRAL_OPTION(option, name, bool(p.getter()))
#define VISTRAL_NUMBER(option, name, getter) VISTRAL_OPTION(option, name, static_cast<double>(p.getter()))
#define VISTRAL_TEXT(option, name, getter) VISTRAL_OPTION(option, name, std::string(p.getter().c_str()))

using O = DtOptionsPdu;
const OptionRule kOptions[] = {
    VISTRAL_OPTION(DtVistralOverlay, "overlay", std::string(DtEnumString(p.overlay()))),
    VISTRAL_NUMBER(DtVistralLocatorRange, "locatorRange", locatorRange),
    VISTRAL_OPTION(DtVistralSmoothing, "smoothing", std::string(DtEnumString(p.smoothing()))),
    VISTRAL_NUMBER(DtVistralSmoothingPeriod, "smoothingPeriod", smoothingPeriod),
    VISTRAL_FLAG(DtVistralSound, "sound", sound),
    VISTRAL_FLAG(DtVistralEntityLabels, "entityLabels", entityLabels),
    VISTRAL_FLAG(DtVistralTrailingEffects, "trailingEffects", trailingEffects),
    VISTRAL_FLAG(DtVistralTrajectoryHistory, "trajectoryHistory", trajectoryHistory),
    VISTRAL_FLAG(DtVistralRecording, "recording", recording),
    VISTRAL_OPTION(DtVistralAggregateLevel, "aggregateLevel", static_cast<long long>(p.aggregateLevel())),
    VISTRAL_FLAG(DtVistralAggregateHighestOnly, "aggregateHighestOnly", aggregateHighestOnly),
    VISTRAL_FLAG(DtVistralAggregatesAltitudeControlled, "aggregatesAltitudeControlled",
                 aggregatesAltitudeControlled),
    VISTRAL_FLAG(DtVistralNestedAggregates, "nestedAggregates", nestedAggregates),
    VISTRAL_FLAG(DtVistralNestedEntities, "nestedEntities", nestedEntities),
    VISTRAL_FLAG(DtVistralGroundClamping, "groundClamping", groundClamping),
    VISTRAL_NUMBER(DtVistralClampRange, "clampRange", clampRange),
    VISTRAL_FLAG(DtVistralFollowGround, "followGround", followGround),
    VISTRAL_FLAG(DtVistralConstrainWithFloor, "constrainWithFloor", constrainWithFloor),
    VISTRAL_NUMBER(DtVistralFloor, "floor", floor),
    VISTRAL_NUMBER(DtVistralTimeOfDay, "timeOfDay", timeOfDay),
    VISTRAL_NUMBER(DtVistralNearClip, "nearClip", nearClip),
    VISTRAL_NUMBER(DtVistralFarClip, "farClip", farClip),
    VISTRAL_NUMBER(DtVistralFov, "fov", fov),
    VISTRAL_FLAG(DtVistralFog, "fog", fog),
    VISTRAL_NUMBER(DtVistralNearFog, "nearFog", nearFog),
    VISTRAL_NUMBER(DtVistralFarFog, "farFog", farFog),
    VISTRAL_FLAG(DtVistralTexture, "texture", texture),
    VISTRAL_TEXT(DtVistralDatabaseToLoad, "databaseToLoad", databaseToLoad),
    VISTRAL_NUMBER(O::DtVistralStepsize, "stepsize", stepsize),
    VISTRAL_NUMBER(O::DtVistralTurnrate, "turnrate", turnrate),
    VISTRAL_TEXT(O::DtVistralDate, "date", date),
    VISTRAL_FLAG(O::DtVistralXREnabled, "xrEnabled", xrEnabled),
    VISTRAL_FLAG(O::DtVistralHATenabled, "hatLabels", hatEnabled),
    VISTRAL_TEXT(O::DtVistralSetCurrentModelSet, "currentModelSet", currentModelSet),
    VISTRAL_TEXT(O::DtVistralSetCurrentTextureSet, "currentTextureSet", currentTextureSet),
    VISTRAL_NUMBER(O::DtVistralTerrainScale, "terrainScale", terrainScale),
    VISTRAL_NUMBER(O::DtVistralObjectScale, "objectScale", objectScale),
    VISTRAL_FLAG(O::DtVistralClouds, "clouds", clouds),
    VISTRAL_FLAG(O::DtVistralSkyDome, "skyDome", skyDome),
    VISTRAL_FLAG(O::DtVistralMirroring, "mirroring", mirroring),
    VISTRAL_FLAG(O::DtVistralMirrorMessageEveryFrame, "mirrorMessageEveryFrame", mirrorMessageEveryFrame),
    VISTRAL_FLAG(O::DtVistralBroadcasting, "broadcasting", broadcasting),
    VISTRAL_FLAG(O::DtVistralClusteringLabels, "clusteringLabels", clusteringLabels),
    VISTRAL_FLAG(O::DtVistralTacticalGraphicsLabels, "tacticalGraphicsLabels", tacticalGraphicsLabels),
    VISTRAL_FLAG(O::DtVistralTacticalGraphics, "tacticalGraphics", tacticalGraphics),
    VISTRAL_FLAG(O::DtVistralShowAggregates, "showAggregates", showAggregates),
    VISTRAL_FLAG(O::DtVistralShowEmitters, "showEmitters", showEmitters),
    VISTRAL_OPTION(O::DtVistralVideoCaptureCommand, "videoCapture",
                   std::string(videoCaptureName(p.videoCaptureCommand()))),
    VISTRAL_TEXT(O::DtVistralVideoCaptureFilename, "videoCaptureFilename", videoCaptureFilename),
    VISTRAL_TEXT(O::DtVistralVideoCaptureDirectory, "videoCaptureDirectory", videoCaptureDirectory),
    VISTRAL_TEXT(O::DtVistralVideoCaptureFilenameBase, "videoCaptureFilenameBase", videoCaptureFilenameBase),
    VISTRAL_FLAG(O::DtVistralVideoCaptureRecordInsets, "videoCaptureRecordInsets", videoCaptureRecordInsets),
    VISTRAL_OPTION(O::DtVistralVideoCaptureFramesPerSecond, "videoCaptureFramesPerSecond",
                   static_cast<long long>(p.videoCaptureFramesPerSecond())),
    VISTRAL_FLAG(O::DtVistralConstrainToAll, "constrainToAll", constrainedToAll),
    VISTRAL_NUMBER(O::DtVistralBlockedDistance, "blockedDistance", blockedDistance),
    VISTRAL_FLAG(O::DtVistralUseNearClipForBlockedDistance, "useNearClipForBlockedDistance",
                 useNearClipForBlockedDistance),
    VISTRAL_TEXT(O::DtVistralFeatureFilename, "featureFilename", featureFilename),
    VISTRAL_OPTION(O::DtVistralFeatureCommand, "featureCommand",
                   std::string(p.featureCommand() == DtVistralControlFeatureLoad    ? "load"
                               : p.featureCommand() == DtVistralControlFeatureClear ? "clear"
                                                                                    : "unknown")),
};

#undef VISTRAL_TEXT
#undef VISTRAL_NUMBER
#undef VISTRAL_FLAG
#undef VISTRAL_OPTION

// One-shot actions: the viewer counts how often each was asked for.
struct ActionRule {
  int option;
  const char* name;
};
const ActionRule kActions[] = {
    {O::DtVistralIncStepsize, "incrementStepsize"},
    {O::DtVistralIncTurnrate, "incrementTurnrate"},
    {O::DtVistralDecStepsize, "decrementStepsize"},
    {O::DtVistralDecTurnrate, "decrementTurnrate"},
    {O::DtVistralNextModelSet, "nextModelSet"},
    {O::DtVistralPrevModelSet, "previousModelSet"},
    {O::DtVistralNextTextureSet, "nextTextureSet"},
    {O::DtVistralPrevTextureSet, "previousTextureSet"},
    {O::DtVistralExit, "exit"},
};
}  // namespace

void applyOptions(DtEmulatorState& state, const DtOptionsPdu& pdu) {
  for (const OptionRule& rule : kOptions)
    if (pdu.optionPresent(static_cast<DtVistralOption>(rule.option)))
      state.options[rule.name] = rule.read(pdu);
  for (const ActionRule& rule : kActions) {
    if (!pdu.optionPresent(static_cast<DtVistralOption>(rule.option))) continue;
    DtEmulatorValue& count = state.options[rule.name];
    const long long* before = std::get_if<long long>(&count);
    count = (before ? *before : 0) + 1;
  }
}

}  // namespace vistralemulator
