#include "vistralcontrol/vistralRemoteController.h"

#include <algorithm>
#include <cstring>
#include <iterator>

#include "core/vcLayout.h"
#include "tarvex/dtDump.h"
#include "tarvex/dtExerciseConn.h"
#include "vistralcontrol/absoluteVcPdu.h"
#include "vistralcontrol/compassVcPdu.h"
#include "vistralcontrol/groupVcPdu.h"
#include "vistralcontrol/hVistralControlInter.h"
#include "vistralcontrol/mimicTrackVcPdu.h"
#include "vistralcontrol/mimicVcPdu.h"
#include "vistralcontrol/modelessVcPdu.h"
#include "vistralcontrol/optionsPdu.h"
#include "vistralcontrol/orbitVcPdu.h"
#include "vistralcontrol/pivotVcPdu.h"
#include "vistralcontrol/tetherTrackVcPdu.h"
#include "vistralcontrol/tetherVcPdu.h"
#include "vistralcontrol/trackVcPdu.h"

namespace {
// Writes a field the caller gave and clears its ignore bits; a field not given stays unset and ignored.
template <class Pdu, class T, class Setter>
void given(Pdu& pdu, unsigned long& flags, const T* value, Setter setter, unsigned long bits) {
  if (value == nullptr) return;
  (pdu.*setter)(*value);
  flags &= ~bits;
}

// Fills the list of a modeless or group PDU: entries to add are the list's names.
template <class Pdu>
void setEntitiesToAdd(Pdu& pdu, const DtGlobalObjectDesignatorList& list) {
  pdu.setNumEntitiesToAdd(list.count());
  for (int i = 0; i < list.count(); ++i) pdu.setEntityToAdd(i, list.name(i));
}
}  // namespace

const DtString DtVistralRemoteController::SEND_TO_ALL("0:0:0");

DtCustomRemoteControlSender::~DtCustomRemoteControlSender() = default;

DtVistralRemoteController::CbStruct::CbStruct(const DtString& viewerName, Callback cb, void* userData)
    : viewer(viewerName), function(cb), usr(userData) {}

DtVistralRemoteController::DtVistralRemoteController(DtCustomRemoteControlSender* sender,
                                                     const DtString& target)
    : targetId_(target), sender_(sender) {}

DtVistralRemoteController::DtVistralRemoteController(DtExerciseConn* conn, const DtString& target)
    : targetId_(target), conn_(conn) {
  attachToConnection();
}

DtVistralRemoteController::DtVistralRemoteController(const char* execName, const char* federateName,
                                                     DtFomMapper* mapper, const char* fedFile,
                                                     const DtString& target)
    : targetId_(target),
      ownedConn_(std::make_unique<DtExerciseConn>(execName, federateName, mapper, fedFile, nullptr)) {
  conn_ = ownedConn_.get();
  attachToConnection();
}

DtVistralRemoteController::DtVistralRemoteController(const char* execName, const char* federateName,
                                                     const char* fedFile, const char* backend,
                                                     void* rtiAmbassador, const DtString& target)
    : targetId_(target),
      ownedConn_(std::make_unique<DtExerciseConn>(execName, federateName, fedFile, backend, rtiAmbassador)) {
  conn_ = ownedConn_.get();
  attachToConnection();
}

void DtVistralRemoteController::attachToConnection() {
  if (conn_ != nullptr) DtVistralControlInteraction::addCallback(conn_, &processVistralControlCb, this);
}

DtVistralRemoteController::~DtVistralRemoteController() {
  if (conn_ != nullptr) DtVistralControlInteraction::removeCallback(conn_, &processVistralControlCb, this);
  while (DtListItem* item = callbacks_.first()) delete static_cast<CbStruct*>(callbacks_.remove(item));
}

void DtVistralRemoteController::setCustomSender(DtCustomRemoteControlSender* sender) { sender_ = sender; }

