// An ellipsoid in the world, sized by its three diameters.
#pragma once

#include "vistralcontrol/vdcEllipsoidCuboidBase.h"

class VISTRAL_EXPORT DtVdcEllipsoidObject : public DtVdcEllipsoidCuboidBase {
 public:
  DtVdcEllipsoidObject(unsigned int id, const DtVdc3DAttachPoint& attachment, const DtVector64& diameters,
                       const DtVector64& enuOffset, const DtTaitBryan& rotation, DtVdcColor color,
                       bool flashing);
  DtVdcEllipsoidObject(const DtVdcEllipsoidObject& other) = default;
  DtVdcEllipsoidObject& operator=(const DtVdcEllipsoidObject& other) = default;
  ~DtVdcEllipsoidObject() override;

  virtual const DtVector64& diameters() const;
  virtual void setDiameters(const DtVector64& diameters);
};
