// Shared by the fuzz targets: quiet streams and a walk over every accessor of a control PDU object.
#pragma once

#include <algorithm>
#include <climits>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <ostream>
#include <string>

#include "tarvex/dtMessage.h"
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
#include "vistralcontrol/vdcAreaPdu.h"
#include "vistralcontrol/vdcAttributePdu.h"
#include "vistralcontrol/vdcAttributeUpdatePdu.h"
#include "vistralcontrol/vdcCommandPdu.h"
#include "vistralcontrol/vdcLayerPdu.h"
#include "vistralcontrol/vdcLinePdu.h"
#include "vistralcontrol/vdcPolyObjectPdu.h"
#include "vistralcontrol/vdcTextPdu.h"
#include "vistralcontrol/vdcTrianglePdu.h"
#include "vistralcontrol/vistralControlPdu.h"

namespace fuzz {

// A received image as the receive path hands it over: the bytes at the start of a zero-filled buffer as
// large as the largest length a header can state.
constexpr std::size_t kImageBufferSize = DtPdu::kMaxLength + 1;

template <class T>
std::unique_ptr<DtVistralControlPdu> make() {
  return std::make_unique<T>();
}

// A new object of each control PDU class, current layout and version 0.
using Maker = std::unique_ptr<DtVistralControlPdu> (*)();
inline const Maker kEveryClass[] = {
    make<DtAbsoluteVCPdu>,
    make<DtTetherVCPdu>,
    make<DtCompassVCPdu>,
    make<DtMimicVCPdu>,
    make<DtOffsetMimicVCPdu>,
    make<DtOrbitVCPdu>,
    make<DtTrackVCPdu>,
    make<DtTetherTrackVCPdu>,
    make<DtMimicTrackVCPdu>,
    make<DtGroupVCPdu>,
    make<DtModelessVCPdu>,
    make<DtOptionsPdu>,
    make<DtPivotVCPdu>,
    make<DtMoveVCPdu>,
    make<DtRequestStateVCPdu>,
    make<DtVdcCommandPdu>,
    make<DtVdcCommandPduV0>,
    make<DtVdcLinePdu>,
    make<DtVdcLinePduV0>,
    make<DtVdcSegmentedLinePduV0>,
    make<DtVdcPolyObjectPdu>,
    make<DtVdcPolyObjectPduV0>,
    make<DtVdcTrianglePdu>,
    make<DtVdcTrianglePduV0>,
    make<DtVdcAreaPdu>,
    make<DtVdcAreaPduV0>,
    make<DtVdcTextPdu>,
    make<DtVdcTextPduV0>,
    make<DtVdcAttributePdu>,
    make<DtVdcAttributePduV0>,
    make<DtVdcAttributeUpdatePdu>,
    make<DtVdcAttributeUpdatePduV0>,
    make<DtVdcLayerPdu>,
    make<DtVdcLayerPduV0>,
};

inline std::ostream& nullStream() {
  static std::ostream sink(nullptr);
  return sink;
}

inline void silenceStreams() {
  DtInfo.setStream(nullStream());
  DtWarn.setStream(nullStream());
  DtDumpStream.setStream(nullStream());
}

// Entries of a group or modeless list at the edges of what its counts and its image allow.
template <class T>
void readLists(const T& pdu) {
  const auto near = [](int count, int step) {
    return static_cast<int>(std::clamp<long long>(static_cast<long long>(count) + step, INT_MIN, INT_MAX));
  };
  for (int count : {pdu.numEntitiesToRemove(), pdu.numEntitiesToAdd()}) {
    for (int index : {-1, 0, 1, near(count, -1), count, near(count, 1), 1 << 30}) {
      (void)pdu.entityToRemove(index).length();
      (void)pdu.entityToAdd(index).length();
    }
  }
}

// The view-control bodies: every getter of the object's class.
inline void readViewControl(const DtVistralControlPdu& pdu) {
  if (const auto* p = dynamic_cast<const DtCompassVCPdu*>(&pdu)) {
    (void)(p->radius() + p->bodyHeading() + p->pitch() + p->headingOffset() + p->pitchOffset() + p->roll());
    (void)p->attachId().length();
    (void)p->markingText().length();
  }
  if (const auto* p = dynamic_cast<const DtOrbitVCPdu*>(&pdu)) {
    (void)(p->radius() + p->azimuthRate() + p->heading() + p->pitch() + p->headingOffset() +
           p->pitchOffset() + p->roll());
    (void)p->attachId().length();
    (void)p->markingText().length();
  }
  if (const auto* p = dynamic_cast<const DtPivotVCPdu*>(&pdu)) {
    (void)(p->radius() + p->bodyHeading() + p->pitch() + p->headingOffset() + p->pitchOffset() + p->roll());
    (void)p->pivotPoint();
  }
  if (const auto* p = dynamic_cast<const DtTetherVCPdu*>(&pdu)) {
    (void)p->topoUpOffset();
    (void)p->orientation();
    (void)p->attachId().length();
    (void)p->markingText().length();
  }
  if (const auto* p = dynamic_cast<const DtMimicVCPdu*>(&pdu)) {  // offset mimic too
    (void)p->offset();
    (void)p->bodyOrientation();
    (void)p->attachId().length();
    (void)p->markingText().length();
  }
  if (const auto* p = dynamic_cast<const DtTrackVCPdu*>(&pdu)) {
    (void)p->worldLocation();
    (void)p->trackId().length();
    (void)p->markingText().length();
  }
  if (const auto* p = dynamic_cast<const DtTetherTrackVCPdu*>(&pdu)) {
    (void)p->offset();
    (void)(p->attachId().length() + p->trackId().length());
    (void)(p->attachMarkingText().length() + p->trackMarkingText().length());
  }
  if (const auto* p = dynamic_cast<const DtMimicTrackVCPdu*>(&pdu)) {
    (void)p->offset();
    (void)(p->attachId().length() + p->trackId().length());
    (void)(p->attachMarkingText().length() + p->trackMarkingText().length());
  }
  if (const auto* p = dynamic_cast<const DtGroupVCPdu*>(&pdu)) {
    (void)(p->radialOffset() + p->heading() + p->pitch() + p->headingOffset() + p->pitchOffset());
    (void)p->groupCmd();
    readLists(*p);
  }
  if (const auto* p = dynamic_cast<const DtModelessVCPdu*>(&pdu)) {
    (void)(p->primary().length() + p->secondary().length());
    readLists(*p);
  }
  if (const auto* p = dynamic_cast<const DtOptionsPdu*>(&pdu)) {
    for (int option = -1; option <= 128; ++option)
      (void)p->optionPresent(static_cast<DtVistralOption>(option));
    (void)(p->locatorRange() + p->smoothingPeriod() + p->clampRange() + p->floor() + p->timeOfDay() +
           p->nearClip() + p->farClip() + p->fov() + p->nearFog() + p->farFog() + p->blockedDistance());
    (void)(p->stepsize() + p->turnrate() + p->terrainScale() + p->objectScale());
    (void)p->overlay();
    (void)p->smoothing();
    (void)p->videoCaptureCommand();
    (void)p->featureCommand();
    (void)(p->aggregateLevel() + static_cast<unsigned>(p->videoCaptureFramesPerSecond()));
    (void)(p->sound() || p->exit() || p->constrainedToAll() || p->broadcasting() || p->showPrevTextureSet());
    (void)(p->databaseToLoad().length() + p->date().length() + p->currentModelSet().length() +
           p->currentTextureSet().length() + p->videoCaptureFilename().length() +
           p->videoCaptureDirectory().length() + p->videoCaptureFilenameBase().length() +
           p->featureFilename().length());
  }
}

// The draw-control bodies: every getter of the object's class, at the edges of every index.
inline void readDrawControl(const DtVistralDrawControlPdu& pdu) {
  (void)(pdu.objectId() + pdu.type() + pdu.paramVersion());
  (void)DtVistralDrawControlPdu::typeString(static_cast<int>(std::uint32_t{pdu.type()}));
  if (const auto* p = dynamic_cast<const DtVdcAttachablePdu*>(&pdu)) {
    (void)DtVdcAttachablePdu::typeString(p->attachmentType());
    for (int i : {-1, 0, 1, 2, 1 << 30}) {
      (void)p->relativeLocation(i);
      (void)p->attachEntityId(i).length();
      (void)p->attachObjectId(i);
      (void)p->position(i);
    }
    (void)p->offset();
    if (const unsigned char* rgba = p->color()) (void)(rgba[0] + rgba[3]);
    (void)p->flashing();
  }
  if (const auto* p = dynamic_cast<const DtVdcLinePdu*>(&pdu)) {
    const unsigned count = p->numSegments();
    for (unsigned i : {0U, count - 1, count, count + 1, 255U, ~0U}) {
      (void)p->typeString(p->arrowStyle(i));
      (void)p->typeString(p->appearance(i));
      (void)(p->thickness(i) + p->pattern(i) + p->percentage(i));
      if (const unsigned char* rgba = p->color(i)) (void)(rgba[0] + rgba[3]);
    }
    (void)(p->checkLos() || p->projected());
  }
  if (const auto* p = dynamic_cast<const DtVdcPolyObjectPduBase*>(&pdu)) {
    (void)(p->fill() || p->pattern() != 0);
    (void)p->scale();
    (void)p->rotation();
  }
  if (const auto* p = dynamic_cast<const DtVdcTrianglePduBase*>(&pdu)) {
    for (int i : {-1, 0, 2, 3, 1 << 30}) (void)p->point(i);
  }
  if (const auto* p = dynamic_cast<const DtVdcAreaPduBase*>(&pdu)) {
    for (int i : {-1, 0, p->numPoints(), 15, 16, 1 << 30}) (void)p->point(i);
    (void)(p->textureDirectory().length() + p->textureFilename().length() + p->numTextureTiles());
  }
  if (const auto* p = dynamic_cast<const DtVdcTextPduBase*>(&pdu)) (void)p->text().length();
  if (const auto* p = dynamic_cast<const DtVdcLayerPduBase*>(&pdu)) (void)p->name().length();
  if (const auto* p = dynamic_cast<const DtVdcCommandPduBase*>(&pdu)) (void)p->layerId();
  if (const auto* p = dynamic_cast<const DtVdcAttributePduBase*>(&pdu)) {
    (void)(p->name().length() + p->attributeGroupId());
    (void)(p->hasRange() ? p->rangeMin() + p->rangeMax() : 0.0);
  }
  if (const auto* p = dynamic_cast<const DtVdcAttributeUpdatePduBase*>(&pdu)) {
    (void)(p->text().length() + p->groupId());
    (void)(p->valueX() + p->valueY());
  }
}

// Reads every field the object's class offers, through its own accessors.
inline void readFields(const DtVistralControlPdu& pdu) {
  const DtString viewer = pdu.viewerId();
  const DtString sender = pdu.senderId();
  (void)viewer.length();
  (void)sender.length();
  (void)pdu.viewerCommand();
  (void)pdu.ignoreFlags();
  (void)pdu.statusCommand();
  (void)pdu.length();
  if (const auto* absolute = dynamic_cast<const DtAbsoluteVCPdu*>(&pdu)) {
    (void)absolute->worldLocation();
    (void)absolute->orientation();
  }
  if (const auto* move = dynamic_cast<const DtMoveVCPdu*>(&pdu)) {
    (void)move->turn();
    (void)move->move();
    (void)move->position();
    (void)move->orientation();
    (void)move->reset();
  }
  readViewControl(pdu);
  if (const auto* draw = dynamic_cast<const DtVistralDrawControlPdu*>(&pdu)) readDrawControl(*draw);
}

// Reads every field, as readFields does, and prints the object: the dump and the text form.
inline void readEverything(const DtVistralControlPdu& pdu) {
  readFields(pdu);
  // The dump through one entry point or the other, by turns: both run the same printData (print adds the
  // header's fields, printDataToStream a stream of the caller's), so each state is dumped once, and both
  // entry points still see every kind of PDU and every kind of damage.
  static unsigned dumps = 0;
  if (dumps++ % 2 == 0) {
    pdu.print();
  } else {
    pdu.printDataToStream(nullStream());
  }
  (void)pdu.string();
}

// List counts and entries from the input, hostile ones included.
template <class T>
void writeLists(T& pdu, const std::string& text, int value) {
  pdu.setNumEntitiesToAdd(value % 3 == 0 ? -1 : value % 40);
  pdu.setNumEntitiesToRemove(value % 5 == 0 ? value - 1000 : value % 30);
  pdu.setNumEntitiesToAdd(value % 7 == 0 ? (1 << 20) + value : value % 20);
  for (int index : {-1, 0, value % 50, 1 << 29}) {
    pdu.setEntityToRemove(index, text);
    pdu.setEntityToAdd(index, text);
  }
}

// The view-control bodies: every setter of the object's class, with values taken from the input.
inline void writeViewControl(DtVistralControlPdu& pdu, const std::string& text) {
  const int value = static_cast<int>(text.size()) * 7919 + (text.empty() ? 0 : text[0]);
  const auto number = static_cast<float>(value) / 7.0f;
  const DtVector64 vector(number, -number, 1e300);
  if (auto* p = dynamic_cast<DtCompassVCPdu*>(&pdu)) {
    p->setRadius(number);
    p->setAttachId(text);
    p->setMarkingText(text);
  }
  if (auto* p = dynamic_cast<DtOrbitVCPdu*>(&pdu)) {
    p->setAzimuthRate(number);
    p->setAttachId(text);
    p->setMarkingText(text);
  }
  if (auto* p = dynamic_cast<DtPivotVCPdu*>(&pdu)) {
    p->setRoll(number);
    p->setPivotPoint(vector);
  }
  if (auto* p = dynamic_cast<DtTetherVCPdu*>(&pdu)) {
    p->setTopoUpOffset(vector);
    p->setOrientation(DtTaitBryan(number, 1e300, -1e-300));
    p->setAttachId(text);
    p->setMarkingText(text);
  }
  if (auto* p = dynamic_cast<DtMimicVCPdu*>(&pdu)) {
    p->setOffset(vector);
    p->setBodyOrientation(DtTaitBryan(number, 1e300, -1e-300));
    p->setAttachId(text);
    p->setMarkingText(text);
  }
  if (auto* p = dynamic_cast<DtTrackVCPdu*>(&pdu)) {
    p->setWorldLocation(vector);
    p->setTrackId(text);
    p->setMarkingText(text);
  }
  if (auto* p = dynamic_cast<DtTetherTrackVCPdu*>(&pdu)) {
    p->setOffset(vector);
    p->setAttachId(text);
    p->setTrackId(text);
    p->setAttachMarkingText(text);
    p->setTrackMarkingText(text);
  }
  if (auto* p = dynamic_cast<DtMimicTrackVCPdu*>(&pdu)) {
    p->setOffset(vector);
    p->setAttachId(text);
    p->setTrackId(text);
    p->setAttachMarkingText(text);
    p->setTrackMarkingText(text);
  }
  if (auto* p = dynamic_cast<DtGroupVCPdu*>(&pdu)) {
    p->setGroupCmd(value);
    p->setPitch(number);
    writeLists(*p, text, value);
  }
  if (auto* p = dynamic_cast<DtModelessVCPdu*>(&pdu)) {
    p->setPrimary(text);
    p->setSecondary(text);
    writeLists(*p, text, value);
  }
  if (auto* p = dynamic_cast<DtOptionsPdu*>(&pdu)) {
    p->setOptionPresent(static_cast<DtVistralOption>(value % 140 - 5));
    p->clearOptionPresent(static_cast<DtVistralOption>(value % 130));
    p->setOverlay(static_cast<DtOverlayOption>(value));
    p->setSmoothing(static_cast<DtSmoothingOption>(-value));
    p->setVideoCaptureCommand(static_cast<DtVistralControlVideoCaptureCommand>(value));
    p->setFeatureCommand(static_cast<DtVistralControlFeatureCommand>(value));
    p->setVideoCaptureFramesPerSecond(value);
    p->setTerrainScale(1e300);
    p->setBroadcasting(value % 2 == 0);
    p->setExit(value % 3 == 0);
    p->setDatabaseToLoad(text);
    p->setDate(text);
    p->setCurrentModelSet(text);
    p->setVideoCaptureFilenameBase(text);
    p->setFeatureFilename(text);
  }
}

// The draw-control bodies: every setter of the object's class, with values and indices taken from the input.
inline void writeDrawControl(DtVistralDrawControlPdu& pdu, const std::string& text) {
  const int value = static_cast<int>(text.size()) * 7919 + (text.empty() ? 0 : text[0]);
  const auto number = static_cast<double>(value) / 7.0;
  unsigned char rgba[4] = {static_cast<unsigned char>(value), 1, 2, 3};
  pdu.setObjectId(static_cast<std::uint32_t>(value));
  (void)pdu.setInternalText(text, static_cast<unsigned long>(value) % 70000);
  (void)pdu.internalText(value, static_cast<unsigned long>(value) % 70000).length();
  if (auto* p = dynamic_cast<DtVdcAttachablePdu*>(&pdu)) {
    const char pos[2] = {static_cast<char>(value), static_cast<char>(-value)};
    p->attachTo(pos, pos);
    p->attachTo(text, DtVector64(number, 1e300, -number));
    p->setRelativeLocation(static_cast<unsigned char>(value), value % 300 - 100);
    p->setColor(rgba);
    p->setFlashing(value % 2 == 0);
    p->setAttachmentType(static_cast<DtVdcAttachablePdu::DtVcObjectAttachment>(value));
  }
  if (auto* p = dynamic_cast<DtVdcLinePdu*>(&pdu)) {
    p->setNumSegments(static_cast<unsigned char>(value));
    for (unsigned i : {0U, static_cast<unsigned>(value) % 300, ~0U}) {
      p->setArrowStyle(i, static_cast<DtVdcLinePdu::DtVdcLineArrowStyle>(value));
      p->setAppearance(i, static_cast<DtVdcLinePdu::DtVdcLineAppearance>(value));
      p->setThickness(i, static_cast<unsigned char>(value));
      p->setPattern(i, static_cast<std::uint32_t>(value));
      p->setColor(i, rgba);
      p->setPercentage(i, static_cast<unsigned char>(value));
    }
    p->setCheckLos(value % 3 == 0);
    p->setProjected(value % 5 == 0);
  }
  if (auto* p = dynamic_cast<DtVdcPolyObjectPduBase*>(&pdu)) {
    p->setFill(value % 2 == 1);
    p->setScale(DtVector64(number, 1e300, -1e-300));
    p->setRotation(DtTaitBryan(number, 1e300, -1e-300));
  }
  if (auto* p = dynamic_cast<DtVdcTrianglePduBase*>(&pdu)) {
    for (int i : {-1, value % 5, 1 << 30}) p->setPoint(i, DtVector64(number, number, number));
  }
  if (auto* p = dynamic_cast<DtVdcAreaPduBase*>(&pdu)) {
    p->setNumPoints(value);
    for (int i : {-1, value % 20, 1 << 30}) p->setPoint(i, DtVector64(number, number, number));
    p->setTextureDirectory(text);
    p->setTextureFilename(text + text);
    p->setNumTextureTiles(value);
  }
  if (auto* p = dynamic_cast<DtVdcTextPduBase*>(&pdu)) p->setText(text);
  if (auto* p = dynamic_cast<DtVdcLayerPduBase*>(&pdu)) p->setName(text);
  if (auto* p = dynamic_cast<DtVdcCommandPduBase*>(&pdu)) p->setLayerId(static_cast<std::uint32_t>(value));
  if (auto* p = dynamic_cast<DtVdcAttributePduBase*>(&pdu)) {
    p->setName(text);
    p->setAttributeGroupId(static_cast<std::uint32_t>(value));
    if (value % 3 == 0) p->setRange(-number, number);
  }
  if (auto* p = dynamic_cast<DtVdcAttributeUpdatePduBase*>(&pdu)) {
    p->setText(text);
    p->setGroupId(static_cast<std::uint32_t>(value));
    p->setValueX(number);
    p->setValueY(-number);
  }
  pdu.setParamVersion(static_cast<unsigned>(value) % 3);
}

// Writes through every setter, including the text form, with values taken from the input.
inline void writeEverything(DtVistralControlPdu& pdu, const std::string& text) {
  pdu.setFromString(text.c_str());
  pdu.setFromString(pdu.string());
  pdu.setViewerId(text);
  pdu.setSenderId(text);
  pdu.setIgnoreFlags(text.size());
  pdu.setStatusCommand(!pdu.statusCommand());
  (void)pdu.isNumber(text.c_str());
  writeViewControl(pdu, text);
  if (auto* draw = dynamic_cast<DtVistralDrawControlPdu*>(&pdu)) writeDrawControl(*draw, text);
}

}  // namespace fuzz
