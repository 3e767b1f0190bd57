// A ellipse in the viewer's screen plane.
#pragma once

#include "vistralcontrol/vdcEllRectBase.h"

class VISTRAL_EXPORT DtVdcEllipseObject : public DtVdcEllRectBase {
 public:
  // rotation in radians.
  DtVdcEllipseObject(unsigned int id, const DtVdcVector2D& position, const DtVdcVector2D& size,
                     double rotation, DtVdcColor color, bool fill, unsigned int pattern, bool flashing);
  DtVdcEllipseObject(const DtVdcEllipseObject& other) = default;
  DtVdcEllipseObject& operator=(const DtVdcEllipseObject& other) = default;
  ~DtVdcEllipseObject() override;
};