void DtVistralRemoteController::setTargetVistralId(const DtString& id) { targetId_ = id; }
const DtString& DtVistralRemoteController::targetVistralId() const { return targetId_; }
void DtVistralRemoteController::setControllerId(const DtString& id) { controllerId_ = id; }
const DtString& DtVistralRemoteController::controllerId() const { return controllerId_; }

void DtVistralRemoteController::addViewModeChangeCallback(Callback cb, void* usr, const DtString& viewer) {
  callbacks_.add(new CbStruct(viewer, cb, usr));
}

void DtVistralRemoteController::removeViewModeChangeCallback(Callback cb, void* usr, const DtString& viewer) {
  DtListItem* item = callbacks_.first();
  while (item != nullptr) {
    DtListItem* next = item->next();
    auto* entry = static_cast<CbStruct*>(item->data());
    if (entry->function == cb && entry->usr == usr && entry->viewer == viewer) {
      if (removal_.eraseNow()) {
        delete static_cast<CbStruct*>(callbacks_.remove(item));
      } else {
        entry->function = nullptr;  // the walk in progress still holds this node
      }
    }
    item = next;
  }
}

void DtVistralRemoteController::requestCurrentViewMode(const DtString& /*viewer*/) const {
  send(DtRequestStateVCPdu());
}

template <typename Fill>
void DtVistralRemoteController::sendModeless(unsigned long flags, Fill fill) const {
  DtModelessVCPdu pdu;
  fill(pdu);
  pdu.setIgnoreFlags(flags);
  send(pdu);
}

void DtVistralRemoteController::setPrimary(const DtString& primary) const {
  sendModeless(DtVcIgnore::SecondEntity | DtVcIgnore::GroupLists,
               [&](DtModelessVCPdu& p) { p.setPrimary(primary); });
}

void DtVistralRemoteController::setSecondary(const DtString& secondary) const {
  sendModeless(DtVcIgnore::FirstEntity | DtVcIgnore::GroupLists,
               [&](DtModelessVCPdu& p) { p.setSecondary(secondary); });
}

void DtVistralRemoteController::setPrimarySecondary(const DtString& primary,
                                                    const DtString& secondary) const {
  sendModeless(DtVcIgnore::GroupLists, [&](DtModelessVCPdu& p) {
    p.setPrimary(primary);
    p.setSecondary(secondary);
  });
}

void DtVistralRemoteController::setGroup(const DtGlobalObjectDesignatorList& list) const {
  // A remove count of -1 replaces the whole group.
  sendModeless(DtVcIgnore::FirstEntity | DtVcIgnore::SecondEntity, [&](DtModelessVCPdu& p) {
    p.setNumEntitiesToRemove(-1);
    setEntitiesToAdd(p, list);
  });
}

void DtVistralRemoteController::addToGroup(const DtGlobalObjectDesignatorList& list) const {
  sendModeless(DtVcIgnore::FirstEntity | DtVcIgnore::SecondEntity, [&](DtModelessVCPdu& p) {
    p.setNumEntitiesToRemove(0);
    setEntitiesToAdd(p, list);
  });
}

void DtVistralRemoteController::removeFromGroup(const DtGlobalObjectDesignatorList& list) const {
  sendModeless(DtVcIgnore::FirstEntity | DtVcIgnore::SecondEntity, [&](DtModelessVCPdu& p) {
    p.setNumEntitiesToRemove(list.count());
    p.setNumEntitiesToAdd(0);
    for (int i = 0; i < list.count(); ++i) p.setEntityToRemove(i, list.name(i));
  });
}

void DtVistralRemoteController::reset() const {
  DtMoveVCPdu pdu;
  pdu.setReset(true);
  pdu.setIgnoreFlags(DtVcIgnore::All);
  send(pdu);
}

