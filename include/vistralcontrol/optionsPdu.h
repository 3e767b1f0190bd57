// The viewer options PDU (viewer command 11, 1539 bytes): display and behaviour settings and one-shot
// actions. One PDU carries any subset of the options: a presence bit per option says which values the viewer
// applies, and every value has a fixed place in the image whether present or not.
#pragma once

#include <cstdint>

#include "tarvex/dtViewerOptions.h"
#include "vistralcontrol/vistralControlPdu.h"

// What the video capture option tells the viewer's recorder to do.
enum DtVistralControlVideoCaptureCommand : int {
  DtVistralControlVideoCaptureStop = 0,
  DtVistralControlVideoCapturePause = 1,
  DtVistralControlVideoCaptureUnpause = 2,
  DtVistralControlVideoCaptureRecord = 3,
};

// What the feature option does with the feature file it names.
enum DtVistralControlFeatureCommand : int {
  DtVistralControlFeatureLoad = 0,
  DtVistralControlFeatureClear = 1,
};

// Option numbers, which are also the presence bits. Numbers from 28 on are the static members of
// DtOptionsPdu.
enum DtVistralOption : int {
  DtVistralOverlay = 0,
  DtVistralLocatorRange = 1,
  DtVistralSmoothing = 2,
  DtVistralSmoothingPeriod = 3,
  DtVistralSound = 4,
  DtVistralEntityLabels = 5,
  DtVistralTrailingEffects = 6,
  DtVistralTrajectoryHistory = 7,
  DtVistralRecording = 8,
  DtVistralAggregateLevel = 9,
  DtVistralAggregateHighestOnly = 10,
  DtVistralAggregatesAltitudeControlled = 11,
  DtVistralNestedAggregates = 12,
  DtVistralNestedEntities = 13,
  DtVistralGroundClamping = 14,
  DtVistralClampRange = 15,
  DtVistralFollowGround = 16,
  DtVistralConstrainWithFloor = 17,
  DtVistralFloor = 18,
  DtVistralTimeOfDay = 19,
  DtVistralNearClip = 20,
  DtVistralFarClip = 21,
  DtVistralFov = 22,
  DtVistralFog = 23,
  DtVistralNearFog = 24,
  DtVistralFarFog = 25,
  DtVistralTexture = 26,
  DtVistralDatabaseToLoad = 27,
};

