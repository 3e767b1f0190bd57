// Compass mode: hold a fixed bearing around an attached entity (viewer command 2, 308 bytes).
#pragma once

#include "vistralcontrol/vistralControlPdu.h"

class VISTRAL_EXPORT DtCompassVCPdu : public DtVistralControlPdu {
 public:
  explicit DtCompassVCPdu(DtBufferPlaceHolder* holder = nullptr);
  DtCompassVCPdu(const DtNetViewControlPdu* image, DtBufferPlaceHolder* holder, DtPduFactory* factory);
  ~DtCompassVCPdu() override;

  // "id radius bodyHeading pitch headingOffset pitchOffset roll markingText", comma-separated when the id or
  // the marking text holds a blank.
  void setFromString(const char* text) override;
  const char* string() const override;
  void printData() const override;

  // The eye's place on a sphere around the attached entity: its radius (ignore bit DtVcIgnore::Radius), the
  // body heading (BodyHeading) and pitch (Pitch) on it, then heading and pitch offsets and a roll. Each
  // travels as a 32-bit float.
  float radius() const;
  void setRadius(float radius);
  float bodyHeading() const;
  void setBodyHeading(float heading);
  float pitch() const;
  void setPitch(float pitch);
  float headingOffset() const;
  void setHeadingOffset(float offset);
  float pitchOffset() const;
  void setPitchOffset(float offset);
  float roll() const;
  void setRoll(float roll);

  // The entity the eye is attached to (ignore bit DtVcIgnore::FirstEntity).
  const DtString& attachId() const;
  void setAttachId(const DtString& id);
  // Empty unless the PDU is 308 bytes long: older senders do not carry it.
  const DtString& markingText() const;
  void setMarkingText(const DtString& text);

 private:
  mutable DtString attachId_;
  mutable DtString markingText_;
  DtPduStorage<308> storage_;
};
