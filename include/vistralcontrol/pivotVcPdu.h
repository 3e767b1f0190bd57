// Pivot mode: turn the eye around a fixed world point (viewer command 12, 204 bytes).
#pragma once

#include "tarvex/dtVector.h"
#include "vistralcontrol/vistralControlPdu.h"

class VISTRAL_EXPORT DtPivotVCPdu : public DtVistralControlPdu {
 public:
  explicit DtPivotVCPdu(DtBufferPlaceHolder* holder = nullptr);
  DtPivotVCPdu(const DtNetViewControlPdu* image, DtBufferPlaceHolder* holder, DtPduFactory* factory);
  ~DtPivotVCPdu() override;

  // "radius bodyHeading pitch headingOffset pitchOffset roll x y z"; the point is read back in single
  // precision. Reading goes through the virtual accessors below, so a subclass sees every field set.
  void setFromString(const char* text) override;
  const char* string() const override;
  void printData() const override;

  // The eye's place on a sphere around the pivot point: its radius (ignore bit DtVcIgnore::Radius), the body
  // heading (BodyHeading) and pitch (Pitch) on it, heading and pitch offsets and a roll, as 32-bit floats;
  // the pivot point (Position) in 64-bit floats. Virtual in this class alone, in this order.
  virtual float radius() const;
  virtual void setRadius(float radius);
  virtual float bodyHeading() const;
  virtual void setBodyHeading(float heading);
  virtual float pitch() const;
  virtual void setPitch(float pitch);
  virtual float headingOffset() const;
  virtual void setHeadingOffset(float offset);
  virtual float pitchOffset() const;
  virtual void setPitchOffset(float offset);
  virtual float roll() const;
  virtual void setRoll(float roll);
  virtual const DtVector64& pivotPoint() const;
  virtual void setPivotPoint(const DtVector64& point);

 private:
  mutable DtVector64 pivotPoint_;
  DtPduStorage<204> storage_;
};
