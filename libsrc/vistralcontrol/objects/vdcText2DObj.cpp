#include "vistralcontrol/vdcText2DObj.h"

#include "vdcObjectParts.h"

DtVdcText2DObject::DtVdcText2DObject(unsigned int id, const DtString& text, const DtVdcVector2D& position,
                                     DtVdcColor color, bool flashing)
    : DtVdcObject(id), position_(position), color_(color), flashing_(flashing), text_(text) {
  VdcFill::startScreenPdu(*this, pdu_, DtVdc2DText);
}

VDC_OBJECT_PDU(DtVdcText2DObject)
VDC_OBJECT_COLOR(DtVdcText2DObject)
VDC_OBJECT_FLASHING(DtVdcText2DObject)

void DtVdcText2DObject::updatePdu() {
  setPduText();
  setPduAttach();
  setPduColor();
  setPduFlashing();
}

const DtString& DtVdcText2DObject::text() const { return text_; }
DtString& DtVdcText2DObject::text() { return text_; }
void DtVdcText2DObject::setText(const DtString& text) { text_ = text; }
const DtVdcVector2D& DtVdcText2DObject::position() const { return position_; }
DtVdcVector2D& DtVdcText2DObject::position() { return position_; }
void DtVdcText2DObject::setPosition(const DtVdcVector2D& position) { position_ = position; }

void DtVdcText2DObject::setPduAttach() { VdcFill::attachToScreen(pdu_, position_); }
void DtVdcText2DObject::setPduText() { pdu_.setText(text_); }
