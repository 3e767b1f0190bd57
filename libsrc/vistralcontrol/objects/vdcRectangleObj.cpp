#include "vistralcontrol/vdcRectangleObj.h"

DtVdcRectangleObject::DtVdcRectangleObject(unsigned int id, const DtVdcVector2D& position,
                                           const DtVdcVector2D& size, double rotation, DtVdcColor color,
                                           bool fill, unsigned int pattern, bool flashing)
    : DtVdcEllRectBase(id, DtVdcSquare, position, size, rotation, color, fill, pattern, flashing) {}

DtVdcRectangleObject::~DtVdcRectangleObject() = default;