void DtVistralRemoteController::moveEyepoint(Direction direction) const {
  DtMoveVCPdu pdu;
  pdu.setMove(static_cast<DtMoveVCPdu::Direction>(direction));
  pdu.setIgnoreFlags(DtVcIgnore::All & ~DtVcIgnore::Step);
  send(pdu);
}

void DtVistralRemoteController::turnEyepoint(Direction direction) const {
  DtMoveVCPdu pdu;
  pdu.setTurn(static_cast<DtMoveVCPdu::Direction>(direction));
  pdu.setIgnoreFlags(DtVcIgnore::All & ~DtVcIgnore::Step);
  send(pdu);
}

void DtVistralRemoteController::set(const DtVector64* position, const DtTaitBryan* orientation) const {
  if (position == nullptr && orientation == nullptr) return;
  DtMoveVCPdu pdu;
  unsigned long flags = DtVcIgnore::All;
  given(pdu, flags, position, &DtMoveVCPdu::setPosition, DtVcIgnore::Position);
  given(pdu, flags, orientation, &DtMoveVCPdu::setOrientation, DtVcIgnore::Orientation);
  pdu.setIgnoreFlags(flags);
  send(pdu);
}

void DtVistralRemoteController::setMode(DtViewerCommand mode, const DtVector64* position,
                                        const DtTaitBryan* orientation) const {
  using Controller = DtVistralRemoteController;
  // Each mode switch sends its PDU with every field ignored, so the viewer keeps its parameters.
  struct ModeSwitch {
    DtViewerCommand command;
    void (*send)(const Controller&);
  };
  static constexpr ModeSwitch kSwitches[] = {
      {DtVcAbsolute, [](const Controller& c) { c.setAbsoluteMode(nullptr, nullptr); }},
      {DtVcTether, [](const Controller& c) { c.setTetherMode(nullptr, nullptr, nullptr); }},
      {DtVcCompass, [](const Controller& c) { c.setCompassMode(nullptr, nullptr, nullptr, nullptr); }},
      {DtVcMimic, [](const Controller& c) { c.setMimicMode(nullptr, nullptr); }},
      {DtVcOrbit, [](const Controller& c) { c.setOrbitMode(nullptr, nullptr, nullptr, nullptr, nullptr); }},
      {DtVcTrack, [](const Controller& c) { c.setTrackMode(nullptr, nullptr); }},
      {DtVcTetherTrack, [](const Controller& c) { c.setTetherTrackMode(nullptr, nullptr, nullptr); }},
      {DtVcMimicTrack, [](const Controller& c) { c.setMimicTrackMode(nullptr, nullptr, nullptr); }},
      {DtVcGroup, [](const Controller& c) { c.setGroupMode(nullptr, nullptr, nullptr, nullptr); }},
      {DtVcPivot, [](const Controller& c) { c.setPivotMode(nullptr, nullptr, nullptr, nullptr); }},
  };
  const auto* found = std::find_if(std::begin(kSwitches), std::end(kSwitches),
                                   [mode](const ModeSwitch& s) { return s.command == mode; });
  if (found != std::end(kSwitches)) {
    found->send(*this);
  } else {
    DtDumpEnum("Cannot change mode to ", DtEnumString(mode), mode);
  }
  set(position, orientation);
}

void DtVistralRemoteController::setAbsoluteMode(const DtVector64* location,
                                                const DtTaitBryan* orientation) const {
  DtAbsoluteVCPdu pdu;
  unsigned long flags = DtVcIgnore::All;
  given(pdu, flags, location, &DtAbsoluteVCPdu::setWorldLocation, DtVcIgnore::Position);
  given(pdu, flags, orientation, &DtAbsoluteVCPdu::setOrientation, DtVcIgnore::Orientation);
  pdu.setIgnoreFlags(flags);
  send(pdu);
}