// Viewer options (viewer command 11, 1539 bytes): presence bits and a field per option. A viewer changes only
// the options a PDU marks present.
class VISTRAL_EXPORT DtOptionsPdu : public DtVistralControlPdu {
 public:
  // Options 28 and up, named inside the class; option numbers are bit positions in the presence bitfields.
  static constexpr DtVistralOption DtVistralStepsize = static_cast<DtVistralOption>(28);
  static constexpr DtVistralOption DtVistralTurnrate = static_cast<DtVistralOption>(29);
  static constexpr DtVistralOption DtVistralDate = static_cast<DtVistralOption>(30);
  static constexpr DtVistralOption DtVistralIncStepsize = static_cast<DtVistralOption>(31);
  static constexpr DtVistralOption DtVistralIncTurnrate = static_cast<DtVistralOption>(32);
  static constexpr DtVistralOption DtVistralDecStepsize = static_cast<DtVistralOption>(33);
  static constexpr DtVistralOption DtVistralDecTurnrate = static_cast<DtVistralOption>(34);
  static constexpr DtVistralOption DtVistralXREnabled = static_cast<DtVistralOption>(35);
  static constexpr DtVistralOption DtVistralHATenabled = static_cast<DtVistralOption>(36);
  static constexpr DtVistralOption DtVistralNextModelSet = static_cast<DtVistralOption>(37);
  static constexpr DtVistralOption DtVistralPrevModelSet = static_cast<DtVistralOption>(38);
  static constexpr DtVistralOption DtVistralSetCurrentModelSet = static_cast<DtVistralOption>(39);
  static constexpr DtVistralOption DtVistralPrevTextureSet = static_cast<DtVistralOption>(40);
  static constexpr DtVistralOption DtVistralNextTextureSet = static_cast<DtVistralOption>(41);
  static constexpr DtVistralOption DtVistralSetCurrentTextureSet = static_cast<DtVistralOption>(42);
  static constexpr DtVistralOption DtVistralTerrainScale = static_cast<DtVistralOption>(43);
  static constexpr DtVistralOption DtVistralObjectScale = static_cast<DtVistralOption>(44);
  static constexpr DtVistralOption DtVistralClouds = static_cast<DtVistralOption>(45);
  static constexpr DtVistralOption DtVistralSkyDome = static_cast<DtVistralOption>(46);
  static constexpr DtVistralOption DtVistralExit = static_cast<DtVistralOption>(47);
  static constexpr DtVistralOption DtVistralMirroring = static_cast<DtVistralOption>(48);
  // These two share one presence bit: setting either marks both present.
  static constexpr DtVistralOption DtVistralMirrorMessageEveryFrame = static_cast<DtVistralOption>(49);
  static constexpr DtVistralOption DtVistralBroadcasting = static_cast<DtVistralOption>(49);
  static constexpr DtVistralOption DtVistralClusteringLabels = static_cast<DtVistralOption>(50);
  static constexpr DtVistralOption DtVistralTacticalGraphicsLabels = static_cast<DtVistralOption>(51);
  static constexpr DtVistralOption DtVistralTacticalGraphics = static_cast<DtVistralOption>(52);
  static constexpr DtVistralOption DtVistralShowAggregates = static_cast<DtVistralOption>(53);
  static constexpr DtVistralOption DtVistralShowEmitters = static_cast<DtVistralOption>(54);
  static constexpr DtVistralOption DtVistralVideoCaptureCommand = static_cast<DtVistralOption>(55);
  static constexpr DtVistralOption DtVistralVideoCaptureFilename = static_cast<DtVistralOption>(56);
  static constexpr DtVistralOption DtVistralVideoCaptureDirectory = static_cast<DtVistralOption>(57);
  static constexpr DtVistralOption DtVistralVideoCaptureFilenameBase = static_cast<DtVistralOption>(58);
  static constexpr DtVistralOption DtVistralVideoCaptureRecordInsets = static_cast<DtVistralOption>(59);
  static constexpr DtVistralOption DtVistralVideoCaptureFramesPerSecond = static_cast<DtVistralOption>(60);
  static constexpr DtVistralOption DtVistralConstrainToAll = static_cast<DtVistralOption>(61);
  static constexpr DtVistralOption DtVistralBlockedDistance = static_cast<DtVistralOption>(62);
  static constexpr DtVistralOption DtVistralUseNearClipForBlockedDistance = static_cast<DtVistralOption>(63);
  // Options from 64 on live in a second bitfield that older, shorter PDUs lack. 65 is not used.
  static constexpr DtVistralOption DtVistralFeatureFilename = static_cast<DtVistralOption>(64);
  static constexpr DtVistralOption DtVistralFeatureCommand = static_cast<DtVistralOption>(66);

  // An options PDU with no option present, 1539 bytes.
  explicit DtOptionsPdu(DtBufferPlaceHolder* holder = nullptr);
  DtOptionsPdu(const DtNetViewControlPdu* image, DtBufferPlaceHolder* holder, DtPduFactory* factory);
  ~DtOptionsPdu() override;

  // The whole image as two lowercase hex digits per byte, and back: reading builds the PDU from the bytes the
  // digits give (an odd last digit is ignored), header and length included.
  void setFromString(const char* text) override;
  const char* string() const override;
  // The bitfields, then each present option.
  void printData() const override;

  // Presence bits. Options from 64 on exist only in a PDU longer than 1274 bytes: in an older one, setting
  // them does nothing and they read as absent.
  bool optionPresent(DtVistralOption option) const;
  void setOptionPresent(DtVistralOption option);
  void clearOptionPresent(DtVistralOption option);

