#include "vistralcontrol/optionsPdu.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <string>
#include <vector>

#include "tarvex/dtDump.h"
#include "tarvex/dtWire.h"
#include "vcLayout.h"

using VcLayout::Options;
using O = DtOptionsPdu;

namespace {
// An option with the place of its value: each pairing of presence bit and field is stated here once, and the
// accessors and the dump read it from here. Actions have no field; texts have a width.
struct Field {
  DtVistralOption option;
  int offset;
  int width;
};

constexpr Field kOverlay{DtVistralOverlay, Options::overlay, 4};
constexpr Field kLocatorRange{DtVistralLocatorRange, Options::locatorRange, 8};
constexpr Field kSmoothing{DtVistralSmoothing, Options::smoothing, 4};
constexpr Field kSmoothingPeriod{DtVistralSmoothingPeriod, Options::smoothingPeriod, 8};
constexpr Field kSound{DtVistralSound, Options::sound, 1};
constexpr Field kEntityLabels{DtVistralEntityLabels, Options::entityLabels, 1};
constexpr Field kTrailingEffects{DtVistralTrailingEffects, Options::trailingEffects, 1};
constexpr Field kTrajectoryHistory{DtVistralTrajectoryHistory, Options::trajectoryHistory, 1};
constexpr Field kRecording{DtVistralRecording, Options::recording, 1};
constexpr Field kAggregateLevel{DtVistralAggregateLevel, Options::aggregateLevel, 4};
constexpr Field kAggregateHighestOnly{DtVistralAggregateHighestOnly, Options::aggregateHighestOnly, 1};
constexpr Field kAggregatesAltitudeControlled{DtVistralAggregatesAltitudeControlled,
                                              Options::aggregatesAltitudeControlled, 1};
constexpr Field kNestedAggregates{DtVistralNestedAggregates, Options::nestedAggregates, 1};
constexpr Field kNestedEntities{DtVistralNestedEntities, Options::nestedEntities, 1};
constexpr Field kGroundClamping{DtVistralGroundClamping, Options::groundClamping, 1};
constexpr Field kClampRange{DtVistralClampRange, Options::clampRange, 8};
constexpr Field kFollowGround{DtVistralFollowGround, Options::followGround, 1};
constexpr Field kConstrainWithFloor{DtVistralConstrainWithFloor, Options::constrainWithFloor, 1};
constexpr Field kFloor{DtVistralFloor, Options::floor, 8};
constexpr Field kTimeOfDay{DtVistralTimeOfDay, Options::timeOfDay, 8};
constexpr Field kNearClip{DtVistralNearClip, Options::nearClip, 8};
constexpr Field kFarClip{DtVistralFarClip, Options::farClip, 8};
constexpr Field kFov{DtVistralFov, Options::fov, 8};
constexpr Field kFog{DtVistralFog, Options::fog, 1};
constexpr Field kNearFog{DtVistralNearFog, Options::nearFog, 8};
constexpr Field kFarFog{DtVistralFarFog, Options::farFog, 8};
constexpr Field kTexture{DtVistralTexture, Options::texture, 1};
constexpr Field kDatabaseToLoad{DtVistralDatabaseToLoad, Options::databaseToLoad,
                                Options::databaseToLoadWidth};
constexpr Field kStepsize{O::DtVistralStepsize, Options::stepsize, 4};
constexpr Field kTurnrate{O::DtVistralTurnrate, Options::turnrate, 4};
constexpr Field kDate{O::DtVistralDate, Options::date, Options::dateWidth};
constexpr Field kIncStepsize{O::DtVistralIncStepsize, 0, 0};
constexpr Field kIncTurnrate{O::DtVistralIncTurnrate, 0, 0};
constexpr Field kDecStepsize{O::DtVistralDecStepsize, 0, 0};
constexpr Field kDecTurnrate{O::DtVistralDecTurnrate, 0, 0};
constexpr Field kXREnabled{O::DtVistralXREnabled, Options::xrEnabled, 1};
constexpr Field kHATenabled{O::DtVistralHATenabled, Options::hatEnabled, 1};
constexpr Field kNextModelSet{O::DtVistralNextModelSet, 0, 0};
constexpr Field kPrevModelSet{O::DtVistralPrevModelSet, 0, 0};
constexpr Field kCurrentModelSet{O::DtVistralSetCurrentModelSet, Options::currentModelSet,
                                 Options::setNameWidth};
constexpr Field kPrevTextureSet{O::DtVistralPrevTextureSet, 0, 0};
constexpr Field kNextTextureSet{O::DtVistralNextTextureSet, 0, 0};
constexpr Field kCurrentTextureSet{O::DtVistralSetCurrentTextureSet, Options::currentTextureSet,
                                   Options::setNameWidth};
constexpr Field kTerrainScale{O::DtVistralTerrainScale, Options::terrainScale, 4};
constexpr Field kObjectScale{O::DtVistralObjectScale, Options::objectScale, 4};
constexpr Field kClouds{O::DtVistralClouds, Options::clouds, 1};
constexpr Field kSkyDome{O::DtVistralSkyDome, Options::skyDome, 1};
constexpr Field kExit{O::DtVistralExit, 0, 0};
constexpr Field kMirroring{O::DtVistralMirroring, Options::mirroring, 1};
constexpr Field kMirrorMessageEveryFrame{O::DtVistralMirrorMessageEveryFrame,
                                         Options::mirrorMessageEveryFrame, 1};
constexpr Field kBroadcasting{O::DtVistralBroadcasting, Options::broadcasting, 1};
constexpr Field kClusteringLabels{O::DtVistralClusteringLabels, Options::clusteringLabels, 1};
constexpr Field kTacticalGraphicsLabels{O::DtVistralTacticalGraphicsLabels, Options::tacticalGraphicsLabels,
                                        1};
constexpr Field kTacticalGraphics{O::DtVistralTacticalGraphics, Options::tacticalGraphics, 1};
constexpr Field kShowAggregates{O::DtVistralShowAggregates, Options::showAggregates, 1};
constexpr Field kShowEmitters{O::DtVistralShowEmitters, Options::showEmitters, 1};
constexpr Field kVideoCaptureCommand{O::DtVistralVideoCaptureCommand, Options::videoCaptureCommand, 1};
constexpr Field kVideoCaptureFilename{O::DtVistralVideoCaptureFilename, Options::videoCaptureFilename,
                                      Options::pathWidth};
constexpr Field kVideoCaptureDirectory{O::DtVistralVideoCaptureDirectory, Options::videoCaptureDirectory,
                                       Options::pathWidth};
constexpr Field kVideoCaptureFilenameBase{O::DtVistralVideoCaptureFilenameBase,
                                          Options::videoCaptureFilenameBase, Options::filenameBaseWidth};
constexpr Field kVideoCaptureRecordInsets{O::DtVistralVideoCaptureRecordInsets,
                                          Options::videoCaptureRecordInsets, 1};
constexpr Field kVideoCaptureFramesPerSecond{O::DtVistralVideoCaptureFramesPerSecond,
                                             Options::videoCaptureFramesPerSecond, 2};
constexpr Field kConstrainToAll{O::DtVistralConstrainToAll, Options::constrainToAll, 1};
constexpr Field kBlockedDistance{O::DtVistralBlockedDistance, Options::blockedDistance, 8};
constexpr Field kUseNearClipForBlockedDistance{O::DtVistralUseNearClipForBlockedDistance,
                                               Options::useNearClipForBlockedDistance, 1};
constexpr Field kFeatureFilename{O::DtVistralFeatureFilename, Options::featureFilename, Options::pathWidth};
constexpr Field kFeatureCommand{O::DtVistralFeatureCommand, Options::featureCommand, 1};

// How the dump shows a value.
enum class Kind { Overlay, Smoothing, F64, F32, U32, U16, Flag, Text, Action, VideoCapture, Feature };

struct DumpRow {
  const Field* field;
  Kind kind;
  const char* label;  // for actions, the whole line
};

// Every option in the order the dump lists them, with its label.
constexpr DumpRow kDump[] = {
    {&kOverlay, Kind::Overlay, "Overlay:"},
    {&kLocatorRange, Kind::F64, "LocatorRange:"},
    {&kSmoothing, Kind::Smoothing, "Smoothing:"},
    {&kSmoothingPeriod, Kind::F64, "SmoothingPeriod:"},
    {&kSound, Kind::Flag, "Sound:"},
    {&kEntityLabels, Kind::Flag, "EntityLabels:"},
    {&kTrailingEffects, Kind::Flag, "TrailingEffects:"},
    {&kTrajectoryHistory, Kind::Flag, "TrajectoryHistory:"},
    {&kRecording, Kind::Flag, "Recording:"},
    {&kShowAggregates, Kind::Flag, "Show Aggregates:"},
    {&kAggregateLevel, Kind::U32, "AggregateLevel"},
    {&kAggregateHighestOnly, Kind::Flag, "AggregateHighestOnly:"},
    {&kAggregatesAltitudeControlled, Kind::Flag, "AggregatesAltitudeControlled:"},
    {&kNestedAggregates, Kind::Flag, "NestedAggregates:"},
    {&kNestedEntities, Kind::Flag, "NestedEntities:"},
    {&kGroundClamping, Kind::Flag, "GroundClamping:"},
    {&kClampRange, Kind::F64, "ClampRange:"},
    {&kFollowGround, Kind::Flag, "FollowGround:"},
    {&kConstrainWithFloor, Kind::Flag, "ConstrainWithFloor:"},
    {&kFloor, Kind::F64, "Floor:"},
    {&kTimeOfDay, Kind::F64, "TimeOfDay:"},
    {&kNearClip, Kind::F64, "NearClip:"},
    {&kFarClip, Kind::F64, "FarClip:"},
    {&kFov, Kind::F64, "Fov:"},
    {&kFog, Kind::Flag, "Fog:"},
    {&kNearFog, Kind::F64, "NearFog:"},
    {&kFarFog, Kind::F64, "FarFog:"},
    {&kTexture, Kind::Flag, "Texture:"},
    {&kDatabaseToLoad, Kind::Text, "DatabaseToLoad:"},
    {&kDate, Kind::Text, "Date:"},
    {&kTurnrate, Kind::F32, "Turn rate:"},
    {&kStepsize, Kind::F32, "Step size:"},
    {&kIncStepsize, Kind::Action, "Increment stepsize\n"},
    {&kDecStepsize, Kind::Action, "Decrement stepsize\n"},
    {&kIncTurnrate, Kind::Action, "Increment turnrate\n"},
    {&kDecTurnrate, Kind::Action, "Decrement turnrate\n"},
    {&kXREnabled, Kind::Flag, "XR enabled:"},
    {&kHATenabled, Kind::Flag, "HAT labels enabled:"},
    {&kNextModelSet, Kind::Action, "Cycle to next model set.\n"},
    // The previous model set prints under the texture-set text; receivers' logs are matched against it.
    {&kPrevModelSet, Kind::Action, "Cycle to previous texture set.\n"},
    {&kCurrentModelSet, Kind::Text, "Current model set:"},
    {&kNextTextureSet, Kind::Action, "Cycle to next texture set.\n"},
    {&kPrevTextureSet, Kind::Action, "Cycle to previous texture set.\n"},
    {&kCurrentTextureSet, Kind::Text, "Current texture set:"},
    {&kTerrainScale, Kind::F32, "Terrain scale:"},
    {&kObjectScale, Kind::F32, "Object scale:"},
    {&kExit, Kind::Action, "Exit vistral.\n"},
    {&kSkyDome, Kind::Flag, "Sky Dome:"},
    {&kClouds, Kind::Flag, "Clouds:"},
    {&kMirroring, Kind::Flag, "Mirroring:"},
    {&kMirrorMessageEveryFrame, Kind::Flag, "MirrorMessageEveryFrame:"},
    {&kBroadcasting, Kind::Flag, "Broadcasting:"},
    {&kClusteringLabels, Kind::Flag, "Clustering Labels:"},
    {&kTacticalGraphicsLabels, Kind::Flag, "Tactical Graphics Labels:"},
    {&kTacticalGraphics, Kind::Flag, "Tactical Graphics:"},
    {&kShowEmitters, Kind::Flag, "Show Emitters:"},
    {&kVideoCaptureCommand, Kind::VideoCapture, "Video Capture Command: "},
    {&kVideoCaptureFilename, Kind::Text, "Video Capture Filename:"},
    {&kVideoCaptureDirectory, Kind::Text, "Video Capture Directory:"},
    {&kVideoCaptureFilenameBase, Kind::Text, "Video Capture Filename Base:"},
    {&kVideoCaptureRecordInsets, Kind::Flag, "Video Capture Record Insets:"},
    {&kVideoCaptureFramesPerSecond, Kind::U16, "Video Capture FPS:"},
    {&kConstrainToAll, Kind::Flag, "Constrained To All:"},
    {&kBlockedDistance, Kind::F64, "Blocked Distance:"},
    {&kUseNearClipForBlockedDistance, Kind::Flag, "Use Near Clip For Blocked Distance:"},
    {&kFeatureFilename, Kind::Text, "Feature Filename:"},
    {&kFeatureCommand, Kind::Feature, "Feature Command: "},
};
static_assert(std::size(kDump) == 67, "every option is dumped");

constexpr const char* kVideoCaptureTexts[] = {"Stop\n", "Pause\n", "Unpause\n", "Record\n"};
constexpr const char* kFeatureTexts[] = {"Load Features\n", "Clear Features\n"};

constexpr int kBitsPerField = 64;
constexpr int kBitfields = 2;

// The byte and mask of an option's presence bit, or false where the PDU has none.
bool presenceBit(const DtPdu& pdu, int option, int* offset, std::uint8_t* mask) {
  if (option < 0 || option >= kBitsPerField * kBitfields) return false;
  const bool second = option >= kBitsPerField;
  if (second && pdu.length() <= Options::bitfield2) return false;
  const int bit = second ? option - kBitsPerField : option;
  *offset = (second ? Options::bitfield2 : Options::bitfield) + bit / 8;
  *mask = static_cast<std::uint8_t>(1u << (bit % 8));
  return true;
}

template <class T>
struct NotDeduced {
  using type = T;
};

// A value written through the PDU's accessor for its width; the option becomes present.
template <class T>
void setValue(DtOptionsPdu& pdu, const Field& f, void (DtPdu::*store)(int, T),
              typename NotDeduced<T>::type value) {
  (pdu.*store)(f.offset, value);
  pdu.setOptionPresent(f.option);
}

void setFlagField(DtOptionsPdu& pdu, const Field& f, bool on) {
  pdu.setU8At(f.offset, on ? 1 : 0);
  pdu.setOptionPresent(f.option);
}
bool flagField(const DtPdu& pdu, const Field& f) { return pdu.u8At(f.offset) != 0; }

void setTextField(DtOptionsPdu& pdu, const Field& f, const DtString& text) {
  pdu.setTextAt(f.offset, f.width, text.c_str());
  pdu.setOptionPresent(f.option);
}
// Read no further than the field: a text that fills it has no terminator.
DtString textField(const DtPdu& pdu, const Field& f) {
  const DtString text = pdu.textAt(f.offset);
  return text.length() > static_cast<std::size_t>(f.width)
             ? DtString(text.c_str(), static_cast<std::size_t>(f.width))
             : text;
}

void setAction(DtOptionsPdu& pdu, const Field& f, bool on) {
  if (on) {
    pdu.setOptionPresent(f.option);
  } else {
    pdu.clearOptionPresent(f.option);
  }
}

const char* textOf(const char* const* texts, std::size_t count, unsigned value) {
  return value < count ? texts[value] : nullptr;
}

constexpr char kHexDigits[] = "0123456789abcdef";

int hexValue(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return -1;
}

// One byte from a pair of digits, as strtol in base 16 reads the pair.
unsigned char pairValue(const char* pair) {
  const int high = hexValue(pair[0]);
  const int low = hexValue(pair[1]);
  if (high >= 0 && low >= 0) return static_cast<unsigned char>(high << 4 | low);
  const char text[3] = {pair[0], pair[1], '\0'};
  return static_cast<unsigned char>(std::strtol(text, nullptr, 16));
}
}  // namespace