void DtVistralRemoteController::setCompassMode(const DtString* attach, const float* radius,
                                               const float* bodyHeading, const float* pitch) const {
  DtCompassVCPdu pdu;
  unsigned long flags = DtVcIgnore::All;
  given(pdu, flags, attach, &DtCompassVCPdu::setAttachId, DtVcIgnore::FirstEntity);
  given(pdu, flags, radius, &DtCompassVCPdu::setRadius, DtVcIgnore::Radius);
  given(pdu, flags, bodyHeading, &DtCompassVCPdu::setBodyHeading, DtVcIgnore::BodyHeading);
  given(pdu, flags, pitch, &DtCompassVCPdu::setPitch, DtVcIgnore::Pitch);
  pdu.setIgnoreFlags(flags);
  send(pdu);
}

void DtVistralRemoteController::setMimicMode(const DtString* attach, const DtVector64* offset) const {
  DtMimicVCPdu pdu;
  unsigned long flags = DtVcIgnore::All;
  given(pdu, flags, attach, &DtMimicVCPdu::setAttachId, DtVcIgnore::FirstEntity);
  given(pdu, flags, offset, &DtMimicVCPdu::setOffset, DtVcIgnore::AttachOffset);
  pdu.setIgnoreFlags(flags);
  send(pdu);
}

void DtVistralRemoteController::setTurretMode(const DtString* attach, const DtVector64* offset) const {
  DtOffsetMimicVCPdu pdu;
  unsigned long flags = DtVcIgnore::All;
  given(pdu, flags, attach, &DtOffsetMimicVCPdu::setAttachId, DtVcIgnore::FirstEntity);
  given(pdu, flags, offset, &DtOffsetMimicVCPdu::setOffset, DtVcIgnore::AttachOffset);
  pdu.setIgnoreFlags(flags);
  send(pdu);
}

void DtVistralRemoteController::setOrbitMode(const DtString* attach, const float* radius,
                                             const float* heading, const float* pitch,
                                             const float* azimuthRate) const {
  DtOrbitVCPdu pdu;
  unsigned long flags = DtVcIgnore::All;
  given(pdu, flags, attach, &DtOrbitVCPdu::setAttachId, DtVcIgnore::FirstEntity);
  given(pdu, flags, radius, &DtOrbitVCPdu::setRadius, DtVcIgnore::Radius);
  given(pdu, flags, heading, &DtOrbitVCPdu::setHeading, DtVcIgnore::Heading);
  given(pdu, flags, pitch, &DtOrbitVCPdu::setPitch, DtVcIgnore::Pitch);
  given(pdu, flags, azimuthRate, &DtOrbitVCPdu::setAzimuthRate, DtVcIgnore::AzimuthRate);
  pdu.setIgnoreFlags(flags);
  send(pdu);
}

void DtVistralRemoteController::setPivotMode(const DtVector64* pivot, const float* radius,
                                             const float* bodyHeading, const float* pitch) const {
  DtPivotVCPdu pdu;
  unsigned long flags = DtVcIgnore::All;
  given(pdu, flags, pivot, &DtPivotVCPdu::setPivotPoint, DtVcIgnore::Position);
  given(pdu, flags, radius, &DtPivotVCPdu::setRadius, DtVcIgnore::Radius);
  given(pdu, flags, bodyHeading, &DtPivotVCPdu::setBodyHeading, DtVcIgnore::BodyHeading);
  given(pdu, flags, pitch, &DtPivotVCPdu::setPitch, DtVcIgnore::Pitch);
  pdu.setIgnoreFlags(flags);
  send(pdu);
}

void DtVistralRemoteController::setTetherMode(const DtString* attach, const DtVector64* offset,
                                              const DtTaitBryan* orientation) const {
  DtTetherVCPdu pdu;
  unsigned long flags = DtVcIgnore::All;
  given(pdu, flags, attach, &DtTetherVCPdu::setAttachId, DtVcIgnore::FirstEntity);
  given(pdu, flags, offset, &DtTetherVCPdu::setTopoUpOffset, DtVcIgnore::TetherOffset);
  given(pdu, flags, orientation, &DtTetherVCPdu::setOrientation, DtVcIgnore::Orientation);
  pdu.setIgnoreFlags(flags);
  send(pdu);
}

