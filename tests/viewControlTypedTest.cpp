// What every view-control class must do: build empty at its length and command, survive the receive path and
// copying byte for byte, read its own text form back to the same bytes, and give back through its getters
// exactly the random fields it was given.
#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <random>
#include <type_traits>

#include "vcTestSupport.h"
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

namespace {
// Calls v(getter, setter) for each pair.
template <class V>
void each(V&) {}
template <class V, class G, class S, class... Rest>
void each(V& v, G get, S set, Rest... rest) {
  v(get, set);
  each(v, rest...);
}

// Per class: command, full length, a text form, whether it has entity lists, and its getter/setter pairs.
template <class T>
struct Traits;
#define VC_TRAITS(Class, command, fullLength, sample, entityLists, ...) \
  template <>                                                           \
  struct Traits<Class> {                                                \
    using T = Class;                                                    \
    static constexpr int kCommand = command;                            \
    static constexpr int kLength = fullLength;                          \
    static constexpr const char* kText = sample;                        \
    static constexpr bool kLists = entityLists;                         \
    template <class V>                                                  \
    static void fields(V& v) {                                          \
      each(v, __VA_ARGS__);                                             \
    }                                                                   \
  }
VC_TRAITS(DtAbsoluteVCPdu, 0, 196, "1000.5 -2000.25 30 0.5 0.25 -1", false, &T::worldLocation,
          &T::setWorldLocation, &T::orientation, &T::setOrientation);
VC_TRAITS(DtTetherVCPdu, 1, 308, "tank-1 1.5 -2 3 0.5 0.25 -1 Lead", false, &T::topoUpOffset,
          &T::setTopoUpOffset, &T::orientation, &T::setOrientation, &T::attachId, &T::setAttachId,
          &T::markingText, &T::setMarkingText);
VC_TRAITS(DtCompassVCPdu, 2, 308, "1:2:3,10,20,30,40,50,60,Tank 1", false, &T::radius, &T::setRadius,
          &T::bodyHeading, &T::setBodyHeading, &T::pitch, &T::setPitch, &T::headingOffset,
          &T::setHeadingOffset, &T::pitchOffset, &T::setPitchOffset, &T::roll, &T::setRoll, &T::attachId,
          &T::setAttachId, &T::markingText, &T::setMarkingText);
VC_TRAITS(DtMimicVCPdu, 3, 308, "mimicked 0 0 10 1 2 3 Wing", false, &T::offset, &T::setOffset,
          &T::bodyOrientation, &T::setBodyOrientation, &T::attachId, &T::setAttachId, &T::markingText,
          &T::setMarkingText);
VC_TRAITS(DtOffsetMimicVCPdu, 4, 308, "1 2 3 4 5 6 7 8", false, &T::offset, &T::setOffset,
          &T::bodyOrientation, &T::setBodyOrientation, &T::attachId, &T::setAttachId, &T::markingText,
          &T::setMarkingText);
VC_TRAITS(DtOrbitVCPdu, 5, 312, "Tank 7,100,0.5,1,2,3,4,5,Blue one", false, &T::radius, &T::setRadius,
          &T::azimuthRate, &T::setAzimuthRate, &T::heading, &T::setHeading, &T::pitch, &T::setPitch,
          &T::headingOffset, &T::setHeadingOffset, &T::pitchOffset, &T::setPitchOffset, &T::roll, &T::setRoll,
          &T::attachId, &T::setAttachId, &T::markingText, &T::setMarkingText);
VC_TRAITS(DtTrackVCPdu, 6, 312, "target 1000.25 -2000.5 30 T-72", false, &T::worldLocation,
          &T::setWorldLocation, &T::trackId, &T::setTrackId, &T::markingText, &T::setMarkingText);
VC_TRAITS(DtTetherTrackVCPdu, 7, 424, "a b 0 0 10 Lead Target", false, &T::offset, &T::setOffset,
          &T::attachId, &T::setAttachId, &T::trackId, &T::setTrackId, &T::attachMarkingText,
          &T::setAttachMarkingText, &T::trackMarkingText, &T::setTrackMarkingText);
VC_TRAITS(DtMimicTrackVCPdu, 8, 424, "a 1,b 2,1,2,3,first mark,second mark", false, &T::offset, &T::setOffset,
          &T::attachId, &T::setAttachId, &T::trackId, &T::setTrackId, &T::attachMarkingText,
          &T::setAttachMarkingText, &T::trackMarkingText, &T::setTrackMarkingText);
VC_TRAITS(DtGroupVCPdu, 9, 188, "0 2 1 10 20 30 40 50 r0 r1 a0", true, &T::radialOffset, &T::setRadialOffset,
          &T::heading, &T::setHeading, &T::pitch, &T::setPitch, &T::headingOffset, &T::setHeadingOffset,
          &T::pitchOffset, &T::setPitchOffset, &T::groupCmd, &T::setGroupCmd);
VC_TRAITS(DtModelessVCPdu, 10, 292, "", true, &T::primary, &T::setPrimary, &T::secondary, &T::setSecondary);
VC_TRAITS(DtPivotVCPdu, 12, 204, "1 2 3 4 5 6 100.5 200.25 -300", false, &T::radius, &T::setRadius,
          &T::bodyHeading, &T::setBodyHeading, &T::pitch, &T::setPitch, &T::headingOffset,
          &T::setHeadingOffset, &T::pitchOffset, &T::setPitchOffset, &T::roll, &T::setRoll, &T::pivotPoint,
          &T::setPivotPoint);
VC_TRAITS(DtMoveVCPdu, 13, 208, "1 4 10.5 -20 30", false, &T::turn, &T::setTurn, &T::move, &T::setMove,
          &T::position, &T::setPosition, &T::orientation, &T::setOrientation, &T::reset, &T::setReset);
VC_TRAITS(DtRequestStateVCPdu, 14, 152, "", false, &T::viewerId, &T::setViewerId);
#undef VC_TRAITS
template <>
struct Traits<DtOptionsPdu> {
  using T = DtOptionsPdu;
  static constexpr int kCommand = 11;
  static constexpr int kLength = 1539;
  static constexpr bool kLists = false;
  static std::string text() {
    DtOptionsPdu filled;
    filled.setFov(60);
    filled.setDatabaseToLoad("terrain/db 1");
    filled.setExit(true);
    return filled.string();
  }
  static inline const std::string kTextStorage = text();
  static inline const char* kText = kTextStorage.c_str();
  template <class V>
  static void fields(V& v) {
    each(v, &T::overlay, &T::setOverlay, &T::locatorRange, &T::setLocatorRange, &T::smoothing,
         &T::setSmoothing, &T::smoothingPeriod, &T::setSmoothingPeriod, &T::sound, &T::setSound,
         &T::entityLabels, &T::setEntityLabels, &T::trailingEffects, &T::setTrailingEffects,
         &T::trajectoryHistory, &T::setTrajectoryHistory, &T::recording, &T::setRecording, &T::aggregateLevel,
         &T::setAggregateLevel, &T::aggregateHighestOnly, &T::setAggregateHighestOnly,
         &T::aggregatesAltitudeControlled, &T::setAggregatesAltitudeControlled, &T::nestedAggregates,
         &T::setNestedAggregates, &T::nestedEntities, &T::setNestedEntities, &T::groundClamping,
         &T::setGroundClamping, &T::clampRange, &T::setClampRange, &T::followGround, &T::setFollowGround,
         &T::constrainWithFloor, &T::setConstrainWithFloor, &T::floor, &T::setFloor, &T::timeOfDay,
         &T::setTimeOfDay, &T::nearClip, &T::setNearClip, &T::farClip, &T::setFarClip, &T::fov, &T::setFov,
         &T::fog, &T::setFog, &T::nearFog, &T::setNearFog, &T::farFog, &T::setFarFog, &T::texture,
         &T::setTexture, &T::databaseToLoad, &T::setDatabaseToLoad, &T::stepsize, &T::setStepsize,
         &T::turnrate, &T::setTurnrate, &T::date, &T::setDate, &T::xrEnabled, &T::setXREnabled,
         &T::hatEnabled, &T::setHATenabled, &T::currentModelSet, &T::setCurrentModelSet,
         &T::currentTextureSet, &T::setCurrentTextureSet, &T::terrainScale, &T::setTerrainScale,
         &T::objectScale, &T::setObjectScale, &T::clouds, &T::setClouds, &T::skyDome, &T::setSkyDome,
         &T::mirroring, &T::setMirroring, &T::mirrorMessageEveryFrame, &T::setMirrorMessageEveryFrame,
         &T::broadcasting, &T::setBroadcasting, &T::clusteringLabels, &T::setClusteringLabels,
         &T::tacticalGraphicsLabels, &T::setTacticalGraphicsLabels, &T::tacticalGraphics,
         &T::setTacticalGraphics, &T::showAggregates, &T::setShowAggregates, &T::showEmitters,
         &T::setShowEmitters, &T::videoCaptureCommand, &T::setVideoCaptureCommand, &T::videoCaptureFilename,
         &T::setVideoCaptureFilename, &T::videoCaptureDirectory, &T::setVideoCaptureDirectory,
         &T::videoCaptureFilenameBase, &T::setVideoCaptureFilenameBase, &T::videoCaptureRecordInsets,
         &T::setVideoCaptureRecordInsets, &T::videoCaptureFramesPerSecond, &T::setVideoCaptureFramesPerSecond,
         &T::constrainedToAll, &T::setConstrainToAll, &T::blockedDistance, &T::setBlockedDistance,
         &T::useNearClipForBlockedDistance, &T::setUseNearClipForBlockedDistance, &T::featureFilename,
         &T::setFeatureFilename, &T::featureCommand, &T::setFeatureCommand, &T::incrementStepsize,
         &T::setIncrementStepsize, &T::incrementTurnrate, &T::setIncrementTurnrate, &T::decrementStepsize,
         &T::setDecrementStepsize, &T::decrementTurnrate, &T::setDecrementTurnrate, &T::showNextModelSet,
         &T::setShowNextModelSet, &T::showPrevModelSet, &T::setShowPrevModelSet, &T::showNextTextureSet,
         &T::setShowNextTextureSet, &T::showPrevTextureSet, &T::setShowPrevTextureSet, &T::exit, &T::setExit);
  }
};

// A random value of a setter's argument type.
template <class A>
A randomValue(std::mt19937& random) {
  std::uniform_real_distribution<double> real(-1e6, 1e6);
  if constexpr (std::is_same_v<A, DtString>) {
    std::string name(1 + random() % 20, ' ');
    for (char& c : name) c = static_cast<char>('a' + random() % 26);
    return DtString(name.c_str());
  } else if constexpr (std::is_same_v<A, DtVector64> || std::is_same_v<A, DtTaitBryan>) {
    return A(real(random), real(random), real(random));
  } else if constexpr (std::is_same_v<A, bool>) {
    return random() % 2 == 1;
  } else if constexpr (std::is_enum_v<A>) {
    return static_cast<A>(random() % 4);
  } else if constexpr (std::is_floating_point_v<A>) {
    return static_cast<A>(real(random));
  } else {
    return static_cast<A>(random() % 65536);
  }
}

template <class T>
struct RandomFill {
  T& pdu;
  std::mt19937& random;
  template <class G, class C, class A>
  void operator()(G, void (C::*set)(A)) {
    (pdu.*set)(randomValue<std::decay_t<A>>(random));
  }
};

template <class T>
struct CopyFields {
  const T& from;
  T& to;
  template <class G, class S>
  void operator()(G get, S set) {
    (to.*set)((from.*get)());
  }
};
}  // namespace

