// Tether mode: ride with an entity at an offset in its topocentric "up" frame, looking along an orientation
// (viewer command 1, 308 bytes).
#pragma once

#include "tarvex/dtVector.h"
#include "vistralcontrol/vistralControlPdu.h"

class VISTRAL_EXPORT DtTetherVCPdu : public DtVistralControlPdu {
 public:
  explicit DtTetherVCPdu(DtBufferPlaceHolder* holder = nullptr);
  DtTetherVCPdu(const DtNetViewControlPdu* image, DtBufferPlaceHolder* holder, DtPduFactory* factory);
  ~DtTetherVCPdu() override;

  // "id x y z psi theta phi markingText", comma-separated when the id or the marking text holds a blank.
  void setFromString(const char* text) override;
  const char* string() const override;
  void printData() const override;

  // The eye's offset from the attached entity (ignore bits DtVcIgnore::TetherOffset) and its orientation
  // (Orientation).
  // Travels in single precision.
  const DtVector64& topoUpOffset() const;
  void setTopoUpOffset(const DtVector64& offset);
  const DtTaitBryan& orientation() const;
  void setOrientation(const DtTaitBryan& orientation);
  // The entity the eye is tethered to (ignore bit DtVcIgnore::FirstEntity).
  const DtString& attachId() const;
  void setAttachId(const DtString& id);
  // Empty unless the PDU is 308 bytes long: older senders do not carry it.
  const DtString& markingText() const;
  void setMarkingText(const DtString& text);

 private:
  mutable DtVector64 offset_;
  mutable DtTaitBryan orientation_;
  mutable DtString attachId_;
  mutable DtString markingText_;
  DtPduStorage<308> storage_;
};