DtOptionsPdu::DtOptionsPdu(DtBufferPlaceHolder* holder) {
  initPdu(Options::length, holder);
  setViewerCommand(DtVcOptions);
}

DtOptionsPdu::DtOptionsPdu(const DtNetViewControlPdu* image, DtBufferPlaceHolder* holder,
                           DtPduFactory* factory) {
  initPdu(image, holder, factory);
}

DtOptionsPdu::~DtOptionsPdu() = default;

bool DtOptionsPdu::optionPresent(DtVistralOption option) const {
  int offset = 0;
  std::uint8_t mask = 0;
  return presenceBit(*this, option, &offset, &mask) && (u8At(offset) & mask) != 0;
}

void DtOptionsPdu::setOptionPresent(DtVistralOption option) {
  int offset = 0;
  std::uint8_t mask = 0;
  if (presenceBit(*this, option, &offset, &mask))
    setU8At(offset, static_cast<std::uint8_t>(u8At(offset) | mask));
}

void DtOptionsPdu::clearOptionPresent(DtVistralOption option) {
  int offset = 0;
  std::uint8_t mask = 0;
  if (presenceBit(*this, option, &offset, &mask))
    setU8At(offset, static_cast<std::uint8_t>(u8At(offset) & ~mask));
}

// Values