template <class T>
class EveryViewControlPdu : public ::testing::Test {};
using AllClasses =
    ::testing::Types<DtAbsoluteVCPdu, DtTetherVCPdu, DtCompassVCPdu, DtMimicVCPdu, DtOffsetMimicVCPdu,
                     DtOrbitVCPdu, DtTrackVCPdu, DtTetherTrackVCPdu, DtMimicTrackVCPdu, DtGroupVCPdu,
                     DtModelessVCPdu, DtOptionsPdu, DtPivotVCPdu, DtMoveVCPdu, DtRequestStateVCPdu>;
TYPED_TEST_SUITE(EveryViewControlPdu, AllClasses);

TYPED_TEST(EveryViewControlPdu, BuildsFillsCopiesAndSurvivesTheReceivePath) {
  using T = TypeParam;
  T empty;
  EXPECT_EQ(empty.length(), Traits<T>::kLength);
  EXPECT_EQ(empty.viewerCommand(), Traits<T>::kCommand);
  EXPECT_EQ(empty.pduKind(), 202);
  // A new body is all zero (the options PDU included: no option present).
  const Bytes body = bytesAt(empty.packet(), 152, empty.length() - 152);
  EXPECT_EQ(body, Bytes(body.size(), 0));

  T pdu;
  pdu.setFromString(Traits<T>::kText);
  pdu.setViewerId("viewer 1");
  pdu.setSenderId("controller");
  const Bytes sent = imageOf(pdu);
  const std::string text = pdu.string();

  auto received = receivedAs<T>(pdu);
  ASSERT_NE(received, nullptr);
  EXPECT_EQ(typeid(*received), typeid(T));
  EXPECT_EQ(imageOf(*received), sent);
  EXPECT_EQ(received->string(), text);
  EXPECT_EQ(dumpOf(*received), dumpOf(pdu));

  T copy(pdu);
  EXPECT_EQ(imageOf(copy), sent);
  T assigned;
  assigned = pdu;
  EXPECT_EQ(imageOf(assigned), sent);

  // The text form reads back to the same bytes (modeless has none and leaves the PDU alone).
  T again;
  again.setViewerId("viewer 1");
  again.setSenderId("controller");
  again.setFromString(text.c_str());
  EXPECT_EQ(imageOf(again), sent) << text;

  auto status = std::unique_ptr<DtVistralControlPdu>(
      DtNewViewControlPdu(static_cast<DtViewerCommand>(Traits<T>::kCommand)));
  if (Traits<T>::kCommand == DtVcModeless) {
    EXPECT_EQ(status, nullptr);  // never built by number
  } else {
    ASSERT_NE(status, nullptr);
    EXPECT_EQ(typeid(*status), typeid(T));
    EXPECT_EQ(imageOf(*status), imageOf(empty));
  }
}

