#include "vistralcontrol/vdcText2DObj.h"

#include "vdcFill.h"

DtVdcText2DObject::DtVdcText2DObject(unsigned int id, const DtString& text, const DtVdcVector2D& position,
                                     DtVdcColor color, bool flashing)
    : DtVdcObject(id), position_(position), color_(color), flashing_(flashing), text_(text) {
  pdu_.setObjectId(id);
  pdu_.setType(DtVdc2DText);
  updatePdu();
  // A screen label has no world offset.
  pdu_.setOffset(DtVector64());
}

DtVdcText2DObject::~DtVdcText2DObject() = default;

DtVistralDrawControlPdu& DtVdcText2DObject::pdu() { return pdu_; }

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
const DtVdcColor& DtVdcText2DObject::color() const { return color_; }
DtVdcColor& DtVdcText2DObject::color() { return color_; }
void DtVdcText2DObject::setColor(const DtVdcColor& color) { color_ = color; }
bool DtVdcText2DObject::flashing() const { return flashing_; }
void DtVdcText2DObject::setFlashing(bool flashing) { flashing_ = flashing; }

void DtVdcText2DObject::setPduAttach() { VdcFill::attachToScreen(pdu_, position_); }
void DtVdcText2DObject::setPduColor() { VdcFill::setColor(pdu_, color_); }
void DtVdcText2DObject::setPduFlashing() { pdu_.setFlashing(flashing_); }
void DtVdcText2DObject::setPduText() { pdu_.setText(text_); }
