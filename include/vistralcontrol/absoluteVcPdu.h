// Absolute mode: put the eye at a world location with an orientation (viewer command 0, 196 bytes).
#pragma once

#include "tarvex/dtVector.h"
#include "vistralcontrol/vistralControlPdu.h"

class VISTRAL_EXPORT DtAbsoluteVCPdu : public DtVistralControlPdu {
 public:
  explicit DtAbsoluteVCPdu(DtBufferPlaceHolder* holder = nullptr);
  DtAbsoluteVCPdu(const DtNetViewControlPdu* image, DtBufferPlaceHolder* holder, DtPduFactory* factory);
  ~DtAbsoluteVCPdu() override;

  // "x y z psi theta phi"
  void setFromString(const char* text) override;
  const char* string() const override;
  void printData() const override;

  // Where the eye is (ignore bits DtVcIgnore::Position) and how it is turned (DtVcIgnore::Orientation); the
  // orientation travels as three 32-bit floats.
  const DtVector64& worldLocation() const;
  void setWorldLocation(const DtVector64& location);
  const DtTaitBryan& orientation() const;
  void setOrientation(const DtTaitBryan& orientation);

 private:
  mutable DtVector64 location_;
  mutable DtTaitBryan orientation_;
  DtPduStorage<196> storage_;
};