// Random fields in, through the receive path, out through the getters into a new PDU: the same bytes.
TYPED_TEST(EveryViewControlPdu, RandomFieldsRoundTripThroughTheGetters) {
  using T = TypeParam;
  std::mt19937 random(Traits<T>::kCommand + 1000);
  for (int round = 0; round < 50; ++round) {
    T sent;
    RandomFill<T> fill{sent, random};
    Traits<T>::fields(fill);
    fill(&T::senderId, &T::setSenderId);
    if (Traits<T>::kLength > 152) sent.setIgnoreFlags(random());  // the request-state PDU has no flags word
    if constexpr (Traits<T>::kLists) {
      sent.setNumEntitiesToRemove(static_cast<int>(random() % 4));
      sent.setNumEntitiesToAdd(static_cast<int>(random() % 4));
      for (int i = 0; i < sent.numEntitiesToRemove(); ++i)
        sent.setEntityToRemove(i, randomValue<DtString>(random));
      for (int i = 0; i < sent.numEntitiesToAdd(); ++i) sent.setEntityToAdd(i, randomValue<DtString>(random));
    }

    auto received = receivedAs<T>(sent);
    ASSERT_NE(received, nullptr);
    T rebuilt;
    CopyFields<T> copy{*received, rebuilt};
    Traits<T>::fields(copy);
    copy(&T::senderId, &T::setSenderId);
    if (Traits<T>::kLength > 152) rebuilt.setIgnoreFlags(received->ignoreFlags());
    if constexpr (Traits<T>::kLists) {
      rebuilt.setNumEntitiesToRemove(received->numEntitiesToRemove());
      rebuilt.setNumEntitiesToAdd(received->numEntitiesToAdd());
      for (int i = 0; i < received->numEntitiesToRemove(); ++i)
        rebuilt.setEntityToRemove(i, DtString(received->entityToRemove(i)));
      for (int i = 0; i < received->numEntitiesToAdd(); ++i)
        rebuilt.setEntityToAdd(i, DtString(received->entityToAdd(i)));
    }
    ASSERT_EQ(imageOf(rebuilt), imageOf(sent)) << "round " << round;
  }
}
