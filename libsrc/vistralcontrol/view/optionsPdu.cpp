#include "vistralcontrol/optionsPdu.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <string>
#include <vector>

#include "tarvex/dtDump.h"
#include "tarvex/dtWire.h"
#include "vcOptionRows.h"
#include "vcViewLayout.h"

using VcLayout::Options;

namespace {
using Kind = VcLayout::OptionKind;
using Row = VcLayout::OptionRow;
constexpr const auto& kRows = VcLayout::kOptionRows;
constexpr const auto& kVideoCaptureTexts = VcLayout::kVideoCaptureTexts;
constexpr const auto& kFeatureTexts = VcLayout::kFeatureTexts;

// The row of an option, found while compiling: an option without a row does not build. The second of two
// options that share a presence bit is the one with nth 1.
constexpr const Row& rowOf(int option, int nth = 0) {
  for (const Row& row : kRows)
    if (row.option == option && nth-- == 0) return row;
  throw "no row for this option";
}

// Read no further than the field: a text that fills it has no terminator.
DtString textOf(const DtPdu& pdu, const Row& row) {
  const DtString text = pdu.textAt(row.offset);
  return text.length() > static_cast<std::size_t>(row.width)
             ? DtString(text.c_str(), static_cast<std::size_t>(row.width))
             : text;
}

// An option's value, read as its row says; an action reads its presence bit.
template <int Option, int Nth = 0>
auto optionValue(const DtOptionsPdu& pdu) {
  constexpr const Row& row = rowOf(Option, Nth);
  if constexpr (row.kind == Kind::F64) {
    return pdu.f64At(row.offset);
  } else if constexpr (row.kind == Kind::F32) {
    return pdu.f32At(row.offset);
  } else if constexpr (row.kind == Kind::U32 || row.kind == Kind::Overlay || row.kind == Kind::Smoothing) {
    return pdu.u32At(row.offset);
  } else if constexpr (row.kind == Kind::U16) {
    return pdu.u16At(row.offset);
  } else if constexpr (row.kind == Kind::Flag) {
    return pdu.u8At(row.offset) != 0;
  } else if constexpr (row.kind == Kind::Text) {
    return textOf(pdu, row);
  } else if constexpr (row.kind == Kind::Action) {
    return pdu.optionPresent(row.option);
  } else {
    return pdu.u8At(row.offset);  // a video-capture or feature command
  }
}

// Writes an option's value as its row says and marks the option present, whatever the value. An action
// true marks it present, false clears it.
template <int Option, int Nth = 0, class T>
void setOptionValue(DtOptionsPdu& pdu, const T& value) {
  constexpr const Row& row = rowOf(Option, Nth);
  if constexpr (row.kind == Kind::Action) {
    if (!value) {
      pdu.clearOptionPresent(row.option);
      return;
    }
  } else if constexpr (row.kind == Kind::F64) {
    pdu.setF64At(row.offset, static_cast<double>(value));
  } else if constexpr (row.kind == Kind::F32) {
    pdu.setF32At(row.offset, static_cast<float>(value));
  } else if constexpr (row.kind == Kind::U32 || row.kind == Kind::Overlay || row.kind == Kind::Smoothing) {
    pdu.setU32At(row.offset, static_cast<std::uint32_t>(value));
  } else if constexpr (row.kind == Kind::U16) {
    pdu.setU16At(row.offset, static_cast<std::uint16_t>(value));
  } else if constexpr (row.kind == Kind::Flag) {
    pdu.setU8At(row.offset, value ? 1 : 0);
  } else if constexpr (row.kind == Kind::Text) {
    pdu.setTextAt(row.offset, row.width, value.c_str());
  } else {
    pdu.setU8At(row.offset, static_cast<std::uint8_t>(value));
  }
  pdu.setOptionPresent(row.option);
}

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

const char* nameOf(const char* const* texts, std::size_t count, unsigned value) {
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
  static_assert(decltype(storage_)::kCapacity == Options::length, "storage for the image");
  useStorage(storage_);
  initPdu(Options::length, holder);
  setViewerCommand(DtVcOptions);
}

DtOptionsPdu::DtOptionsPdu(const DtNetViewControlPdu* image, DtBufferPlaceHolder* holder,
                           DtPduFactory* factory) {
  useStorage(storage_);
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

DtOverlayOption DtOptionsPdu::overlay() const {
  return static_cast<DtOverlayOption>(optionValue<DtVistralOverlay>(*this));
}
void DtOptionsPdu::setOverlay(DtOverlayOption option) { setOptionValue<DtVistralOverlay>(*this, option); }
double DtOptionsPdu::locatorRange() const { return optionValue<DtVistralLocatorRange>(*this); }
void DtOptionsPdu::setLocatorRange(double range) { setOptionValue<DtVistralLocatorRange>(*this, range); }
DtSmoothingOption DtOptionsPdu::smoothing() const {
  return static_cast<DtSmoothingOption>(optionValue<DtVistralSmoothing>(*this));
}
void DtOptionsPdu::setSmoothing(DtSmoothingOption option) {
  setOptionValue<DtVistralSmoothing>(*this, option);
}
double DtOptionsPdu::smoothingPeriod() const { return optionValue<DtVistralSmoothingPeriod>(*this); }
void DtOptionsPdu::setSmoothingPeriod(double period) {
  setOptionValue<DtVistralSmoothingPeriod>(*this, period);
}
bool DtOptionsPdu::sound() const { return optionValue<DtVistralSound>(*this); }
void DtOptionsPdu::setSound(bool on) { setOptionValue<DtVistralSound>(*this, on); }
bool DtOptionsPdu::entityLabels() const { return optionValue<DtVistralEntityLabels>(*this); }
void DtOptionsPdu::setEntityLabels(bool on) { setOptionValue<DtVistralEntityLabels>(*this, on); }
bool DtOptionsPdu::trailingEffects() const { return optionValue<DtVistralTrailingEffects>(*this); }
void DtOptionsPdu::setTrailingEffects(bool on) { setOptionValue<DtVistralTrailingEffects>(*this, on); }
bool DtOptionsPdu::trajectoryHistory() const { return optionValue<DtVistralTrajectoryHistory>(*this); }
void DtOptionsPdu::setTrajectoryHistory(bool on) { setOptionValue<DtVistralTrajectoryHistory>(*this, on); }
bool DtOptionsPdu::recording() const { return optionValue<DtVistralRecording>(*this); }
void DtOptionsPdu::setRecording(bool on) { setOptionValue<DtVistralRecording>(*this, on); }
unsigned DtOptionsPdu::aggregateLevel() const { return optionValue<DtVistralAggregateLevel>(*this); }
void DtOptionsPdu::setAggregateLevel(unsigned level) {
  setOptionValue<DtVistralAggregateLevel>(*this, level);
}
bool DtOptionsPdu::aggregateHighestOnly() const { return optionValue<DtVistralAggregateHighestOnly>(*this); }
void DtOptionsPdu::setAggregateHighestOnly(bool on) {
  setOptionValue<DtVistralAggregateHighestOnly>(*this, on);
}
bool DtOptionsPdu::aggregatesAltitudeControlled() const {
  return optionValue<DtVistralAggregatesAltitudeControlled>(*this);
}
void DtOptionsPdu::setAggregatesAltitudeControlled(bool on) {
  setOptionValue<DtVistralAggregatesAltitudeControlled>(*this, on);
}
bool DtOptionsPdu::nestedAggregates() const { return optionValue<DtVistralNestedAggregates>(*this); }
void DtOptionsPdu::setNestedAggregates(bool on) { setOptionValue<DtVistralNestedAggregates>(*this, on); }
bool DtOptionsPdu::nestedEntities() const { return optionValue<DtVistralNestedEntities>(*this); }
void DtOptionsPdu::setNestedEntities(bool on) { setOptionValue<DtVistralNestedEntities>(*this, on); }
bool DtOptionsPdu::groundClamping() const { return optionValue<DtVistralGroundClamping>(*this); }
void DtOptionsPdu::setGroundClamping(bool on) { setOptionValue<DtVistralGroundClamping>(*this, on); }
double DtOptionsPdu::clampRange() const { return optionValue<DtVistralClampRange>(*this); }
void DtOptionsPdu::setClampRange(double range) { setOptionValue<DtVistralClampRange>(*this, range); }
bool DtOptionsPdu::followGround() const { return optionValue<DtVistralFollowGround>(*this); }
void DtOptionsPdu::setFollowGround(bool on) { setOptionValue<DtVistralFollowGround>(*this, on); }
bool DtOptionsPdu::constrainWithFloor() const { return optionValue<DtVistralConstrainWithFloor>(*this); }
void DtOptionsPdu::setConstrainWithFloor(bool on) { setOptionValue<DtVistralConstrainWithFloor>(*this, on); }
double DtOptionsPdu::floor() const { return optionValue<DtVistralFloor>(*this); }
void DtOptionsPdu::setFloor(double floor) { setOptionValue<DtVistralFloor>(*this, floor); }
double DtOptionsPdu::timeOfDay() const { return optionValue<DtVistralTimeOfDay>(*this); }
void DtOptionsPdu::setTimeOfDay(double time) { setOptionValue<DtVistralTimeOfDay>(*this, time); }
double DtOptionsPdu::nearClip() const { return optionValue<DtVistralNearClip>(*this); }
void DtOptionsPdu::setNearClip(double distance) { setOptionValue<DtVistralNearClip>(*this, distance); }
double DtOptionsPdu::farClip() const { return optionValue<DtVistralFarClip>(*this); }
void DtOptionsPdu::setFarClip(double distance) { setOptionValue<DtVistralFarClip>(*this, distance); }
double DtOptionsPdu::fov() const { return optionValue<DtVistralFov>(*this); }
void DtOptionsPdu::setFov(double fov) { setOptionValue<DtVistralFov>(*this, fov); }
bool DtOptionsPdu::fog() const { return optionValue<DtVistralFog>(*this); }
void DtOptionsPdu::setFog(bool on) { setOptionValue<DtVistralFog>(*this, on); }
double DtOptionsPdu::nearFog() const { return optionValue<DtVistralNearFog>(*this); }
void DtOptionsPdu::setNearFog(double distance) { setOptionValue<DtVistralNearFog>(*this, distance); }
double DtOptionsPdu::farFog() const { return optionValue<DtVistralFarFog>(*this); }
void DtOptionsPdu::setFarFog(double distance) { setOptionValue<DtVistralFarFog>(*this, distance); }
bool DtOptionsPdu::texture() const { return optionValue<DtVistralTexture>(*this); }
void DtOptionsPdu::setTexture(bool on) { setOptionValue<DtVistralTexture>(*this, on); }
DtString DtOptionsPdu::databaseToLoad() const { return optionValue<DtVistralDatabaseToLoad>(*this); }
void DtOptionsPdu::setDatabaseToLoad(const DtString& name) {
  setOptionValue<DtVistralDatabaseToLoad>(*this, name);
}
float DtOptionsPdu::stepsize() const { return optionValue<DtVistralStepsize>(*this); }
void DtOptionsPdu::setStepsize(float size) { setOptionValue<DtVistralStepsize>(*this, size); }
float DtOptionsPdu::turnrate() const { return optionValue<DtVistralTurnrate>(*this); }
void DtOptionsPdu::setTurnrate(float rate) { setOptionValue<DtVistralTurnrate>(*this, rate); }
DtString DtOptionsPdu::date() const { return optionValue<DtVistralDate>(*this); }
void DtOptionsPdu::setDate(const DtString& date) { setOptionValue<DtVistralDate>(*this, date); }
bool DtOptionsPdu::xrEnabled() const { return optionValue<DtVistralXREnabled>(*this); }
void DtOptionsPdu::setXREnabled(bool on) { setOptionValue<DtVistralXREnabled>(*this, on); }
bool DtOptionsPdu::hatEnabled() const { return optionValue<DtVistralHATenabled>(*this); }
void DtOptionsPdu::setHATenabled(bool on) { setOptionValue<DtVistralHATenabled>(*this, on); }
DtString DtOptionsPdu::currentModelSet() const { return optionValue<DtVistralSetCurrentModelSet>(*this); }
void DtOptionsPdu::setCurrentModelSet(const DtString& name) {
  setOptionValue<DtVistralSetCurrentModelSet>(*this, name);
}
DtString DtOptionsPdu::currentTextureSet() const { return optionValue<DtVistralSetCurrentTextureSet>(*this); }
void DtOptionsPdu::setCurrentTextureSet(const DtString& name) {
  setOptionValue<DtVistralSetCurrentTextureSet>(*this, name);
}
float DtOptionsPdu::terrainScale() const { return optionValue<DtVistralTerrainScale>(*this); }
void DtOptionsPdu::setTerrainScale(double scale) { setOptionValue<DtVistralTerrainScale>(*this, scale); }
float DtOptionsPdu::objectScale() const { return optionValue<DtVistralObjectScale>(*this); }
void DtOptionsPdu::setObjectScale(double scale) { setOptionValue<DtVistralObjectScale>(*this, scale); }
bool DtOptionsPdu::clouds() const { return optionValue<DtVistralClouds>(*this); }
void DtOptionsPdu::setClouds(bool on) { setOptionValue<DtVistralClouds>(*this, on); }
bool DtOptionsPdu::skyDome() const { return optionValue<DtVistralSkyDome>(*this); }
void DtOptionsPdu::setSkyDome(bool on) { setOptionValue<DtVistralSkyDome>(*this, on); }
bool DtOptionsPdu::mirroring() const { return optionValue<DtVistralMirroring>(*this); }
void DtOptionsPdu::setMirroring(bool on) { setOptionValue<DtVistralMirroring>(*this, on); }
bool DtOptionsPdu::mirrorMessageEveryFrame() const {
  return optionValue<DtVistralMirrorMessageEveryFrame>(*this);
}
void DtOptionsPdu::setMirrorMessageEveryFrame(bool on) {
  setOptionValue<DtVistralMirrorMessageEveryFrame>(*this, on);
}
bool DtOptionsPdu::broadcasting() const { return optionValue<DtVistralBroadcasting, 1>(*this); }
void DtOptionsPdu::setBroadcasting(bool on) { setOptionValue<DtVistralBroadcasting, 1>(*this, on); }
bool DtOptionsPdu::clusteringLabels() const { return optionValue<DtVistralClusteringLabels>(*this); }
void DtOptionsPdu::setClusteringLabels(bool on) { setOptionValue<DtVistralClusteringLabels>(*this, on); }
bool DtOptionsPdu::tacticalGraphicsLabels() const {
  return optionValue<DtVistralTacticalGraphicsLabels>(*this);
}
void DtOptionsPdu::setTacticalGraphicsLabels(bool on) {
  setOptionValue<DtVistralTacticalGraphicsLabels>(*this, on);
}
bool DtOptionsPdu::tacticalGraphics() const { return optionValue<DtVistralTacticalGraphics>(*this); }
void DtOptionsPdu::setTacticalGraphics(bool on) { setOptionValue<DtVistralTacticalGraphics>(*this, on); }
bool DtOptionsPdu::showAggregates() const { return optionValue<DtVistralShowAggregates>(*this); }
void DtOptionsPdu::setShowAggregates(bool on) { setOptionValue<DtVistralShowAggregates>(*this, on); }
bool DtOptionsPdu::showEmitters() const { return optionValue<DtVistralShowEmitters>(*this); }
void DtOptionsPdu::setShowEmitters(bool on) { setOptionValue<DtVistralShowEmitters>(*this, on); }
DtVistralControlVideoCaptureCommand DtOptionsPdu::videoCaptureCommand() const {
  return static_cast<DtVistralControlVideoCaptureCommand>(optionValue<DtVistralVideoCaptureCommand>(*this));
}
void DtOptionsPdu::setVideoCaptureCommand(DtVistralControlVideoCaptureCommand command) {
  setOptionValue<DtVistralVideoCaptureCommand>(*this, command);
}
DtString DtOptionsPdu::videoCaptureFilename() const {
  return optionValue<DtVistralVideoCaptureFilename>(*this);
}
void DtOptionsPdu::setVideoCaptureFilename(const DtString& name) {
  setOptionValue<DtVistralVideoCaptureFilename>(*this, name);
}
DtString DtOptionsPdu::videoCaptureDirectory() const {
  return optionValue<DtVistralVideoCaptureDirectory>(*this);
}
void DtOptionsPdu::setVideoCaptureDirectory(const DtString& directory) {
  setOptionValue<DtVistralVideoCaptureDirectory>(*this, directory);
}
DtString DtOptionsPdu::videoCaptureFilenameBase() const {
  return optionValue<DtVistralVideoCaptureFilenameBase>(*this);
}
void DtOptionsPdu::setVideoCaptureFilenameBase(const DtString& base) {
  setOptionValue<DtVistralVideoCaptureFilenameBase>(*this, base);
}
bool DtOptionsPdu::videoCaptureRecordInsets() const {
  return optionValue<DtVistralVideoCaptureRecordInsets>(*this);
}
void DtOptionsPdu::setVideoCaptureRecordInsets(bool on) {
  setOptionValue<DtVistralVideoCaptureRecordInsets>(*this, on);
}
int DtOptionsPdu::videoCaptureFramesPerSecond() const {
  return optionValue<DtVistralVideoCaptureFramesPerSecond>(*this);
}
void DtOptionsPdu::setVideoCaptureFramesPerSecond(int fps) {
  setOptionValue<DtVistralVideoCaptureFramesPerSecond>(*this, fps);
}
bool DtOptionsPdu::constrainedToAll() const { return optionValue<DtVistralConstrainToAll>(*this); }
void DtOptionsPdu::setConstrainToAll(bool on) { setOptionValue<DtVistralConstrainToAll>(*this, on); }
double DtOptionsPdu::blockedDistance() const { return optionValue<DtVistralBlockedDistance>(*this); }
void DtOptionsPdu::setBlockedDistance(double distance) {
  setOptionValue<DtVistralBlockedDistance>(*this, distance);
}
bool DtOptionsPdu::useNearClipForBlockedDistance() const {
  return optionValue<DtVistralUseNearClipForBlockedDistance>(*this);
}
void DtOptionsPdu::setUseNearClipForBlockedDistance(bool on) {
  setOptionValue<DtVistralUseNearClipForBlockedDistance>(*this, on);
}
DtString DtOptionsPdu::featureFilename() const { return optionValue<DtVistralFeatureFilename>(*this); }
void DtOptionsPdu::setFeatureFilename(const DtString& name) {
  setOptionValue<DtVistralFeatureFilename>(*this, name);
}
DtVistralControlFeatureCommand DtOptionsPdu::featureCommand() const {
  return static_cast<DtVistralControlFeatureCommand>(optionValue<DtVistralFeatureCommand>(*this));
}
void DtOptionsPdu::setFeatureCommand(DtVistralControlFeatureCommand command) {
  setOptionValue<DtVistralFeatureCommand>(*this, command);
}

// Actions

bool DtOptionsPdu::incrementStepsize() const { return optionValue<DtVistralIncStepsize>(*this); }
void DtOptionsPdu::setIncrementStepsize(bool on) { setOptionValue<DtVistralIncStepsize>(*this, on); }
bool DtOptionsPdu::incrementTurnrate() const { return optionValue<DtVistralIncTurnrate>(*this); }
void DtOptionsPdu::setIncrementTurnrate(bool on) { setOptionValue<DtVistralIncTurnrate>(*this, on); }
bool DtOptionsPdu::decrementStepsize() const { return optionValue<DtVistralDecStepsize>(*this); }
void DtOptionsPdu::setDecrementStepsize(bool on) { setOptionValue<DtVistralDecStepsize>(*this, on); }
bool DtOptionsPdu::decrementTurnrate() const { return optionValue<DtVistralDecTurnrate>(*this); }
void DtOptionsPdu::setDecrementTurnrate(bool on) { setOptionValue<DtVistralDecTurnrate>(*this, on); }
bool DtOptionsPdu::showNextModelSet() const { return optionValue<DtVistralNextModelSet>(*this); }
void DtOptionsPdu::setShowNextModelSet(bool on) { setOptionValue<DtVistralNextModelSet>(*this, on); }
bool DtOptionsPdu::showPrevModelSet() const { return optionValue<DtVistralPrevModelSet>(*this); }
void DtOptionsPdu::setShowPrevModelSet(bool on) { setOptionValue<DtVistralPrevModelSet>(*this, on); }
bool DtOptionsPdu::showNextTextureSet() const { return optionValue<DtVistralNextTextureSet>(*this); }
void DtOptionsPdu::setShowNextTextureSet(bool on) { setOptionValue<DtVistralNextTextureSet>(*this, on); }
bool DtOptionsPdu::showPrevTextureSet() const { return optionValue<DtVistralPrevTextureSet>(*this); }
void DtOptionsPdu::setShowPrevTextureSet(bool on) { setOptionValue<DtVistralPrevTextureSet>(*this, on); }
bool DtOptionsPdu::exit() const { return optionValue<DtVistralExit>(*this); }
void DtOptionsPdu::setExit(bool on) { setOptionValue<DtVistralExit>(*this, on); }

// Text form and dump

const char* DtOptionsPdu::string() const {
  const std::size_t bytes = static_cast<std::size_t>(std::max(0, length()));
  // Room for a whole fixed-size image on the stack; only a grown received image needs the heap.
  char local[2 * Options::length + 1];
  std::vector<char> large;
  char* out = local;
  if (2 * bytes + 1 > sizeof local) {
    large.resize(2 * bytes + 1);
    out = large.data();
  }
  const unsigned char* p = packet();
  for (std::size_t i = 0; i < bytes; ++i) {
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
  const std::size_t stated = DtWire::loadU16(image.data() + DtPdu::kLengthOffset);
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

  for (const Row& row : kRows) {
    if (!optionPresent(row.option)) continue;
    switch (row.kind) {
      case Kind::Overlay:
        DtDumpEnum(row.label, DtEnumString(static_cast<DtOverlayOption>(u32At(row.offset))),
                   u32At(row.offset));
        break;
      case Kind::Smoothing:
        DtDumpEnum(row.label, DtEnumString(static_cast<DtSmoothingOption>(u32At(row.offset))),
                   u32At(row.offset));
        break;
      case Kind::F64:
        DtDumpFloat(row.label, f64At(row.offset));
        break;
      case Kind::F32:
        DtDumpFloat(row.label, f32At(row.offset));
        break;
      case Kind::U32:
        DtDumpInteger(row.label, u32At(row.offset));
        break;
      case Kind::U16:
        DtDumpInteger(row.label, u16At(row.offset));
        break;
      case Kind::Flag:
        DtDumpBoolean(row.label, u8At(row.offset) != 0);
        break;
      case Kind::Text:
        DtDumpString(row.label, textOf(*this, row).c_str());
        break;
      case Kind::Action:
        DtDumpText(row.label);
        break;
      case Kind::VideoCapture:
      case Kind::Feature: {
        // An unknown command shows its number.
        const unsigned value = u8At(row.offset);
        const char* name = row.kind == Kind::VideoCapture
                               ? nameOf(kVideoCaptureTexts, std::size(kVideoCaptureTexts), value)
                               : nameOf(kFeatureTexts, std::size(kFeatureTexts), value);
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
