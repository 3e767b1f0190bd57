// The remote controller: steers one remote viewer without the caller knowing any PDU format, and hands the
// viewers' reports to registered callbacks. Each command builds one PDU on the stack, fills the fields the
// caller gave, marks every other field "ignore", and sends it through send().
#pragma once

#include <memory>

#include "tarvex/dtDeferredRemoval.h"
#include "tarvex/dtGlobalObjectDesignatorList.h"
#include "tarvex/dtList.h"
#include "tarvex/dtString.h"
#include "tarvex/dtVector.h"
#include "tarvex/dtViewerCommand.h"
#include "tarvex/dtViewerOptions.h"
#include "vistralcontrol/hVistralControlInter.h"
#include "vistralcontrol/moveVcPdu.h"
#include "vistralcontrol/vistralControlPdu.h"
#include "vistralcontrol/vistralExport.h"

class DtExerciseConn;
class DtFomMapper;
class DtVistralControlInteraction;

// The application's own way of carrying PDUs: it is given the bytes of each PDU the controller sends.
class VISTRAL_EXPORT DtCustomRemoteControlSender {
 public:
  virtual ~DtCustomRemoteControlSender();
  // Called with the image of each PDU sent, header first; the bytes are valid during the call only.
  virtual void sendPdu(const unsigned char* bytes, int length) = 0;
};

// Ignore-flag bits: a set bit tells the viewer to ignore the field it stands for.
namespace DtVcIgnore {
constexpr unsigned long Position =
    0x00000007;  // world location, pivot point, mimic-track offset, move position
// Each angle of an orientation or of the orbit and compass parameters.
constexpr unsigned long Heading = 0x00000008;
constexpr unsigned long Pitch = 0x00000010;
constexpr unsigned long Roll = 0x00000020;
constexpr unsigned long Orientation = Heading | Pitch | Roll;
// The mode parameters of the same names.
constexpr unsigned long TetherOffset = 0x000001C0;
constexpr unsigned long Radius = 0x00000200;
constexpr unsigned long BodyHeading = 0x00000400;
constexpr unsigned long GroupHeadingOffset = 0x00000800;
constexpr unsigned long GroupPitchOffset = 0x00001000;
constexpr unsigned long AttachOffset = 0x0000E000;  // mimic, offset mimic, tether-track
// The orbit's turning rate and the group mode's distance.
constexpr unsigned long AzimuthRate = 0x00040000;
constexpr unsigned long GroupRadialOffset = 0x00080000;
constexpr unsigned long FirstEntity = 0x00100000;   // attach id, track id of track mode, modeless primary
constexpr unsigned long SecondEntity = 0x00200000;  // track id of the two-entity modes, modeless secondary
// The entity lists of group and modeless commands, the step of a move, and every field at once.
constexpr unsigned long GroupLists = 0x00400000;
constexpr unsigned long Step = 0x01000000;
constexpr unsigned long All = 0xFFFFFFFF;
}  // namespace DtVcIgnore

// Steers one target viewer: one operation per command, every field the caller leaves out marked "ignore".
class VISTRAL_EXPORT DtVistralRemoteController {
 public:
  // Same values as the move PDU's directions, passed on unchanged.
  enum Direction : int {
    LEFT = DtMoveVCPdu::LEFT,
    RIGHT = DtMoveVCPdu::RIGHT,
    UP = DtMoveVCPdu::UP,
    DOWN = DtMoveVCPdu::DOWN,
    FORWARDS = DtMoveVCPdu::FORWARDS,
    BACKWARDS = DtMoveVCPdu::BACKWARDS
  };
  // Hears a PDU from a viewer, with the argument given at registration; the PDU is valid during the call
  // only.
  using Callback = void (*)(const DtVistralControlPdu& pdu, void* usr);

  // One registered callback: the viewer whose PDUs it wants ("0:0:0" for all), the function and its argument.
  struct VISTRAL_EXPORT CbStruct {
    // Registered for viewerName; called with userData.
    CbStruct(const DtString& viewerName, Callback cb, void* userData);
    // The viewer it listens to, the function and its argument.
    DtString viewer;
    Callback function;
    void* usr;
  };

  // The viewer name that addresses every viewer: a callback registered for it hears from all of them.
  static const DtString SEND_TO_ALL;

