#include "vistralcontrol/vdcEllipseObj.h"

DtVdcEllipseObject::DtVdcEllipseObject(unsigned int id, const DtVdcVector2D& position,
                                       const DtVdcVector2D& size, double rotation, DtVdcColor color,
                                       bool fill, unsigned int pattern, bool flashing)
    : DtVdcEllRectBase(id, DtVdcCircle, position, size, rotation, color, fill, pattern, flashing) {}

DtVdcEllipseObject::~DtVdcEllipseObject() = default;