void DtVistralRemoteController::setTrackMode(const DtString* track, const DtVector64* location) const {
  DtTrackVCPdu pdu;
  unsigned long flags = DtVcIgnore::All;
  given(pdu, flags, track, &DtTrackVCPdu::setTrackId, DtVcIgnore::FirstEntity);
  given(pdu, flags, location, &DtTrackVCPdu::setWorldLocation, DtVcIgnore::Position);
  pdu.setIgnoreFlags(flags);
  send(pdu);
}

void DtVistralRemoteController::setMimicTrackMode(const DtString* attach, const DtString* track,
                                                  const DtVector64* offset) const {
  DtMimicTrackVCPdu pdu;
  unsigned long flags = DtVcIgnore::All;
  given(pdu, flags, attach, &DtMimicTrackVCPdu::setAttachId, DtVcIgnore::FirstEntity);
  given(pdu, flags, track, &DtMimicTrackVCPdu::setTrackId, DtVcIgnore::SecondEntity);
  // Mimic-track's offset is a position, unlike the attach offset of the other mimic modes.
  given(pdu, flags, offset, &DtMimicTrackVCPdu::setOffset, DtVcIgnore::Position);
  pdu.setIgnoreFlags(flags);
  send(pdu);
}

void DtVistralRemoteController::setTetherTrackMode(const DtString* attach, const DtString* track,
                                                   const DtVector64* offset) const {
  DtTetherTrackVCPdu pdu;
  unsigned long flags = DtVcIgnore::All;
  given(pdu, flags, attach, &DtTetherTrackVCPdu::setAttachId, DtVcIgnore::FirstEntity);
  given(pdu, flags, track, &DtTetherTrackVCPdu::setTrackId, DtVcIgnore::SecondEntity);
  given(pdu, flags, offset, &DtTetherTrackVCPdu::setOffset, DtVcIgnore::AttachOffset);
  pdu.setIgnoreFlags(flags);
  send(pdu);
}

void DtVistralRemoteController::setGroupMode(const DtGlobalObjectDesignatorList* list, const float* radial,
                                             const float* heading, const float* pitch) const {
  sendGroupPdu(list, radial, heading, pitch, 0);
}

void DtVistralRemoteController::setWideGroupMode(const DtGlobalObjectDesignatorList* list,
                                                 const float* radial, const float* heading,
                                                 const float* pitch) const {
  sendGroupPdu(list, radial, heading, pitch, 1);
}

void DtVistralRemoteController::sendGroupPdu(const DtGlobalObjectDesignatorList* list, const float* radial,
                                             const float* heading, const float* pitch, int wide) const {
  DtGroupVCPdu pdu;
  pdu.setGroupCmd(wide);
  unsigned long flags = DtVcIgnore::All;
  given(pdu, flags, radial, &DtGroupVCPdu::setRadialOffset, DtVcIgnore::GroupRadialOffset);
  given(pdu, flags, heading, &DtGroupVCPdu::setHeadingOffset, DtVcIgnore::GroupHeadingOffset);
  given(pdu, flags, pitch, &DtGroupVCPdu::setPitchOffset, DtVcIgnore::GroupPitchOffset);
  if (list != nullptr) {
    setEntitiesToAdd(pdu, *list);
    pdu.setNumEntitiesToRemove(-1);
  } else {
    pdu.setNumEntitiesToAdd(0);
    pdu.setNumEntitiesToRemove(0);
  }
  pdu.setIgnoreFlags(flags);
  send(pdu);
}

// ---------------------------------------------------------------------------------------------------------
// Viewer options: one options PDU per call, one option set, the ignore-flags word untouched (it is the
// options PDU's presence bitfield).