  // Steers target through the application's own sender (not owned) and no connection: it hears no reports.
  DtVistralRemoteController(DtCustomRemoteControlSender* sender, const DtString& target);
  // Steers target over the application's connection (not owned), on which it registers for reports.
  DtVistralRemoteController(DtExerciseConn* conn, const DtString& target);
  // Joins a federation on a connection of its own, made from the leading arguments as DtExerciseConn's are.
  DtVistralRemoteController(const char* execName, const char* federateName, DtFomMapper* mapper,
                            const char* fedFile, const DtString& target);
  // The same, naming the backend and an RTI ambassador as DtExerciseConn's second constructor does.
  DtVistralRemoteController(const char* execName, const char* federateName, const char* fedFile,
                            const char* backend, void* rtiAmbassador, const DtString& target);
  virtual ~DtVistralRemoteController();
  DtVistralRemoteController(const DtVistralRemoteController&) = delete;
  DtVistralRemoteController& operator=(const DtVistralRemoteController&) = delete;

  // The viewer every command goes to.
  virtual void setTargetVistralId(const DtString& id);
  virtual const DtString& targetVistralId() const;
  // The sender id stamped into every command; the viewer's reports name it.
  virtual void setControllerId(const DtString& id);
  virtual const DtString& controllerId() const;
  // Registers or removes a callback for the PDUs of one viewer, or of all with SEND_TO_ALL.
  virtual void addViewModeChangeCallback(Callback cb, void* usr, const DtString& viewer);
  virtual void removeViewModeChangeCallback(Callback cb, void* usr, const DtString& viewer);
  // Asks the target viewer for its mode; the argument is not used (the request goes to the target viewer).
  virtual void requestCurrentViewMode(const DtString& viewer) const;
  // Modeless commands: the entity the viewer treats as primary, as secondary, or both at once.
  virtual void setPrimary(const DtString& primary) const;
  virtual void setSecondary(const DtString& secondary) const;
  virtual void setPrimarySecondary(const DtString& primary, const DtString& secondary) const;
  // Modeless commands on the viewed group: replace it with the list, add the list to it, or remove the list
  // from it.
  virtual void setGroup(const DtGlobalObjectDesignatorList& list) const;
  virtual void addToGroup(const DtGlobalObjectDesignatorList& list) const;
  virtual void removeFromGroup(const DtGlobalObjectDesignatorList& list) const;
  // A move command that resets the eye, every other field ignored.
  virtual void reset() const;
  // A move command of one step, or one turn, in the direction.
  virtual void moveEyepoint(Direction direction) const;
  virtual void turnEyepoint(Direction direction) const;
  // Options commands: the size of a step and the rate of a turn, set outright or one notch up or down.
  virtual void setStepsize(float size) const;
  virtual void setTurnrate(float rate) const;
  virtual void increaseStepsize() const;
  virtual void increaseTurnrate() const;
  virtual void decreaseStepsize() const;
  virtual void decreaseTurnrate() const;
  // A move PDU with what is given; nothing at all when neither is given.
  virtual void set(const DtVector64* position, const DtTaitBryan* orientation) const;
  // Switches the viewer's mode keeping its parameters, then set(position, orientation).
  virtual void setMode(DtViewerCommand mode, const DtVector64* position,
                       const DtTaitBryan* orientation) const;
  // In the mode operations a null pointer leaves its field unset and ignored.
  virtual void setAbsoluteMode(const DtVector64* location, const DtTaitBryan* orientation) const;
  virtual void setCompassMode(const DtString* attach, const float* radius, const float* bodyHeading,
                              const float* pitch) const;
  virtual void setMimicMode(const DtString* attach, const DtVector64* offset) const;
  virtual void setTurretMode(const DtString* attach, const DtVector64* offset) const;
  virtual void setOrbitMode(const DtString* attach, const float* radius, const float* heading,
                            const float* pitch, const float* azimuthRate) const;
  virtual void setPivotMode(const DtVector64* pivot, const float* radius, const float* bodyHeading,
                            const float* pitch) const;
  virtual void setTetherMode(const DtString* attach, const DtVector64* offset,
                             const DtTaitBryan* orientation) const;
  virtual void setTrackMode(const DtString* track, const DtVector64* location) const;
  virtual void setMimicTrackMode(const DtString* attach, const DtString* track,
                                 const DtVector64* offset) const;
  virtual void setTetherTrackMode(const DtString* attach, const DtString* track,
                                  const DtVector64* offset) const;
  virtual void setGroupMode(const DtGlobalObjectDesignatorList* list, const float* radial,
                            const float* heading, const float* pitch) const;
  virtual void setWideGroupMode(const DtGlobalObjectDesignatorList* list, const float* radial,
                                const float* heading, const float* pitch) const;

