#include "vistralcontrol/vdcCylinderObj.h"

#include "vdcFill.h"

const DtTaitBryan DtVdcCylinderObject::zeros(0.0, 0.0, 0.0);

DtVdcCylinderObject::DtVdcCylinderObject(unsigned int id, const DtVdc3DAttachPoint& attachment, double length,
                                         const DtVdcVector2D& diameters, const DtVector64& enuOffset,
                                         const DtTaitBryan& rotation, DtVdcColor color, bool flashing)
    : DtVdcObject(id),
      start_(attachment),
      length_(length),
      diameters_(diameters),
      enuOffset_(enuOffset),
      color_(color),
      rotation_(rotation),
      flashing_(flashing) {
  pdu_.setObjectId(id);
  pdu_.setType(DtVdcCylinder);
  updatePdu();
}

DtVdcCylinderObject::DtVdcCylinderObject(unsigned int id, const DtVdc3DAttachPoint& start,
                                         const DtVdc3DAttachPoint& end, const DtVdcVector2D& diameters,
                                         const DtVector64& enuOffset, DtVdcColor color, bool flashing)
    : DtVdcObject(id),
      start_(start),
      end_(end),
      length_(0.0),
      diameters_(diameters),
      enuOffset_(enuOffset),
      color_(color),
      rotation_(zeros),
      flashing_(flashing) {
  pdu_.setObjectId(id);
  pdu_.setType(DtVdcCylinder);
  updatePdu();
}

DtVdcCylinderObject::~DtVdcCylinderObject() = default;

DtVistralDrawControlPdu& DtVdcCylinderObject::pdu() { return pdu_; }

void DtVdcCylinderObject::updatePdu() {
  setPduAttach();
  setPduScale();
  setPduOffset();
  setPduColor();
  setPduFlashing();
  setPduRotation();
}

const DtVdc3DAttachPoint& DtVdcCylinderObject::attachment() const { return start_; }
DtVdc3DAttachPoint& DtVdcCylinderObject::attachment() { return start_; }
void DtVdcCylinderObject::setAttachment(const DtVdc3DAttachPoint& attachment) { start_ = attachment; }
const DtVdc3DAttachPoint& DtVdcCylinderObject::startAttachment() const { return start_; }
DtVdc3DAttachPoint& DtVdcCylinderObject::startAttachment() { return start_; }
void DtVdcCylinderObject::setStartAttachment(const DtVdc3DAttachPoint& attachment) { start_ = attachment; }
const DtVdc3DAttachPoint& DtVdcCylinderObject::endAttachment() const { return end_; }
DtVdc3DAttachPoint& DtVdcCylinderObject::endAttachment() { return end_; }
void DtVdcCylinderObject::setEndAttachment(const DtVdc3DAttachPoint& attachment) { end_ = attachment; }
const DtVector64& DtVdcCylinderObject::enuOffset() const { return enuOffset_; }
DtVector64& DtVdcCylinderObject::enuOffset() { return enuOffset_; }
void DtVdcCylinderObject::setEnuOffset(const DtVector64& offset) { enuOffset_ = offset; }
double DtVdcCylinderObject::length() const { return length_; }
void DtVdcCylinderObject::setLength(double length) { length_ = length; }
const DtVdcVector2D& DtVdcCylinderObject::diameters() const { return diameters_; }
DtVdcVector2D& DtVdcCylinderObject::diameters() { return diameters_; }
void DtVdcCylinderObject::setDiameters(const DtVdcVector2D& diameters) { diameters_ = diameters; }
const DtTaitBryan& DtVdcCylinderObject::rotation() const { return rotation_; }
DtTaitBryan& DtVdcCylinderObject::rotation() { return rotation_; }
void DtVdcCylinderObject::setRotation(const DtTaitBryan& rotation) { rotation_ = rotation; }
const DtVdcColor& DtVdcCylinderObject::color() const { return color_; }
DtVdcColor& DtVdcCylinderObject::color() { return color_; }
void DtVdcCylinderObject::setColor(const DtVdcColor& color) { color_ = color; }
bool DtVdcCylinderObject::flashing() const { return flashing_; }
void DtVdcCylinderObject::setFlashing(bool flashing) { flashing_ = flashing; }

void DtVdcCylinderObject::setPduAttach() {
  // With no end the cylinder hangs from its start alone; otherwise it spans start to end like a line.
  if (end_.attachmentType() == DtVdc3DAttachPoint::DtVdcAttachNone)
    VdcFill::attachSingle(pdu_, start_);
  else
    VdcFill::attachPair(pdu_, start_, end_);
}
void DtVdcCylinderObject::setPduScale() {
  pdu_.setScale(DtVector64(length_, diameters_.x(), diameters_.y()));
}
void DtVdcCylinderObject::setPduOffset() { pdu_.setOffset(enuOffset_); }
void DtVdcCylinderObject::setPduColor() { VdcFill::setColor(pdu_, color_); }
void DtVdcCylinderObject::setPduFlashing() { pdu_.setFlashing(flashing_); }
void DtVdcCylinderObject::setPduRotation() { pdu_.setRotation(rotation_); }
