#include "vistralcontrol/vdcCylinderObj.h"

#include "vdcObjectParts.h"

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
  VdcFill::startPdu(*this, pdu_, DtVdcCylinder);
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
  VdcFill::startPdu(*this, pdu_, DtVdcCylinder);
}

VDC_OBJECT_PDU(DtVdcCylinderObject)
VDC_OBJECT_COLOR(DtVdcCylinderObject)
VDC_OBJECT_FLASHING(DtVdcCylinderObject)
VDC_OBJECT_ENU_OFFSET(DtVdcCylinderObject)
VDC_OBJECT_ATTACHMENT(DtVdcCylinderObject, start_)
VDC_OBJECT_ORIENTATION(DtVdcCylinderObject)

void DtVdcCylinderObject::updatePdu() { VdcFill::updateSolid(*this); }

const DtVdc3DAttachPoint& DtVdcCylinderObject::startAttachment() const { return start_; }
DtVdc3DAttachPoint& DtVdcCylinderObject::startAttachment() { return start_; }
void DtVdcCylinderObject::setStartAttachment(const DtVdc3DAttachPoint& attachment) { start_ = attachment; }
const DtVdc3DAttachPoint& DtVdcCylinderObject::endAttachment() const { return end_; }
DtVdc3DAttachPoint& DtVdcCylinderObject::endAttachment() { return end_; }
void DtVdcCylinderObject::setEndAttachment(const DtVdc3DAttachPoint& attachment) { end_ = attachment; }
double DtVdcCylinderObject::length() const { return length_; }
void DtVdcCylinderObject::setLength(double length) { length_ = length; }
const DtVdcVector2D& DtVdcCylinderObject::diameters() const { return diameters_; }
DtVdcVector2D& DtVdcCylinderObject::diameters() { return diameters_; }
void DtVdcCylinderObject::setDiameters(const DtVdcVector2D& diameters) { diameters_ = diameters; }

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