  // Each value setter writes its field and marks the option present, whatever the value. Getters read the
  // field whether the option is present or not.
  DtOverlayOption overlay() const;
  void setOverlay(DtOverlayOption option);
  double locatorRange() const;
  void setLocatorRange(double range);
  DtSmoothingOption smoothing() const;
  void setSmoothing(DtSmoothingOption option);
  double smoothingPeriod() const;
  void setSmoothingPeriod(double period);
  bool sound() const;
  void setSound(bool on);
  bool entityLabels() const;
  void setEntityLabels(bool on);
  bool trailingEffects() const;
  void setTrailingEffects(bool on);
  bool trajectoryHistory() const;
  void setTrajectoryHistory(bool on);
  bool recording() const;
  void setRecording(bool on);
  unsigned aggregateLevel() const;
  void setAggregateLevel(unsigned level);
  bool aggregateHighestOnly() const;
  void setAggregateHighestOnly(bool on);
  bool aggregatesAltitudeControlled() const;
  void setAggregatesAltitudeControlled(bool on);
  bool nestedAggregates() const;
  void setNestedAggregates(bool on);
  bool nestedEntities() const;
  void setNestedEntities(bool on);
  bool groundClamping() const;
  void setGroundClamping(bool on);
  double clampRange() const;
  void setClampRange(double range);
  bool followGround() const;
  void setFollowGround(bool on);
  bool constrainWithFloor() const;
  void setConstrainWithFloor(bool on);
  double floor() const;
  void setFloor(double floor);
  double timeOfDay() const;
  void setTimeOfDay(double time);
  double nearClip() const;
  void setNearClip(double distance);
  double farClip() const;
  void setFarClip(double distance);
  double fov() const;
  void setFov(double fov);
  bool fog() const;
  void setFog(bool on);
  double nearFog() const;
  void setNearFog(double distance);
  double farFog() const;
  void setFarFog(double distance);
  bool texture() const;
  void setTexture(bool on);
  // More options, with setters and getters as above.
  // Texts are cut to their field (256, 64 or 32 bytes), with no terminator when they fill it.
  DtString databaseToLoad() const;
  void setDatabaseToLoad(const DtString& name);
  float stepsize() const;
  void setStepsize(float size);
  float turnrate() const;
  void setTurnrate(float rate);
  DtString date() const;
  void setDate(const DtString& date);
  bool xrEnabled() const;
  void setXREnabled(bool on);
  bool hatEnabled() const;
  void setHATenabled(bool on);
  DtString currentModelSet() const;
  void setCurrentModelSet(const DtString& name);
  DtString currentTextureSet() const;
  void setCurrentTextureSet(const DtString& name);
  float terrainScale() const;
  void setTerrainScale(double scale);  // travels as a 32-bit float
  float objectScale() const;
  void setObjectScale(double scale);  // travels as a 32-bit float
  bool clouds() const;
  void setClouds(bool on);
  bool skyDome() const;
  void setSkyDome(bool on);
  bool mirroring() const;
  void setMirroring(bool on);
  bool mirrorMessageEveryFrame() const;
  void setMirrorMessageEveryFrame(bool on);
  bool broadcasting() const;
  void setBroadcasting(bool on);
  bool clusteringLabels() const;
  void setClusteringLabels(bool on);
  bool tacticalGraphicsLabels() const;
  void setTacticalGraphicsLabels(bool on);
  bool tacticalGraphics() const;
  void setTacticalGraphics(bool on);
  bool showAggregates() const;
  void setShowAggregates(bool on);
  bool showEmitters() const;
  void setShowEmitters(bool on);
  DtVistralControlVideoCaptureCommand videoCaptureCommand() const;
  void setVideoCaptureCommand(DtVistralControlVideoCaptureCommand command);
  DtString videoCaptureFilename() const;
  void setVideoCaptureFilename(const DtString& name);
  DtString videoCaptureDirectory() const;
  void setVideoCaptureDirectory(const DtString& directory);
  DtString videoCaptureFilenameBase() const;
  void setVideoCaptureFilenameBase(const DtString& base);
  bool videoCaptureRecordInsets() const;
  void setVideoCaptureRecordInsets(bool on);
  int videoCaptureFramesPerSecond() const;
  void setVideoCaptureFramesPerSecond(int fps);  // 16 bits
  bool constrainedToAll() const;
  void setConstrainToAll(bool on);
  double blockedDistance() const;
  void setBlockedDistance(double distance);
  bool useNearClipForBlockedDistance() const;
  void setUseNearClipForBlockedDistance(bool on);
  DtString featureFilename() const;
  void setFeatureFilename(const DtString& name);
  DtVistralControlFeatureCommand featureCommand() const;
  void setFeatureCommand(DtVistralControlFeatureCommand command);

  // Actions carry no value: true marks the option present, false clears it; the getter reads the bit.
  bool incrementStepsize() const;
  void setIncrementStepsize(bool on);
  bool incrementTurnrate() const;
  void setIncrementTurnrate(bool on);
  bool decrementStepsize() const;
  void setDecrementStepsize(bool on);
  bool decrementTurnrate() const;
  void setDecrementTurnrate(bool on);
  bool showNextModelSet() const;
  void setShowNextModelSet(bool on);
  bool showPrevModelSet() const;
  void setShowPrevModelSet(bool on);
  bool showNextTextureSet() const;
  void setShowNextTextureSet(bool on);
  bool showPrevTextureSet() const;
  void setShowPrevTextureSet(bool on);
  bool exit() const;
  void setExit(bool on);

 private:
  // The text form; string() writes it here rather than into the base's 400-character buffer.
  mutable DtString hexText_;
  DtPduStorage<1539> storage_;
};