DtOverlayOption DtOptionsPdu::overlay() const { return static_cast<DtOverlayOption>(u32At(kOverlay.offset)); }
void DtOptionsPdu::setOverlay(DtOverlayOption option) {
  setValue(*this, kOverlay, &DtPdu::setU32At, static_cast<std::uint32_t>(option));
}
double DtOptionsPdu::locatorRange() const { return f64At(kLocatorRange.offset); }
void DtOptionsPdu::setLocatorRange(double range) { setValue(*this, kLocatorRange, &DtPdu::setF64At, range); }
DtSmoothingOption DtOptionsPdu::smoothing() const {
  return static_cast<DtSmoothingOption>(u32At(kSmoothing.offset));
}
void DtOptionsPdu::setSmoothing(DtSmoothingOption option) {
  setValue(*this, kSmoothing, &DtPdu::setU32At, static_cast<std::uint32_t>(option));
}
double DtOptionsPdu::smoothingPeriod() const { return f64At(kSmoothingPeriod.offset); }
void DtOptionsPdu::setSmoothingPeriod(double period) {
  setValue(*this, kSmoothingPeriod, &DtPdu::setF64At, period);
}
bool DtOptionsPdu::sound() const { return flagField(*this, kSound); }
void DtOptionsPdu::setSound(bool on) { setFlagField(*this, kSound, on); }
bool DtOptionsPdu::entityLabels() const { return flagField(*this, kEntityLabels); }
void DtOptionsPdu::setEntityLabels(bool on) { setFlagField(*this, kEntityLabels, on); }
bool DtOptionsPdu::trailingEffects() const { return flagField(*this, kTrailingEffects); }
void DtOptionsPdu::setTrailingEffects(bool on) { setFlagField(*this, kTrailingEffects, on); }
bool DtOptionsPdu::trajectoryHistory() const { return flagField(*this, kTrajectoryHistory); }
void DtOptionsPdu::setTrajectoryHistory(bool on) { setFlagField(*this, kTrajectoryHistory, on); }
bool DtOptionsPdu::recording() const { return flagField(*this, kRecording); }
void DtOptionsPdu::setRecording(bool on) { setFlagField(*this, kRecording, on); }
unsigned DtOptionsPdu::aggregateLevel() const { return u32At(kAggregateLevel.offset); }
void DtOptionsPdu::setAggregateLevel(unsigned level) {
  setValue(*this, kAggregateLevel, &DtPdu::setU32At, level);
}
bool DtOptionsPdu::aggregateHighestOnly() const { return flagField(*this, kAggregateHighestOnly); }
void DtOptionsPdu::setAggregateHighestOnly(bool on) { setFlagField(*this, kAggregateHighestOnly, on); }
bool DtOptionsPdu::aggregatesAltitudeControlled() const {
  return flagField(*this, kAggregatesAltitudeControlled);
}
void DtOptionsPdu::setAggregatesAltitudeControlled(bool on) {
  setFlagField(*this, kAggregatesAltitudeControlled, on);
}
bool DtOptionsPdu::nestedAggregates() const { return flagField(*this, kNestedAggregates); }
void DtOptionsPdu::setNestedAggregates(bool on) { setFlagField(*this, kNestedAggregates, on); }
bool DtOptionsPdu::nestedEntities() const { return flagField(*this, kNestedEntities); }
void DtOptionsPdu::setNestedEntities(bool on) { setFlagField(*this, kNestedEntities, on); }
bool DtOptionsPdu::groundClamping() const { return flagField(*this, kGroundClamping); }
void DtOptionsPdu::setGroundClamping(bool on) { setFlagField(*this, kGroundClamping, on); }
double DtOptionsPdu::clampRange() const { return f64At(kClampRange.offset); }
void DtOptionsPdu::setClampRange(double range) { setValue(*this, kClampRange, &DtPdu::setF64At, range); }
bool DtOptionsPdu::followGround() const { return flagField(*this, kFollowGround); }
void DtOptionsPdu::setFollowGround(bool on) { setFlagField(*this, kFollowGround, on); }
bool DtOptionsPdu::constrainWithFloor() const { return flagField(*this, kConstrainWithFloor); }
void DtOptionsPdu::setConstrainWithFloor(bool on) { setFlagField(*this, kConstrainWithFloor, on); }
double DtOptionsPdu::floor() const { return f64At(kFloor.offset); }
void DtOptionsPdu::setFloor(double floor) { setValue(*this, kFloor, &DtPdu::setF64At, floor); }
double DtOptionsPdu::timeOfDay() const { return f64At(kTimeOfDay.offset); }
void DtOptionsPdu::setTimeOfDay(double time) { setValue(*this, kTimeOfDay, &DtPdu::setF64At, time); }
double DtOptionsPdu::nearClip() const { return f64At(kNearClip.offset); }
void DtOptionsPdu::setNearClip(double distance) { setValue(*this, kNearClip, &DtPdu::setF64At, distance); }
double DtOptionsPdu::farClip() const { return f64At(kFarClip.offset); }
void DtOptionsPdu::setFarClip(double distance) { setValue(*this, kFarClip, &DtPdu::setF64At, distance); }
double DtOptionsPdu::fov() const { return f64At(kFov.offset); }
void DtOptionsPdu::setFov(double fov) { setValue(*this, kFov, &DtPdu::setF64At, fov); }
bool DtOptionsPdu::fog() const { return flagField(*this, kFog); }
void DtOptionsPdu::setFog(bool on) { setFlagField(*this, kFog, on); }
double DtOptionsPdu::nearFog() const { return f64At(kNearFog.offset); }
void DtOptionsPdu::setNearFog(double distance) { setValue(*this, kNearFog, &DtPdu::setF64At, distance); }
double DtOptionsPdu::farFog() const { return f64At(kFarFog.offset); }
void DtOptionsPdu::setFarFog(double distance) { setValue(*this, kFarFog, &DtPdu::setF64At, distance); }
bool DtOptionsPdu::texture() const { return flagField(*this, kTexture); }
void DtOptionsPdu::setTexture(bool on) { setFlagField(*this, kTexture, on); }
DtString DtOptionsPdu::databaseToLoad() const { return textField(*this, kDatabaseToLoad); }
void DtOptionsPdu::setDatabaseToLoad(const DtString& name) { setTextField(*this, kDatabaseToLoad, name); }
float DtOptionsPdu::stepsize() const { return f32At(kStepsize.offset); }
void DtOptionsPdu::setStepsize(float size) { setValue(*this, kStepsize, &DtPdu::setF32At, size); }
float DtOptionsPdu::turnrate() const { return f32At(kTurnrate.offset); }
void DtOptionsPdu::setTurnrate(float rate) { setValue(*this, kTurnrate, &DtPdu::setF32At, rate); }
DtString DtOptionsPdu::date() const { return textField(*this, kDate); }
void DtOptionsPdu::setDate(const DtString& date) { setTextField(*this, kDate, date); }
bool DtOptionsPdu::xrEnabled() const { return flagField(*this, kXREnabled); }
void DtOptionsPdu::setXREnabled(bool on) { setFlagField(*this, kXREnabled, on); }
bool DtOptionsPdu::hatEnabled() const { return flagField(*this, kHATenabled); }
void DtOptionsPdu::setHATenabled(bool on) { setFlagField(*this, kHATenabled, on); }
DtString DtOptionsPdu::currentModelSet() const { return textField(*this, kCurrentModelSet); }
void DtOptionsPdu::setCurrentModelSet(const DtString& name) { setTextField(*this, kCurrentModelSet, name); }
DtString DtOptionsPdu::currentTextureSet() const { return textField(*this, kCurrentTextureSet); }
void DtOptionsPdu::setCurrentTextureSet(const DtString& name) {
  setTextField(*this, kCurrentTextureSet, name);
}
float DtOptionsPdu::terrainScale() const { return f32At(kTerrainScale.offset); }
void DtOptionsPdu::setTerrainScale(double scale) {
  setValue(*this, kTerrainScale, &DtPdu::setF32At, static_cast<float>(scale));
}
float DtOptionsPdu::objectScale() const { return f32At(kObjectScale.offset); }
void DtOptionsPdu::setObjectScale(double scale) {
  setValue(*this, kObjectScale, &DtPdu::setF32At, static_cast<float>(scale));
}
bool DtOptionsPdu::clouds() const { return flagField(*this, kClouds); }
void DtOptionsPdu::setClouds(bool on) { setFlagField(*this, kClouds, on); }
bool DtOptionsPdu::skyDome() const { return flagField(*this, kSkyDome); }
void DtOptionsPdu::setSkyDome(bool on) { setFlagField(*this, kSkyDome, on); }
bool DtOptionsPdu::mirroring() const { return flagField(*this, kMirroring); }
void DtOptionsPdu::setMirroring(bool on) { setFlagField(*this, kMirroring, on); }
bool DtOptionsPdu::mirrorMessageEveryFrame() const { return flagField(*this, kMirrorMessageEveryFrame); }
void DtOptionsPdu::setMirrorMessageEveryFrame(bool on) { setFlagField(*this, kMirrorMessageEveryFrame, on); }
bool DtOptionsPdu::broadcasting() const { return flagField(*this, kBroadcasting); }
void DtOptionsPdu::setBroadcasting(bool on) { setFlagField(*this, kBroadcasting, on); }
bool DtOptionsPdu::clusteringLabels() const { return flagField(*this, kClusteringLabels); }
void DtOptionsPdu::setClusteringLabels(bool on) { setFlagField(*this, kClusteringLabels, on); }
bool DtOptionsPdu::tacticalGraphicsLabels() const { return flagField(*this, kTacticalGraphicsLabels); }
void DtOptionsPdu::setTacticalGraphicsLabels(bool on) { setFlagField(*this, kTacticalGraphicsLabels, on); }
bool DtOptionsPdu::tacticalGraphics() const { return flagField(*this, kTacticalGraphics); }
void DtOptionsPdu::setTacticalGraphics(bool on) { setFlagField(*this, kTacticalGraphics, on); }
bool DtOptionsPdu::showAggregates() const { return flagField(*this, kShowAggregates); }
void DtOptionsPdu::setShowAggregates(bool on) { setFlagField(*this, kShowAggregates, on); }
bool DtOptionsPdu::showEmitters() const { return flagField(*this, kShowEmitters); }
void DtOptionsPdu::setShowEmitters(bool on) { setFlagField(*this, kShowEmitters, on); }
DtVistralControlVideoCaptureCommand DtOptionsPdu::videoCaptureCommand() const {
  return static_cast<DtVistralControlVideoCaptureCommand>(u8At(kVideoCaptureCommand.offset));
}
void DtOptionsPdu::setVideoCaptureCommand(DtVistralControlVideoCaptureCommand command) {
  setValue(*this, kVideoCaptureCommand, &DtPdu::setU8At, static_cast<std::uint8_t>(command));
}
DtString DtOptionsPdu::videoCaptureFilename() const { return textField(*this, kVideoCaptureFilename); }
void DtOptionsPdu::setVideoCaptureFilename(const DtString& name) {
  setTextField(*this, kVideoCaptureFilename, name);
}
DtString DtOptionsPdu::videoCaptureDirectory() const { return textField(*this, kVideoCaptureDirectory); }
void DtOptionsPdu::setVideoCaptureDirectory(const DtString& directory) {
  setTextField(*this, kVideoCaptureDirectory, directory);
}
DtString DtOptionsPdu::videoCaptureFilenameBase() const {
  return textField(*this, kVideoCaptureFilenameBase);
}
void DtOptionsPdu::setVideoCaptureFilenameBase(const DtString& base) {
  setTextField(*this, kVideoCaptureFilenameBase, base);
}
bool DtOptionsPdu::videoCaptureRecordInsets() const { return flagField(*this, kVideoCaptureRecordInsets); }
void DtOptionsPdu::setVideoCaptureRecordInsets(bool on) {
  setFlagField(*this, kVideoCaptureRecordInsets, on);
}
int DtOptionsPdu::videoCaptureFramesPerSecond() const { return u16At(kVideoCaptureFramesPerSecond.offset); }
void DtOptionsPdu::setVideoCaptureFramesPerSecond(int fps) {
  setValue(*this, kVideoCaptureFramesPerSecond, &DtPdu::setU16At, static_cast<std::uint16_t>(fps));
}
bool DtOptionsPdu::constrainedToAll() const { return flagField(*this, kConstrainToAll); }
void DtOptionsPdu::setConstrainToAll(bool on) { setFlagField(*this, kConstrainToAll, on); }
double DtOptionsPdu::blockedDistance() const { return f64At(kBlockedDistance.offset); }
void DtOptionsPdu::setBlockedDistance(double distance) {
  setValue(*this, kBlockedDistance, &DtPdu::setF64At, distance);
}
bool DtOptionsPdu::useNearClipForBlockedDistance() const {
  return flagField(*this, kUseNearClipForBlockedDistance);
}
void DtOptionsPdu::setUseNearClipForBlockedDistance(bool on) {
  setFlagField(*this, kUseNearClipForBlockedDistance, on);
}
DtString DtOptionsPdu::featureFilename() const { return textField(*this, kFeatureFilename); }
void DtOptionsPdu::setFeatureFilename(const DtString& name) { setTextField(*this, kFeatureFilename, name); }
DtVistralControlFeatureCommand DtOptionsPdu::featureCommand() const {
  return static_cast<DtVistralControlFeatureCommand>(u8At(kFeatureCommand.offset));
}
void DtOptionsPdu::setFeatureCommand(DtVistralControlFeatureCommand command) {
  setValue(*this, kFeatureCommand, &DtPdu::setU8At, static_cast<std::uint8_t>(command));
}

