// A rectangle in the viewer's screen plane.
#pragma once

#include "vistralcontrol/vdcEllRectBase.h"

class VISTRAL_EXPORT DtVdcRectangleObject : public DtVdcEllRectBase {
 public:
  // rotation in radians.
  DtVdcRectangleObject(unsigned int id, const DtVdcVector2D& position, const DtVdcVector2D& size,
                       double rotation, DtVdcColor color, bool fill, unsigned int pattern, bool flashing);
  DtVdcRectangleObject(const DtVdcRectangleObject& other) = default;
  DtVdcRectangleObject& operator=(const DtVdcRectangleObject& other) = default;
  ~DtVdcRectangleObject() override;
};