template <typename Fill>
void DtVistralRemoteController::sendOptions(Fill fill) const {
  DtOptionsPdu pdu;
  fill(pdu);
  send(pdu);
}

#define VISTRAL_OPTION(signature, call)            \
  signature {                                      \
    sendOptions([&](DtOptionsPdu& p) { p.call; }); \
  }

VISTRAL_OPTION(void DtVistralRemoteController::setStepsize(float size) const, setStepsize(size))
VISTRAL_OPTION(void DtVistralRemoteController::setTurnrate(float rate) const, setTurnrate(rate))
VISTRAL_OPTION(void DtVistralRemoteController::increaseStepsize() const, setIncrementStepsize(true))
VISTRAL_OPTION(void DtVistralRemoteController::increaseTurnrate() const, setIncrementTurnrate(true))
VISTRAL_OPTION(void DtVistralRemoteController::decreaseStepsize() const, setDecrementStepsize(true))
VISTRAL_OPTION(void DtVistralRemoteController::decreaseTurnrate() const, setDecrementTurnrate(true))
VISTRAL_OPTION(void DtVistralRemoteController::setOverlayEnabled(bool on) const,
               setOverlay(on ? DtOverlayMinimal : DtOverlayNone))
VISTRAL_OPTION(void DtVistralRemoteController::setSmoothing(DtSmoothingOption s) const, setSmoothing(s))
VISTRAL_OPTION(void DtVistralRemoteController::setSmoothingPeriod(double v) const, setSmoothingPeriod(v))
VISTRAL_OPTION(void DtVistralRemoteController::setSoundEnabled(bool on) const, setSound(on))
VISTRAL_OPTION(void DtVistralRemoteController::setEntityLabelsEnabled(bool on) const, setEntityLabels(on))
VISTRAL_OPTION(void DtVistralRemoteController::setTrailingEffectsEnabled(bool on) const,
               setTrailingEffects(on))
VISTRAL_OPTION(void DtVistralRemoteController::setTrajectoryHistoriesEnabled(bool on) const,
               setTrajectoryHistory(on))
VISTRAL_OPTION(void DtVistralRemoteController::setAggregateLevel(int level) const,
               setAggregateLevel(static_cast<unsigned>(level)))
VISTRAL_OPTION(void DtVistralRemoteController::setAggregateHighestOnly(bool on) const,
               setAggregateHighestOnly(on))
VISTRAL_OPTION(void DtVistralRemoteController::setGroundClampingEnabled(bool on) const, setGroundClamping(on))
VISTRAL_OPTION(void DtVistralRemoteController::setGroundClampRange(double v) const, setClampRange(v))
VISTRAL_OPTION(void DtVistralRemoteController::setTimeOfDay(double v) const, setTimeOfDay(v))
VISTRAL_OPTION(void DtVistralRemoteController::setNearClippingPlane(double v) const, setNearClip(v))
VISTRAL_OPTION(void DtVistralRemoteController::setFarClippingPlane(double v) const, setFarClip(v))
VISTRAL_OPTION(void DtVistralRemoteController::setVerticalFieldOfView(double v) const, setFov(v))
VISTRAL_OPTION(void DtVistralRemoteController::setFogEnabled(bool on) const, setFog(on))
VISTRAL_OPTION(void DtVistralRemoteController::setDatabaseToLoad(const DtString& s) const,
               setDatabaseToLoad(s))
VISTRAL_OPTION(void DtVistralRemoteController::setDate(const DtString& s) const, setDate(s))
VISTRAL_OPTION(void DtVistralRemoteController::exit(), setExit(true))
VISTRAL_OPTION(void DtVistralRemoteController::setClouds(bool on), setClouds(on))
VISTRAL_OPTION(void DtVistralRemoteController::setSkyDome(bool on), setSkyDome(on))
VISTRAL_OPTION(void DtVistralRemoteController::setMirrorMessageEveryFrame(bool on),
               setMirrorMessageEveryFrame(on))