// Actions

bool DtOptionsPdu::incrementStepsize() const { return optionPresent(kIncStepsize.option); }
void DtOptionsPdu::setIncrementStepsize(bool on) { setAction(*this, kIncStepsize, on); }
bool DtOptionsPdu::incrementTurnrate() const { return optionPresent(kIncTurnrate.option); }
void DtOptionsPdu::setIncrementTurnrate(bool on) { setAction(*this, kIncTurnrate, on); }
bool DtOptionsPdu::decrementStepsize() const { return optionPresent(kDecStepsize.option); }
void DtOptionsPdu::setDecrementStepsize(bool on) { setAction(*this, kDecStepsize, on); }
bool DtOptionsPdu::decrementTurnrate() const { return optionPresent(kDecTurnrate.option); }
void DtOptionsPdu::setDecrementTurnrate(bool on) { setAction(*this, kDecTurnrate, on); }
bool DtOptionsPdu::showNextModelSet() const { return optionPresent(kNextModelSet.option); }
void DtOptionsPdu::setShowNextModelSet(bool on) { setAction(*this, kNextModelSet, on); }
bool DtOptionsPdu::showPrevModelSet() const { return optionPresent(kPrevModelSet.option); }
void DtOptionsPdu::setShowPrevModelSet(bool on) { setAction(*this, kPrevModelSet, on); }
bool DtOptionsPdu::showNextTextureSet() const { return optionPresent(kNextTextureSet.option); }
void DtOptionsPdu::setShowNextTextureSet(bool on) { setAction(*this, kNextTextureSet, on); }
bool DtOptionsPdu::showPrevTextureSet() const { return optionPresent(kPrevTextureSet.option); }
void DtOptionsPdu::setShowPrevTextureSet(bool on) { setAction(*this, kPrevTextureSet, on); }
bool DtOptionsPdu::exit() const { return optionPresent(kExit.option); }
void DtOptionsPdu::setExit(bool on) { setAction(*this, kExit, on); }

