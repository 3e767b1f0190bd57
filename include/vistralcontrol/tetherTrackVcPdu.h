// Tether-track mode: ride with one entity at an offset in its topocentric "up" frame and look at another
// (viewer command 7, 424 bytes).
#pragma once

#include "tarvex/dtVector.h"
#include "vistralcontrol/vistralControlPdu.h"

class VISTRAL_EXPORT DtTetherTrackVCPdu : public DtVistralControlPdu {
 public:
  explicit DtTetherTrackVCPdu(DtBufferPlaceHolder* holder = nullptr);
  DtTetherTrackVCPdu(const DtNetViewControlPdu* image, DtBufferPlaceHolder* holder, DtPduFactory* factory);
  ~DtTetherTrackVCPdu() override;

  // "attachId trackId x y z attachMarkingText trackMarkingText", comma-separated when an id or a marking text
  // holds a blank. In the blank form a single marking text is read as the track's.
  void setFromString(const char* text) override;
  const char* string() const override;
  void printData() const override;

  // Travels in single precision.
  const DtVector64& offset() const;
  void setOffset(const DtVector64& offset);
  // Both ids fill one cache: copy the first before asking for the second.
  const DtString& attachId() const;
  void setAttachId(const DtString& id);
  const DtString& trackId() const;
  void setTrackId(const DtString& id);
  // Empty unless the PDU is 424 bytes long: older senders do not carry them. An attach marking text of 64
  // characters has no terminator and reads on into the track marking text.
  const DtString& attachMarkingText() const;
  void setAttachMarkingText(const DtString& text);
  const DtString& trackMarkingText() const;
  void setTrackMarkingText(const DtString& text);

 private:
  mutable DtVector64 offset_;
  mutable DtString entityId_;
  mutable DtString attachMarkingText_;
  mutable DtString trackMarkingText_;
  DtPduStorage<424> storage_;
};