VISTRAL_OPTION(void DtVistralRemoteController::setMirroring(bool on), setMirroring(on))
VISTRAL_OPTION(void DtVistralRemoteController::setBroadcasting(bool on), setBroadcasting(on))
VISTRAL_OPTION(void DtVistralRemoteController::setClusteringLabels(bool on), setClusteringLabels(on))
VISTRAL_OPTION(void DtVistralRemoteController::setTacticalGraphicsLabels(bool on),
               setTacticalGraphicsLabels(on))
VISTRAL_OPTION(void DtVistralRemoteController::setShowAggregates(bool on), setShowAggregates(on))
VISTRAL_OPTION(void DtVistralRemoteController::setShowEmitters(bool on), setShowEmitters(on))
VISTRAL_OPTION(void DtVistralRemoteController::setXr(bool on), setXREnabled(on))
VISTRAL_OPTION(void DtVistralRemoteController::setHatLabels(bool on), setHATenabled(on))
VISTRAL_OPTION(void DtVistralRemoteController::setCurrentModelSet(const DtString& s), setCurrentModelSet(s))
VISTRAL_OPTION(void DtVistralRemoteController::setNextModelSet(), setShowNextModelSet(true))
VISTRAL_OPTION(void DtVistralRemoteController::setPrevModelSet(), setShowPrevModelSet(true))
VISTRAL_OPTION(void DtVistralRemoteController::setCurrentTextureSet(const DtString& s),
               setCurrentTextureSet(s))
VISTRAL_OPTION(void DtVistralRemoteController::setNextTextureSet(), setShowNextTextureSet(true))
VISTRAL_OPTION(void DtVistralRemoteController::setPrevTextureSet(), setShowPrevTextureSet(true))
VISTRAL_OPTION(void DtVistralRemoteController::setTerrainScale(double v), setTerrainScale(v))
VISTRAL_OPTION(void DtVistralRemoteController::setObjectScale(double v), setObjectScale(v))
VISTRAL_OPTION(void DtVistralRemoteController::startVideoRecording(),
               setVideoCaptureCommand(DtVistralControlVideoCaptureRecord))
VISTRAL_OPTION(void DtVistralRemoteController::stopVideoRecording(),
               setVideoCaptureCommand(DtVistralControlVideoCaptureStop))
VISTRAL_OPTION(void DtVistralRemoteController::pauseVideoRecording(),
               setVideoCaptureCommand(DtVistralControlVideoCapturePause))
VISTRAL_OPTION(void DtVistralRemoteController::unpauseVideoRecording(),
               setVideoCaptureCommand(DtVistralControlVideoCaptureUnpause))
VISTRAL_OPTION(void DtVistralRemoteController::setVideoCaptureRecordInsets(bool on),
               setVideoCaptureRecordInsets(on))
VISTRAL_OPTION(void DtVistralRemoteController::setVideoCaptureFramesPerSecond(int fps),
               setVideoCaptureFramesPerSecond(fps))
VISTRAL_OPTION(void DtVistralRemoteController::setVideoCaptureFilenameBase(const DtString& s),
               setVideoCaptureFilenameBase(s))
VISTRAL_OPTION(void DtVistralRemoteController::setVideoCaptureDirectory(const DtString& s),
               setVideoCaptureDirectory(s))
VISTRAL_OPTION(void DtVistralRemoteController::setConstrainWithFloor(bool on), setConstrainWithFloor(on))
VISTRAL_OPTION(void DtVistralRemoteController::setFloor(double v), setFloor(v))
VISTRAL_OPTION(void DtVistralRemoteController::setConstrainViewToAll(bool on), setConstrainToAll(on))
VISTRAL_OPTION(void DtVistralRemoteController::setBlockedDistance(double v), setBlockedDistance(v))
VISTRAL_OPTION(void DtVistralRemoteController::setUseNearClipForBlockedDistance(bool on),
               setUseNearClipForBlockedDistance(on))
