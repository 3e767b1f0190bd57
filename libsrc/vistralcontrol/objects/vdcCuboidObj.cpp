#include "vistralcontrol/vdcCuboidObj.h"

DtVdcCuboidObject::DtVdcCuboidObject(unsigned int id, const DtVdc3DAttachPoint& attachment, double length,
                                     double width, double height, const DtVector64& enuOffset,
                                     const DtTaitBryan& rotation, DtVdcColor color, bool flashing)
    : DtVdcEllipsoidCuboidBase(id, DtVdcCube, attachment, DtVector64(length, width, height), enuOffset,
                               rotation, color, flashing) {}

DtVdcCuboidObject::~DtVdcCuboidObject() = default;

double DtVdcCuboidObject::length() const { return size().x(); }
void DtVdcCuboidObject::setLength(double length) { setSize(DtVector64(length, size().y(), size().z())); }
double DtVdcCuboidObject::width() const { return size().y(); }
void DtVdcCuboidObject::setWidth(double width) { setSize(DtVector64(size().x(), width, size().z())); }
double DtVdcCuboidObject::height() const { return size().z(); }
void DtVdcCuboidObject::setHeight(double height) { setSize(DtVector64(size().x(), size().y(), height)); }
