#include "vistralcontrol/vdcEllipsoidObj.h"

DtVdcEllipsoidObject::DtVdcEllipsoidObject(unsigned int id, const DtVdc3DAttachPoint& attachment,
                                           const DtVector64& diameters, const DtVector64& enuOffset,
                                           const DtTaitBryan& rotation, DtVdcColor color, bool flashing)
    : DtVdcEllipsoidCuboidBase(id, DtVdcSphere, attachment, diameters, enuOffset, rotation, color, flashing) {
}

DtVdcEllipsoidObject::~DtVdcEllipsoidObject() = default;

const DtVector64& DtVdcEllipsoidObject::diameters() const { return size(); }
void DtVdcEllipsoidObject::setDiameters(const DtVector64& diameters) { setSize(diameters); }