// Text form and dump

const char* DtOptionsPdu::string() const {
  const int bytes = std::max(0, length());
  // Room for a whole fixed-size image on the stack; only a grown received image needs the heap.
  char local[2 * DtPdu::kInlineCapacity + 1];
  std::vector<char> large;
  char* out = local;
  if (2 * bytes + 1 > static_cast<int>(sizeof local)) {
    large.resize(static_cast<std::size_t>(2 * bytes + 1));
    out = large.data();
  }
  const unsigned char* p = packet();
  for (int i = 0; i < bytes; ++i) {
    out[2 * i] = kHexDigits[p[i] >> 4];
    out[2 * i + 1] = kHexDigits[p[i] & 0x0F];
  }
  out[2 * bytes] = '\0';
  hexText_ = out;
  return hexText_.c_str();
}

void DtOptionsPdu::setFromString(const char* text) {
  if (text == nullptr) return;
  const std::size_t count = std::strlen(text) / 2;
  // The image constructor takes as many bytes as the decoded header says: it gets at least that many, zero
  // past the digits, and never fewer than a header.
  std::vector<unsigned char> image(std::max<std::size_t>(count, DtPdu::kHeaderSize), 0);
  for (std::size_t i = 0; i < count; ++i) image[i] = pairValue(text + 2 * i);
  const std::size_t stated = DtWire::loadU16(image.data() + 8);
  if (stated > image.size()) image.resize(stated, 0);
  const DtOptionsPdu parsed(reinterpret_cast<const DtNetViewControlPdu*>(image.data()), nullptr, nullptr);
  *this = parsed;
}

