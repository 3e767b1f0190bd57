#include "vistralcontrol/vdcText3DObj.h"

#include "vdcObjectParts.h"

DtVdcText3DObject::DtVdcText3DObject(unsigned int id, const DtString& text,
                                     const DtVdc3DAttachPoint& attachment, const DtVector64& enuOffset,
                                     DtVdcColor color, bool flashing)
    : DtVdcObject(id),
      attachment_(attachment),
      enuOffset_(enuOffset),
      color_(color),
      flashing_(flashing),
      text_(text) {
  VdcFill::startPdu(*this, pdu_, DtVdc3DText);
}

VDC_OBJECT_PDU(DtVdcText3DObject)
VDC_OBJECT_COLOR(DtVdcText3DObject)
VDC_OBJECT_FLASHING(DtVdcText3DObject)
VDC_OBJECT_ENU_OFFSET(DtVdcText3DObject)
VDC_OBJECT_SINGLE_ATTACHMENT(DtVdcText3DObject)

void DtVdcText3DObject::updatePdu() {
  setPduText();
  setPduAttach();
  setPduOffset();
  setPduColor();
  setPduFlashing();
}

const DtString& DtVdcText3DObject::text() const { return text_; }
DtString& DtVdcText3DObject::text() { return text_; }
void DtVdcText3DObject::setText(const DtString& text) { text_ = text; }

void DtVdcText3DObject::setPduText() { pdu_.setText(text_); }
