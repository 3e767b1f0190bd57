#include "vistralcontrol/vdcEllipsoidCuboidBase.h"

#include "vdcObjectParts.h"

DtVdcEllipsoidCuboidBase::DtVdcEllipsoidCuboidBase(unsigned int id, DtVdcObjectType type,
                                                   const DtVdc3DAttachPoint& attachment,
                                                   const DtVector64& size, const DtVector64& enuOffset,
                                                   const DtTaitBryan& rotation, DtVdcColor color,
                                                   bool flashing)
    : DtVdcObject(id),
      attachment_(attachment),
      size_(size),
      enuOffset_(enuOffset),
      color_(color),
      rotation_(rotation),
      flashing_(flashing) {
  VdcFill::startPdu(*this, pdu_, type);
}

VDC_OBJECT_PDU(DtVdcEllipsoidCuboidBase)
VDC_OBJECT_COLOR(DtVdcEllipsoidCuboidBase)
VDC_OBJECT_FLASHING(DtVdcEllipsoidCuboidBase)
VDC_OBJECT_ENU_OFFSET(DtVdcEllipsoidCuboidBase)
VDC_OBJECT_SINGLE_ATTACHMENT(DtVdcEllipsoidCuboidBase)
VDC_OBJECT_ORIENTATION(DtVdcEllipsoidCuboidBase)

void DtVdcEllipsoidCuboidBase::updatePdu() { VdcFill::updateSolid(*this); }

// The PDU carries the size doubled.
void DtVdcEllipsoidCuboidBase::setPduScale() { pdu_.setScale(size_ * 2.0); }
