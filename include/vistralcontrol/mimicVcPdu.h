// Mimic and offset mimic modes: ride with an entity at an offset and take on its body orientation plus a
// given one (viewer commands 3 and 4, 308 bytes).
#pragma once

#include "tarvex/dtVector.h"
#include "vistralcontrol/vistralControlPdu.h"

class VISTRAL_EXPORT DtMimicVCPdu : public DtVistralControlPdu {
 public:
  explicit DtMimicVCPdu(DtBufferPlaceHolder* holder = nullptr);
  DtMimicVCPdu(const DtNetViewControlPdu* image, DtBufferPlaceHolder* holder, DtPduFactory* factory);
  ~DtMimicVCPdu() override;

  // "id x y z psi theta phi markingText", comma-separated when the id or the marking text holds a blank.
  void setFromString(const char* text) override;
  const char* string() const override;
  void printData() const override;

  // The eye's offset from the attached entity (ignore bits DtVcIgnore::AttachOffset) and its orientation.
  // Travels in single precision.
  const DtVector64& offset() const;
  void setOffset(const DtVector64& offset);
  const DtTaitBryan& bodyOrientation() const;
  void setBodyOrientation(const DtTaitBryan& orientation);
  // The entity the eye is attached to (ignore bit DtVcIgnore::FirstEntity).
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
  DtPduStorage<308> storage_;  // offset mimic too
};

// Offset mimic: the mimic layout under its own command.
class VISTRAL_EXPORT DtOffsetMimicVCPdu : public DtMimicVCPdu {
 public:
  explicit DtOffsetMimicVCPdu(DtBufferPlaceHolder* holder = nullptr);
  DtOffsetMimicVCPdu(const DtNetViewControlPdu* image, DtBufferPlaceHolder* holder, DtPduFactory* factory);
  ~DtOffsetMimicVCPdu() override;
};
