// Track mode: stand at a world location and look at an entity (viewer command 6, 312 bytes).
#pragma once

#include "tarvex/dtVector.h"
#include "vistralcontrol/vistralControlPdu.h"

class VISTRAL_EXPORT DtTrackVCPdu : public DtVistralControlPdu {
 public:
  explicit DtTrackVCPdu(DtBufferPlaceHolder* holder = nullptr);
  DtTrackVCPdu(const DtNetViewControlPdu* image, DtBufferPlaceHolder* holder, DtPduFactory* factory);
  ~DtTrackVCPdu() override;

  // "id x y z markingText", comma-separated when the id or the marking text holds a blank.
  void setFromString(const char* text) override;
  const char* string() const override;
  void printData() const override;

  // Where the eye stands (ignore bits DtVcIgnore::Position).
  const DtVector64& worldLocation() const;
  void setWorldLocation(const DtVector64& location);
  // The entity it looks at (ignore bit DtVcIgnore::FirstEntity).
  const DtString& trackId() const;
  void setTrackId(const DtString& id);
  // Empty unless the PDU is 312 bytes long: older senders do not carry it.
  const DtString& markingText() const;
  void setMarkingText(const DtString& text);

 private:
  mutable DtVector64 location_;
  mutable DtString trackId_;
  mutable DtString markingText_;
  DtPduStorage<312> storage_;
};