void DtOptionsPdu::printData() const {
  DtVistralControlPdu::printData();
  const auto dumpBitfield = [this](const char* label, int offset) {
    unsigned char bits[Options::bitfieldWidth];
    for (int i = 0; i < Options::bitfieldWidth; ++i) bits[i] = u8At(offset + i);
    DtDumpHexBytes(label, bits, Options::bitfieldWidth);
  };
  dumpBitfield("Options Bitfield:", Options::bitfield);
  if (length() > Options::bitfield2) dumpBitfield("Options Bitfield2:", Options::bitfield2);

  for (const DumpRow& row : kDump) {
    const Field& f = *row.field;
    if (!optionPresent(f.option)) continue;
    switch (row.kind) {
      case Kind::Overlay:
        DtDumpEnum(row.label, DtEnumString(overlay()), u32At(f.offset));
        break;
      case Kind::Smoothing:
        DtDumpEnum(row.label, DtEnumString(smoothing()), u32At(f.offset));
        break;
      case Kind::F64:
        DtDumpFloat(row.label, f64At(f.offset));
        break;
      case Kind::F32:
        DtDumpFloat(row.label, f32At(f.offset));
        break;
      case Kind::U32:
        DtDumpInteger(row.label, u32At(f.offset));
        break;
      case Kind::U16:
        DtDumpInteger(row.label, u16At(f.offset));
        break;
      case Kind::Flag:
        DtDumpBoolean(row.label, flagField(*this, f));
        break;
      case Kind::Text:
        DtDumpString(row.label, textField(*this, f).c_str());
        break;
      case Kind::Action:
        DtDumpText(row.label);
        break;
      case Kind::VideoCapture:
      case Kind::Feature: {
        // An unknown command shows its number.
        const unsigned value = u8At(f.offset);
        const char* name = row.kind == Kind::VideoCapture
                               ? textOf(kVideoCaptureTexts, std::size(kVideoCaptureTexts), value)
                               : textOf(kFeatureTexts, std::size(kFeatureTexts), value);
        DtDumpText(row.label);
        if (name != nullptr) {
          DtDumpText(name);
        } else {
          DtDumpText((std::to_string(value) + "\n").c_str());
        }
        break;
      }
    }
  }
}