  // Viewer options: each sends one options PDU with one option set.
  virtual void setOverlayEnabled(bool enabled) const;
  virtual void setSmoothing(DtSmoothingOption smoothing) const;
  virtual void setSmoothingPeriod(double period) const;
  virtual void setSoundEnabled(bool enabled) const;
  virtual void setEntityLabelsEnabled(bool enabled) const;
  virtual void setTrailingEffectsEnabled(bool enabled) const;
  virtual void setTrajectoryHistoriesEnabled(bool enabled) const;
  virtual void setAggregateLevel(int level) const;
  virtual void setAggregateHighestOnly(bool only) const;
  virtual void setGroundClampingEnabled(bool enabled) const;
  virtual void setGroundClampRange(double range) const;
  virtual void setTimeOfDay(double time) const;
  virtual void setNearClippingPlane(double distance) const;
  virtual void setFarClippingPlane(double distance) const;
  virtual void setVerticalFieldOfView(double fov) const;
  virtual void setFogEnabled(bool enabled) const;
  virtual void setDatabaseToLoad(const DtString& database) const;
  virtual void setDate(const DtString& date) const;
  virtual void exit();
  virtual void setClouds(bool on);
  virtual void setSkyDome(bool on);
  virtual void setMirrorMessageEveryFrame(bool on);
  virtual void setMirroring(bool on);
  virtual void setBroadcasting(bool on);
  virtual void setClusteringLabels(bool on);
  virtual void setTacticalGraphicsLabels(bool on);
  virtual void setShowAggregates(bool on);
  virtual void setShowEmitters(bool on);
  virtual void setXr(bool on);
  virtual void setHatLabels(bool on);
  virtual void setCurrentModelSet(const DtString& set);
  virtual void setNextModelSet();
  virtual void setPrevModelSet();
  virtual void setCurrentTextureSet(const DtString& set);
  virtual void setNextTextureSet();
  virtual void setPrevTextureSet();
  virtual void setTerrainScale(double scale);
  virtual void setObjectScale(double scale);
  virtual void startVideoRecording();
  virtual void startVideoRecording(const DtString& file);
  virtual void stopVideoRecording();
  virtual void pauseVideoRecording();
  virtual void unpauseVideoRecording();
  virtual void setVideoCaptureRecordInsets(bool on);
  virtual void setVideoCaptureFramesPerSecond(int fps);
  virtual void setVideoCaptureFilenameBase(const DtString& base);
  virtual void setVideoCaptureDirectory(const DtString& directory);
  virtual void setConstrainWithFloor(bool on);
  virtual void setFloor(double floor);
  virtual void setConstrainViewToAll(bool on);
  virtual void setBlockedDistance(double distance);
  virtual void setUseNearClipForBlockedDistance(bool on);
  virtual void loadFeatures(const DtString& file);
  virtual void clearFeatures();

  // Own PDUs heard back are dropped unless this is cleared (true by default).
  virtual void setIgnoreCommandsSentFromUs(bool ignore);
  // Sends the PDU to the target viewer as this controller: over the connection inside a "ViewControl"
  // interaction, and to the custom sender, with the PDU's own ids restored afterwards.
  virtual void send(const DtVistralControlPdu& pdu) const;
  // Hands a received PDU to every callback registered for its viewer or for all viewers.
  virtual void processVistralControl(DtVistralControlInteraction* inter) const;
  // What setGroupMode (wide 0) and setWideGroupMode (wide 1) send.
  virtual void sendGroupPdu(const DtGlobalObjectDesignatorList* list, const float* radial,
                            const float* heading, const float* pitch, int wide) const;

  // Also hands every PDU sent to this sender (not owned; null for none), beside the connection.
  void setCustomSender(DtCustomRemoteControlSender* sender);

  // Registered with the connection; calls usr's processVistralControl.
  static void processVistralControlCb(DtVistralControlInteraction* inter, void* usr);

 private:
  void attachToConnection();
  template <typename Fill>
  void sendOptions(Fill fill) const;
  template <typename Fill>
  void sendModeless(unsigned long flags, Fill fill) const;

  DtString controllerId_;
  DtString targetId_;
  mutable DtList callbacks_;  // mutable: removals deferred during a walk are completed by the walk
  DtExerciseConn* conn_ = nullptr;
  DtCustomRemoteControlSender* sender_ = nullptr;
  std::unique_ptr<DtExerciseConn> ownedConn_;
  bool ignoreOwnCommands_ = true;
  mutable DtDeferredRemoval removal_;  // callbacks removed while a received PDU walks them
  // Carries every command to the connection; kept, so that commands of one class rebuild its PDU in place.
  mutable DtVistralControlInteraction interaction_;
};
