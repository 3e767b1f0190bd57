#include "vistralcontrol/vdcText3DObj.h"

#include "vdcFill.h"

DtVdcText3DObject::DtVdcText3DObject(unsigned int id, const DtString& text,
                                     const DtVdc3DAttachPoint& attachment, const DtVector64& enuOffset,
                                     DtVdcColor color, bool flashing)
    : DtVdcObject(id),
      attachment_(attachment),
      enuOffset_(enuOffset),
      color_(color),
      flashing_(flashing),
      text_(text) {
  pdu_.setObjectId(id);
  pdu_.setType(DtVdc3DText);
  updatePdu();
}

DtVdcText3DObject::~DtVdcText3DObject() = default;

DtVistralDrawControlPdu& DtVdcText3DObject::pdu() { return pdu_; }

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
const DtVdc3DAttachPoint& DtVdcText3DObject::attachment() const { return attachment_; }
DtVdc3DAttachPoint& DtVdcText3DObject::attachment() { return attachment_; }
void DtVdcText3DObject::setAttachment(const DtVdc3DAttachPoint& attachment) { attachment_ = attachment; }
const DtVector64& DtVdcText3DObject::enuOffset() const { return enuOffset_; }
DtVector64& DtVdcText3DObject::enuOffset() { return enuOffset_; }
void DtVdcText3DObject::setEnuOffset(const DtVector64& offset) { enuOffset_ = offset; }
const DtVdcColor& DtVdcText3DObject::color() const { return color_; }
DtVdcColor& DtVdcText3DObject::color() { return color_; }
void DtVdcText3DObject::setColor(const DtVdcColor& color) { color_ = color; }
bool DtVdcText3DObject::flashing() const { return flashing_; }
void DtVdcText3DObject::setFlashing(bool flashing) { flashing_ = flashing; }

void DtVdcText3DObject::setPduAttach() { VdcFill::attachSingle(pdu_, attachment_); }
void DtVdcText3DObject::setPduOffset() { pdu_.setOffset(enuOffset_); }
void DtVdcText3DObject::setPduColor() { VdcFill::setColor(pdu_, color_); }
void DtVdcText3DObject::setPduFlashing() { pdu_.setFlashing(flashing_); }
void DtVdcText3DObject::setPduText() { pdu_.setText(text_); }
