// Orbit mode: circle an attached entity at an azimuth rate (viewer command 5, 312 bytes).
#pragma once

#include "vistralcontrol/vistralControlPdu.h"

class VISTRAL_EXPORT DtOrbitVCPdu : public DtVistralControlPdu {
 public:
  explicit DtOrbitVCPdu(DtBufferPlaceHolder* holder = nullptr);
  DtOrbitVCPdu(const DtNetViewControlPdu* image, DtBufferPlaceHolder* holder, DtPduFactory* factory);
  ~DtOrbitVCPdu() override;

  // "id radius azimuthRate heading pitch headingOffset pitchOffset roll markingText", comma-separated when
  // the id or the marking text holds a blank.
  void setFromString(const char* text) override;
  const char* string() const override;
  void printData() const override;

  // The sphere around the attached entity: its radius (ignore bit DtVcIgnore::Radius), how fast the eye
  // circles it (AzimuthRate), the heading (Heading) and pitch (Pitch) it starts from, then heading and pitch
  // offsets and a roll. Each travels as a 32-bit float.
  float radius() const;
  void setRadius(float radius);
  float azimuthRate() const;
  void setAzimuthRate(float rate);
  float heading() const;
  void setHeading(float heading);
  float pitch() const;
  void setPitch(float pitch);
  float headingOffset() const;
  void setHeadingOffset(float offset);
  float pitchOffset() const;
  void setPitchOffset(float offset);
  float roll() const;
  void setRoll(float roll);

  // The entity the eye circles (ignore bit DtVcIgnore::FirstEntity).
  const DtString& attachId() const;
  void setAttachId(const DtString& id);
  // Empty unless the PDU is 312 bytes long: older senders do not carry it.
  const DtString& markingText() const;
  void setMarkingText(const DtString& text);

 private:
  mutable DtString attachId_;
  mutable DtString markingText_;
  DtPduStorage<312> storage_;
};