VISTRAL_OPTION(void DtVistralRemoteController::clearFeatures(),
               setFeatureCommand(DtVistralControlFeatureClear))

#undef VISTRAL_OPTION

void DtVistralRemoteController::startVideoRecording(const DtString& file) {
  sendOptions([&](DtOptionsPdu& p) {
    p.setVideoCaptureCommand(DtVistralControlVideoCaptureRecord);
    p.setVideoCaptureFilename(file);
  });
}

void DtVistralRemoteController::loadFeatures(const DtString& file) {
  sendOptions([&](DtOptionsPdu& p) {
    p.setFeatureFilename(file);
    p.setFeatureCommand(DtVistralControlFeatureLoad);
  });
}

// ---------------------------------------------------------------------------------------------------------
// Sending and receiving

void DtVistralRemoteController::setIgnoreCommandsSentFromUs(bool ignore) { ignoreOwnCommands_ = ignore; }

void DtVistralRemoteController::send(const DtVistralControlPdu& pdu) const {
  // The caller's PDU is addressed for the duration of the send and then given its own ids back.
  auto& addressed = const_cast<DtVistralControlPdu&>(pdu);
  // The viewer id and the sender id are two name fields side by side.
  constexpr int kIdsOffset = VcLayout::Fixed::viewerId;
  static_assert(VcLayout::Fixed::senderId == kIdsOffset + VcLayout::kNameWidth,
                "sender id follows viewer id");
  unsigned char savedIds[2 * VcLayout::kNameWidth];
  // Straight out of the image when it holds both fields, as every PDU that a controller builds does.
  if (const unsigned char* ids = addressed.bytesAt(kIdsOffset, sizeof savedIds)) {
    std::memcpy(savedIds, ids, sizeof savedIds);
  } else {
    addressed.copyBytesAt(kIdsOffset, savedIds, sizeof savedIds);
  }
  addressed.setViewerId(targetId_);
  addressed.setSenderId(controllerId_);
  if (conn_ != nullptr && conn_->interClassDescByName(DtVistralControlInteraction::kClassName) != nullptr) {
    interaction_.setVcPdu(addressed);
    // The class is there, so only a missing encoder fails the send, and the interaction warns about that.
    static_cast<void>(conn_->sendInteraction(interaction_));
  }
  if (sender_ != nullptr) sender_->sendPdu(addressed.packet(), addressed.length());
  addressed.setBytesAt(kIdsOffset, savedIds, sizeof savedIds);
}

void DtVistralRemoteController::processVistralControlCb(DtVistralControlInteraction* inter, void* usr) {
  if (inter != nullptr && usr != nullptr)
    static_cast<const DtVistralRemoteController*>(usr)->processVistralControl(inter);
}

void DtVistralRemoteController::processVistralControl(DtVistralControlInteraction* inter) const {
  const DtVistralControlPdu* pdu = inter ? inter->vcPdu() : nullptr;
  if (pdu == nullptr) return;
  if (ignoreOwnCommands_ && std::strcmp(pdu->senderId().c_str(), controllerId_.c_str()) == 0) return;
  removal_.walk(
      [&] {
        for (DtListItem* item = callbacks_.first(); item != nullptr; item = item->next()) {
          const auto* entry = static_cast<const CbStruct*>(item->data());
          if (entry->function == nullptr) continue;  // removed by an earlier callback of this walk
          if (entry->viewer == SEND_TO_ALL || entry->viewer == pdu->viewerId())
            entry->function(*pdu, entry->usr);
        }
      },
      [&] {
        for (DtListItem* item = callbacks_.first(); item != nullptr;) {
          DtListItem* next = item->next();
          if (static_cast<CbStruct*>(item->data())->function == nullptr)
            delete static_cast<CbStruct*>(callbacks_.remove(item));
          item = next;
        }
      });
}
